// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <span>
#include <string_view>

namespace zumeta {

/// One key in all languages. An empty text is one that nobody has translated yet.
struct TextRow {
    std::u16string_view key;
    std::u16string_view english;
    std::u16string_view japanese{};
    std::u16string_view chinese{};
    std::u16string_view korean{};
    std::u16string_view portuguese{};
    std::u16string_view spanish{};
    std::u16string_view french{};
    std::u16string_view german{};
    std::u16string_view italian{};
};

// The table, split by where its texts are read. Conventions of each language stand in docs/translating.md.
std::span<const TextRow> adjustmentTexts(); ///< panel titles, adjustments, markers
std::span<const TextRow> shortcutTexts();   ///< the list of shortcuts, the trim range
std::span<const TextRow> stepTexts();       ///< buttons and checklists of the four steps
std::span<const TextRow> previewTexts();    ///< what stands over the preview, confirmations, the start screen
std::span<const TextRow> menuTexts();
std::span<const TextRow> messageTexts();  ///< alerts, files, the outcome of an export
std::span<const TextRow> guideTexts();    ///< the tour for newcomers
std::span<const TextRow> tutorialTexts(); ///< the cards beside the highlighted controls; the drop area

/// Tooltips, accessible names and what else this window has to say of itself. A table apart.
std::span<const TextRow> windowTexts();

}

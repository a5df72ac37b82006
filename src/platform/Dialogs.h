// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/FileUrl.h"
#include "platform/Task.h"

#include <QString>
#include <QStringList>
#include <optional>

namespace zumeta {

/// A question or message that the user must answer. Texts are translated.
struct Alert {
    QString title;
    QString message;
    QStringList buttons; ///< the first one is the default
    /// The first button takes something away that does not come back: it is not what a hasty Return presses.
    bool isDestructive = false;
    friend bool operator==(const Alert&, const Alert&) = default;
};

/// Asks where a new file shall lie.
struct SavePanel {
    QString proposedName; ///< of the file, with its extension
    QString extension;    ///< the one kind of file that can be chosen; without the dot
    QString title{};      ///< translated; empty: the platform's own
    /// Whoever asks looks himself for a file that is in the way, and the panel need not do it for names that it did not
    /// see, those to which the extension was added afterwards.
    bool callerAsksToReplace = false;
};

/// What only the user can decide. Main thread. The event loop goes on while an answer is awaited, so whoever waits
/// tests afterwards whether the answer is still wanted.
class Dialogs {
public:
    Dialogs() = default;
    virtual ~Dialogs() = default;
    Dialogs(const Dialogs&) = delete; // an interface: copying would slice
    Dialogs& operator=(const Dialogs&) = delete;

    /// The index of the button that was pressed; the last one when the alert was closed without.
    virtual Task<int> showAlert(Alert alert) = 0;
    /// Does not hold up the window. Nothing when the panel was closed without a choice, or the user would not replace
    /// the file that lies there: the platform's panel asks before an existing file is chosen.
    virtual Task<std::optional<FileUrl>> showSavePanel(SavePanel panel) = 0;
};

}

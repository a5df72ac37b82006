// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>
#include <span>
#include <string_view>

namespace zumeta::test {

/// A key that the surfaces ask for, and the English text that it must read.
struct EnglishText {
    std::u16string_view key;
    std::u16string_view text = key;

    QString keyString() const { return QStringView(key).toString(); }
    QString textString() const { return QStringView(text).toString(); }
};

/// All keys, in the table's order.
std::span<const EnglishText> englishTexts();

}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/controls/TypedText.h"

#include <QList>

namespace zumeta {
namespace {

/// The plain form of what East Asian input methods write twice as wide.
char32_t halfWidth(char32_t c)
{
    constexpr char32_t kFirstFullWidth = 0xFF01;
    constexpr char32_t kLastFullWidth = 0xFF5E;
    constexpr char32_t kFirstHalfWidth = 0x21;
    return c >= kFirstFullWidth && c <= kLastFullWidth ? c - kFirstFullWidth + kFirstHalfWidth : c;
}

}

QString filterInput(const QString& text, const InputLimits& limits)
{
    QString kept;
    int length = 0;
    for (const uint codePoint : text.toUcs4()) {
        const char32_t c = halfWidth(codePoint);
        const bool isLeadingMinus = c == U'-' && length == 0;
        const bool isColon = c == U':' && limits.acceptsColon;
        if (!QChar::isNumber(c) && c != U'.' && !isLeadingMinus && !isColon)
            continue;
        if (length == limits.greatestLength)
            break;
        kept += QChar::fromUcs4(c);
        ++length;
    }
    return kept;
}

QString withPlainSigns(QString text)
{
    for (QChar& c : text) {
        switch (c.unicode()) {
        case u',':
        case u'\uFF0C': // full-width comma
        case u'\u3002': // ideographic full stop
        case u'\uFF61': // the same at half width
            c = u'.';
            break;
        case u'\u2212': // minus sign
        case u'\u30FC': // prolonged sound mark, on the key of the minus
            c = u'-';
            break;
        default:
            break;
        }
    }
    return text;
}

TypedText filterTyped(const TypedText& typed, const InputLimits& limits)
{
    const QString text = withPlainSigns(typed.text);
    // What stays of a beginning does not depend on what follows it.
    const QString beforeCaret = filterInput(text.left(typed.caret), limits);
    return {filterInput(text, limits), int(beforeCaret.size())};
}

}

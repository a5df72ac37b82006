// SPDX-License-Identifier: GPL-3.0-or-later
#include "languages/Format.h"

#include <optional>

namespace zumeta {
namespace {

struct Placeholder {
    qsizetype length;
    std::optional<int> decimals; ///< for numbers
};

/// The placeholder at a percent sign, if one begins there.
std::optional<Placeholder> placeholderAt(QStringView text)
{
    if (text.startsWith(u"%@"))
        return Placeholder{2, std::nullopt};
    if (text.startsWith(u"%d"))
        return Placeholder{2, 0};
    if (text.size() >= 4 && text.startsWith(u"%.") && text[2] >= u'0' && text[2] <= u'9' && text[3] == u'f')
        return Placeholder{4, text[2].unicode() - u'0'};
    return std::nullopt;
}

QString written(const FormatArgument& argument, const Placeholder& placeholder)
{
    if (const auto* text = std::get_if<QString>(&argument))
        return *text;
    if (const auto* whole = std::get_if<qint64>(&argument)) {
        return placeholder.decimals.value_or(0) == 0 ? QString::number(*whole)
                                                     : QString::number(double(*whole), 'f', *placeholder.decimals);
    }
    const double number = std::get<double>(argument);
    return placeholder.decimals ? QString::number(number, 'f', *placeholder.decimals) : QString::number(number);
}

}

QString formatted(const QString& text, std::initializer_list<FormatArgument> arguments)
{
    QString result;
    auto next = arguments.begin();
    for (qsizetype at = 0; at < text.size();) {
        const QStringView rest = QStringView(text).sliced(at);
        const std::optional<Placeholder> placeholder = placeholderAt(rest);
        if (placeholder && next != arguments.end()) {
            result += written(*next++, *placeholder);
            at += placeholder->length;
        } else if (rest.startsWith(u"%%")) {
            result += u'%';
            at += 2;
        } else {
            result += text[at++];
        }
    }
    return result;
}

}

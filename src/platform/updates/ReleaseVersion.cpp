// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/updates/ReleaseVersion.h"

#include <QStringList>
#include <algorithm>

namespace zumeta {

namespace {

constexpr int kLongestText = 64;
constexpr int kMostDigits = 9; // fits into 32 bits

bool isDigit(QChar letter)
{
    return letter >= QLatin1Char('0') && letter <= QLatin1Char('9');
}

/// Also a hyphen, as in "rc-1".
bool isOfAName(QChar letter)
{
    const QChar lower = letter.toLower();
    return isDigit(letter) || (lower >= QLatin1Char('a') && lower <= QLatin1Char('z')) || letter == QLatin1Char('-');
}

std::optional<uint32_t> number(const QString& text)
{
    if (text.isEmpty() || text.size() > kMostDigits || !std::ranges::all_of(text, isDigit))
        return std::nullopt;
    return text.toUInt();
}

}

std::optional<ReleaseVersion> ReleaseVersion::parsed(const QString& text)
{
    if (text.size() > kLongestText)
        return std::nullopt;
    const qsizetype hyphen = text.indexOf(QLatin1Char('-'));
    const QStringList numbers = text.left(hyphen).split(QLatin1Char('.'));
    ReleaseVersion version;
    if (numbers.size() > qsizetype(version.m_numbers.size()))
        return std::nullopt;
    for (qsizetype i = 0; i < numbers.size(); ++i) {
        const std::optional<uint32_t> part = number(numbers[i]);
        if (!part)
            return std::nullopt;
        version.m_numbers[size_t(i)] = *part;
    }
    if (hyphen < 0)
        return version;
    const QStringList parts = text.mid(hyphen + 1).split(QLatin1Char('.'));
    for (const QString& part : parts) {
        if (part.isEmpty() || !std::ranges::all_of(part, isOfAName))
            return std::nullopt;
        if (const std::optional<uint32_t> value = number(part))
            version.m_preRelease.emplace_back(*value);
        else if (std::ranges::all_of(part, isDigit))
            return std::nullopt; // too long
        else
            version.m_preRelease.emplace_back(part.toStdString());
    }
    return version;
}

std::strong_ordering operator<=>(const ReleaseVersion& left, const ReleaseVersion& right)
{
    if (const auto order = left.m_numbers <=> right.m_numbers; order != 0)
        return order;
    if (const auto order = left.m_preRelease.empty() <=> right.m_preRelease.empty(); order != 0)
        return order;
    return left.m_preRelease <=> right.m_preRelease;
}

}

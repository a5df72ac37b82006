// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/ProjectFileText.h"

#include <QString>
#include <algorithm>
#include <array>
#include <cstdio>

namespace zumeta {

namespace {

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool isHexDigit(char c)
{
    return isDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

/// Whether the text has the pattern's length, `stand` wherever the pattern has '0', and the pattern's own characters
/// elsewhere.
bool matches(std::string_view text, std::string_view pattern, bool (*stand)(char))
{
    return text.size() == pattern.size() &&
           std::equal(text.begin(), text.end(), pattern.begin(),
                      [stand](char c, char expected) { return expected == '0' ? stand(c) : c == expected; });
}

int numberIn(std::string_view text, size_t start, size_t length)
{
    int number = 0;
    for (const char c : text.substr(start, length))
        number = number * 10 + (c - '0');
    return number;
}

bool isInBase64Alphabet(char c)
{
    return isDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '+' || c == '/';
}

}

std::optional<std::chrono::sys_seconds> dateFromText(std::string_view text)
{
    if (!matches(text, "0000-00-00T00:00:00Z", isDigit))
        return std::nullopt;
    using namespace std::chrono;
    const year_month_day day(year(numberIn(text, 0, 4)), month(unsigned(numberIn(text, 5, 2))),
                             std::chrono::day(unsigned(numberIn(text, 8, 2))));
    const int hour = numberIn(text, 11, 2);
    const int minute = numberIn(text, 14, 2);
    const int second = numberIn(text, 17, 2);
    if (!day.ok() || hour > 23 || minute > 59 || second > 59)
        return std::nullopt;
    return sys_days(day) + hours(hour) + minutes(minute) + seconds(second);
}

std::optional<std::string> textFromDate(std::chrono::sys_seconds date)
{
    using namespace std::chrono;
    // Compared as moments first: the year of a calendar day wraps around for moments far enough away.
    if (date < sys_days(year(0) / January / 1) || date >= sys_days(year(10000) / January / 1))
        return std::nullopt;
    const sys_days midnight = floor<days>(date);
    const year_month_day day(midnight);
    const hh_mm_ss time(date - midnight);
    std::array<char, 64> buffer = {};
    const int length = std::snprintf(buffer.data(), buffer.size(), "%04d-%02u-%02uT%02d:%02d:%02dZ", int(day.year()),
                                     unsigned(day.month()), unsigned(day.day()), int(time.hours().count()),
                                     int(time.minutes().count()), int(time.seconds().count()));
    return std::string(buffer.data(), size_t(length));
}

std::optional<QByteArray> bytesFromBase64(std::string_view text)
{
    if (text.size() % 4 != 0)
        return std::nullopt;
    const size_t padding = text.ends_with("==") ? 2 : text.ends_with("=") ? 1 : 0;
    const std::string_view digits = text.substr(0, text.size() - padding);
    if (!std::all_of(digits.begin(), digits.end(), isInBase64Alphabet))
        return std::nullopt;
    const QByteArray encoded(text.data(), qsizetype(text.size()));
    QByteArray bytes = QByteArray::fromBase64(encoded);
    // Written back it differs only when the last digit carried bits that belong to no byte.
    return bytes.toBase64() == encoded ? std::optional(bytes) : std::nullopt;
}

std::optional<QUuid> uuidFromText(std::string_view text)
{
    if (!matches(text, "00000000-0000-0000-0000-000000000000", isHexDigit))
        return std::nullopt;
    return QUuid::fromString(QLatin1String(text.data(), qsizetype(text.size())));
}

std::string textFromUuid(const QUuid& id)
{
    return id.toString(QUuid::WithoutBraces).toUpper().toStdString();
}

}

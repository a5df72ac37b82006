// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QByteArray>
#include <QUuid>
#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace zumeta {

// The exact texts of a project file for values that JSON has no type for. Qt's own readers take dates without a zone
// and with fractions, base64 without padding and UUIDs in braces; these take one form.

/// "2026-07-14T09:30:00Z": a real day of the years 0000 to 9999, whole seconds, UTC.
std::optional<std::chrono::sys_seconds> dateFromText(std::string_view text);
/// Nothing for a year of more or fewer than four digits.
std::optional<std::string> textFromDate(std::chrono::sys_seconds date);

/// Standard alphabet, padded to fours, no white space, no bits left over.
std::optional<QByteArray> bytesFromBase64(std::string_view text);

/// Eight, four, four, four and twelve hexadecimal digits of either case, hyphenated.
std::optional<QUuid> uuidFromText(std::string_view text);
/// In upper case.
std::string textFromUuid(const QUuid& id);

}

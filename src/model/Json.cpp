// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/Json.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <clocale>
#include <cmath>
#include <cstdlib>

namespace zumeta {

namespace {

std::string digitsOf(double value, std::chars_format format)
{
    std::array<char, 64> buffer = {};
    const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, format);
    return error == std::errc() ? std::string(buffer.data(), end) : std::string();
}

/// Digits without sign, point and zeros at the end, and the power of ten that they are multiplied by.
struct Decimal {
    bool isNegative = false;
    std::string digits; ///< empty for zero
    int64_t exponent = 0;
};

Decimal decimalOf(const std::string& text)
{
    // An exponent past this makes no int64 whatever the digits are, as long as there are fewer of them.
    constexpr int64_t kExponentLimit = INT64_C(1'000'000'000'000);
    Decimal decimal;
    size_t i = 0;
    if (text[0] == '-') {
        decimal.isNegative = true;
        ++i;
    }
    bool isFraction = false;
    for (; i < text.size() && text[i] != 'e' && text[i] != 'E'; ++i) {
        if (text[i] == '.') {
            isFraction = true;
            continue;
        }
        decimal.exponent -= isFraction ? 1 : 0;
        if (!decimal.digits.empty() || text[i] != '0')
            decimal.digits.push_back(text[i]);
    }
    if (i < text.size()) {
        const char* first = text.data() + i + (text[i + 1] == '+' ? 2 : 1);
        int64_t exponent = 0;
        const auto result = std::from_chars(first, text.data() + text.size(), exponent);
        if (result.ec == std::errc::result_out_of_range)
            exponent = *first == '-' ? -kExponentLimit : kExponentLimit;
        decimal.exponent += std::clamp(exponent, -kExponentLimit, kExponentLimit);
    }
    while (!decimal.digits.empty() && decimal.digits.back() == '0') {
        decimal.digits.pop_back();
        ++decimal.exponent;
    }
    return decimal;
}

}

JsonNumber JsonNumber::of(int64_t value)
{
    return {std::to_string(value)};
}

JsonNumber JsonNumber::of(double value)
{
    // Plain digits for the magnitudes that people write plainly; up to 2^54 they are exact. Powers of ten beyond.
    const double magnitude = std::abs(value);
    const bool isPlain = magnitude == 0 || (magnitude >= 1e-4 && magnitude <= 0x1p54);
    return {digitsOf(value, isPlain ? std::chars_format::fixed : std::chars_format::scientific)};
}

std::optional<double> JsonNumber::toDouble() const
{
    // The C locale by name: an application's own locale may read "0.5" as 0. What is too small becomes 0 here, where
    // std::from_chars cannot tell it from what is too large.
    static const locale_t kLocale = ::newlocale(LC_ALL_MASK, "C", nullptr);
    const double value = ::strtod_l(text.c_str(), nullptr, kLocale);
    return std::isfinite(value) ? std::optional(value) : std::nullopt;
}

std::variant<int64_t, JsonNumber::IntegerFault> JsonNumber::toInteger() const
{
    Decimal decimal = decimalOf(text);
    if (decimal.digits.empty())
        return int64_t(0);
    if (decimal.exponent < 0)
        return IntegerFault::notInteger;
    constexpr int64_t kMostDigits = 19;
    if (int64_t(decimal.digits.size()) + decimal.exponent > kMostDigits)
        return IntegerFault::outOfRange;
    decimal.digits.append(size_t(decimal.exponent), '0');
    if (decimal.isNegative)
        decimal.digits.insert(decimal.digits.begin(), '-');
    int64_t value = 0;
    const char* end = decimal.digits.data() + decimal.digits.size();
    if (std::from_chars(decimal.digits.data(), end, value).ec != std::errc())
        return IntegerFault::outOfRange;
    return value;
}

const char* JsonValue::typeName() const
{
    constexpr std::array<const char*, 6> kNames{"null", "a boolean", "a number", "a string", "a list", "an object"};
    return kNames[value.index()];
}

const JsonValue* findMember(const JsonValue::Object& object, const char* key)
{
    const auto found =
        std::find_if(object.rbegin(), object.rend(), [key](const auto& member) { return member.key == key; });
    return found == object.rend() ? nullptr : &found->value;
}

std::string keyPathTo(const std::string& path, const std::string& key)
{
    // Keys come from a file: a message stays one short line whatever they hold.
    constexpr size_t kLongestKey = 60;
    size_t length = std::min(key.size(), kLongestKey);
    while (length < key.size() && (key[length] & 0xc0) == 0x80)
        --length; // not in the middle of a character
    std::string shown = key.substr(0, length);
    std::replace_if(
        shown.begin(), shown.end(), [](char c) { return (c >= 0 && c < ' ') || c == 0x7f; }, '?');
    if (length < key.size())
        shown += "...";
    return path.empty() ? shown : path + '.' + shown;
}

std::string keyPathTo(const std::string& path, size_t index)
{
    return path + '[' + std::to_string(index) + ']';
}

}

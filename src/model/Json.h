// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QByteArray>
#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace zumeta {
struct JsonMember;

/// A number as it is written in the file: whether it is an integer, and which, shows only in its digits. QJsonDocument
/// rounds them on the way in, and refuses a whole file for a number too small for a double.
struct JsonNumber {
    std::string text;

    static JsonNumber of(int64_t value);
    /// The shortest digits that read back as the same double; integral values without ".0". Finite values only.
    static JsonNumber of(double value);

    /// The nearest double; nothing when it is past the range.
    std::optional<double> toDouble() const;
    enum class IntegerFault { notInteger, outOfRange };
    /// Exact over all of int64, also from "1.0" and "1e3".
    std::variant<int64_t, IntegerFault> toInteger() const;
};

/// A JSON value; null is the empty state. Strings are valid UTF-8.
struct JsonValue {
    using Array = std::vector<JsonValue>;
    using Object = std::vector<JsonMember>;
    std::variant<std::monostate, bool, JsonNumber, std::string, Array, Object> value;

    bool isNull() const { return std::holds_alternative<std::monostate>(value); }
    /// With its article, for messages: "a number", "an object", "null".
    const char* typeName() const;
};

struct JsonMember {
    std::string key;
    JsonValue value;
};

/// The last member of this name, as most readers take a repeated key.
const JsonValue* findMember(const JsonValue::Object& object, const char* key);

/// Reads one JSON value with nothing but white space around it. Throws ProjectFileError (notJson) with the path of the
/// key at which reading stopped.
JsonValue parseJson(const QByteArray& text);

/// Two-space indent, keys in ascending order, a blank between key, colon and value, slashes escaped, control characters
/// as \u00xx, other text as it stands, an empty list or object as two brackets around a blank line, no newline at the
/// end.
QByteArray jsonText(const JsonValue& value);

/// One step further down a key path.
std::string keyPathTo(const std::string& path, const std::string& key);
std::string keyPathTo(const std::string& path, size_t index);

}

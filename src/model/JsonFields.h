// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "model/Json.h"
#include "model/ProjectFileError.h"
#include "platform/FileUrl.h"

#include <QString>
#include <QUuid>
#include <chrono>

namespace zumeta {

/// A JSON value together with the path of the key that it stands under. The conversions throw ProjectFileError.
class JsonField {
public:
    JsonField(const JsonValue& value, std::string path)
        : m_value(&value)
        , m_path(std::move(path))
    {}

    const JsonValue::Object& object() const;
    const JsonValue::Array& list() const;
    bool boolean() const;
    double number() const;
    int64_t integer() const;
    const std::string& utf8() const;
    QString text() const;
    std::chrono::sys_seconds date() const;
    QByteArray base64() const;
    QUuid uuid() const;
    FileUrl fileUrl() const;

    template <class Value> std::vector<Value> listOf(Value (JsonField::*convert)() const) const
    {
        std::vector<Value> values;
        for (const JsonValue& element : list())
            values.push_back((JsonField(element, keyPathTo(m_path, values.size())).*convert)());
        return values;
    }

    /// The member of this object under a key. Absent and null are the same.
    std::optional<JsonField> find(const char* key) const;
    JsonField required(const char* key) const;

    template <class Value> std::optional<Value> optional(const char* key, Value (JsonField::*convert)() const) const
    {
        const std::optional<JsonField> field = find(key);
        return field ? std::optional<Value>(((*field).*convert)()) : std::nullopt;
    }

    [[noreturn]] void failInvalid(const std::string& reason) const;

private:
    template <class Type> const Type& expect(const char* expected) const;

    const JsonValue* m_value;
    std::string m_path;
};

}

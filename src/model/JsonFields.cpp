// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/JsonFields.h"

#include "model/ProjectFileText.h"

namespace zumeta {

template <class Type> const Type& JsonField::expect(const char* expected) const
{
    if (const Type* found = std::get_if<Type>(&m_value->value))
        return *found;
    throw ProjectFileError(ProjectFileError::Kind::wrongType, m_path,
                           std::string("expected ") + expected + ", found " + m_value->typeName());
}

void JsonField::failInvalid(const std::string& reason) const
{
    throw ProjectFileError(ProjectFileError::Kind::invalidValue, m_path, reason);
}

const JsonValue::Object& JsonField::object() const
{
    return expect<JsonValue::Object>("an object");
}

const JsonValue::Array& JsonField::list() const
{
    return expect<JsonValue::Array>("a list");
}

bool JsonField::boolean() const
{
    return expect<bool>("a boolean");
}

double JsonField::number() const
{
    const std::optional<double> value = expect<JsonNumber>("a number").toDouble();
    if (!value)
        failInvalid("a number out of range");
    return *value;
}

int64_t JsonField::integer() const
{
    const auto value = expect<JsonNumber>("an integer").toInteger();
    if (const auto* fault = std::get_if<JsonNumber::IntegerFault>(&value))
        failInvalid(*fault == JsonNumber::IntegerFault::outOfRange ? "an integer out of range" : "not an integer");
    return std::get<int64_t>(value);
}

const std::string& JsonField::utf8() const
{
    return expect<std::string>("a string");
}

QString JsonField::text() const
{
    return QString::fromStdString(utf8());
}

std::chrono::sys_seconds JsonField::date() const
{
    const auto value = dateFromText(utf8());
    if (!value)
        failInvalid("not a date of the form 2026-07-14T09:30:00Z");
    return *value;
}

QByteArray JsonField::base64() const
{
    std::optional<QByteArray> value = bytesFromBase64(utf8());
    if (!value)
        failInvalid("not base64");
    return *std::move(value);
}

QUuid JsonField::uuid() const
{
    const std::optional<QUuid> value = uuidFromText(utf8());
    if (!value)
        failInvalid("not a UUID");
    return *value;
}

FileUrl JsonField::fileUrl() const
{
    std::optional<FileUrl> value = FileUrl::fromAbsoluteString(QByteArray::fromStdString(utf8()));
    if (!value)
        failInvalid("not a file URL");
    return *std::move(value);
}

std::optional<JsonField> JsonField::find(const char* key) const
{
    const JsonValue* member = findMember(object(), key);
    if (member == nullptr || member->isNull())
        return std::nullopt;
    return JsonField(*member, keyPathTo(m_path, key));
}

JsonField JsonField::required(const char* key) const
{
    std::optional<JsonField> field = find(key);
    if (!field)
        throw ProjectFileError(ProjectFileError::Kind::missingKey, keyPathTo(m_path, key), "a required key is missing");
    return *std::move(field);
}

}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/BookmarkBytes.h"

#include "platform/Bookmark.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace zumeta {

namespace {

constexpr qint64 kVersion = 1;

[[noreturn]] void throwMalformed()
{
    throw BookmarkError(BookmarkError::Kind::malformed, "Not a bookmark of this system");
}

int64_t integer(const QJsonValue& value)
{
    // Asked twice, because the answer for anything but an integer is the default.
    if (!value.isDouble() || value.toInteger(0) != value.toInteger(1))
        throwMalformed();
    return value.toInteger();
}

uint64_t unsignedText(const QJsonValue& value)
{
    bool isNumber = false;
    const uint64_t number = value.toString().toULongLong(&isNumber);
    if (!isNumber)
        throwMalformed();
    return number;
}

}

// Device and inode are unsigned 64-bit numbers, which JSON numbers in Qt do not hold: they travel as text.
QByteArray bookmarkBytes(const FileIdentity& identity)
{
    QJsonObject object{
        {QStringLiteral("version"), kVersion},
        {QStringLiteral("url"), QString::fromLatin1(identity.url.absoluteString())},
        {QStringLiteral("device"), QString::number(identity.device)},
        {QStringLiteral("inode"), QString::number(identity.inode)},
        {QStringLiteral("size"), qint64(identity.size)},
        {QStringLiteral("modified"), qint64(identity.modifiedNanoseconds)},
        {QStringLiteral("key"), QString::fromLatin1(identity.key)},
    };
    if (identity.birthNanoseconds)
        object.insert(QStringLiteral("birth"), qint64(*identity.birthNanoseconds));
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

FileIdentity identityInBookmark(const QByteArray& bookmark)
{
    const QJsonObject object = QJsonDocument::fromJson(bookmark).object();
    if (integer(object.value(QLatin1String("version"))) != kVersion)
        throwMalformed();
    const auto url = FileUrl::fromAbsoluteString(object.value(QLatin1String("url")).toString().toUtf8());
    if (!url || url->path().empty())
        throwMalformed();
    FileIdentity identity;
    identity.url = *url;
    identity.device = unsignedText(object.value(QLatin1String("device")));
    identity.inode = unsignedText(object.value(QLatin1String("inode")));
    identity.size = integer(object.value(QLatin1String("size")));
    identity.modifiedNanoseconds = integer(object.value(QLatin1String("modified")));
    if (const QJsonValue birth = object.value(QLatin1String("birth")); !birth.isUndefined())
        identity.birthNanoseconds = integer(birth);
    identity.key = object.value(QLatin1String("key")).toString().toLatin1();
    if (identity.key.size() != 64)
        throwMalformed();
    return identity;
}

}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/updates/UpdateFeed.h"

#include "platform/updates/FeedAddress.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace zumeta {

namespace {

/// Signed with the rest: a file for another purpose, signed with the same key, is no feed.
const QString kFormat = QStringLiteral("zumeta-updates-1");

UpdateProblem unreadable(const QString& why)
{
    return {UpdateProblem::Kind::feedUnreadable, why};
}

/// Nothing when one of them is no text.
std::optional<QMap<QString, QString>> notesOf(const QJsonValue& value)
{
    if (!value.isUndefined() && !value.isObject())
        return std::nullopt;
    QMap<QString, QString> notes;
    const QJsonObject texts = value.toObject();
    for (auto text = texts.begin(); text != texts.end(); ++text) {
        if (!text.value().isString())
            return std::nullopt;
        notes.insert(text.key(), text.value().toString().trimmed());
    }
    return notes;
}

}

QString UpdateFeed::notesIn(const QString& language) const
{
    return notes.value(language, notes.value(QStringLiteral("en")));
}

std::variant<UpdateFeed, UpdateProblem> UpdateFeed::parsed(const QByteArray& bytes)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (error.error != QJsonParseError::NoError)
        return unreadable(error.errorString());
    const QJsonObject feed = document.object(); // empty when it is no object
    if (feed.value(QStringLiteral("format")).toString() != kFormat)
        return unreadable(QStringLiteral("it is not of the format ") + kFormat);
    const QString versionText = feed.value(QStringLiteral("version")).toString();
    const std::optional<ReleaseVersion> version = ReleaseVersion::parsed(versionText);
    if (!version)
        return unreadable(QStringLiteral("the version cannot be read"));
    const QUrl page(feed.value(QStringLiteral("page")).toString(), QUrl::StrictMode);
    if (!isDownloadPage(page))
        return unreadable(QStringLiteral("the page is none that a browser may be sent to"));
    std::optional<QMap<QString, QString>> notes = notesOf(feed.value(QStringLiteral("notes")));
    if (!notes)
        return unreadable(QStringLiteral("the notes are not texts by language"));
    return UpdateFeed{*version, versionText, page, std::move(*notes)};
}

}

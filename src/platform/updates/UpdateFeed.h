// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/updates/ReleaseVersion.h"
#include "platform/updates/UpdateProblem.h"

#include <QByteArray>
#include <QMap>
#include <QUrl>
#include <variant>

namespace zumeta {

/// What a feed tells: the newest release and the page that offers it. docs/update-feed.md is its description.
struct UpdateFeed {
    ReleaseVersion version;
    QString versionText;            ///< as it is shown
    QUrl page;                      ///< HTTPS
    QMap<QString, QString> notes{}; ///< by the two letters of their language

    /// In this language, else in English; empty when there are none.
    QString notesIn(const QString& language) const;

    /// Reads a feed, whoever has made it. A problem is always feedUnreadable.
    static std::variant<UpdateFeed, UpdateProblem> parsed(const QByteArray& bytes);
};

}

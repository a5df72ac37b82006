// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/export/ExportMetadata.h"

#include <QDateTime>

namespace zumeta {

namespace {

MovieMetadataItem item(const char* key, const QString& value)
{
    return {std::string("com.apple.quicktime.") + key, value.toStdString()};
}

QString orUnknown(const QString& text)
{
    return text.isEmpty() ? QStringLiteral("unknown") : text;
}

}

std::vector<MovieMetadataItem> createExportMetadata(const ProgramVersion& program, const QUuid& exportId,
                                                    std::chrono::sys_seconds now)
{
    const QString id = QStringLiteral("zm_") + exportId.toString(QUuid::Id128).toLower();
    const QString software = QStringLiteral("Zumeta %1 (%2)").arg(orUnknown(program.version), orUnknown(program.build));
    const QString date = QDateTime::fromSecsSinceEpoch(now.time_since_epoch().count(), Qt::UTC).toString(Qt::ISODate);
    return {item("software", software), item("make", QStringLiteral("Zumeta")),
            item("model", QStringLiteral("Zumeta Export")), item("creationdate", date),
            item("comment", QStringLiteral("Created with Zumeta; Export ID: ") + id)};
}

}

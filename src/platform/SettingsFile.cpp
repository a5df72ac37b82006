// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/SettingsFile.h"

#include "platform/Log.h"

#include <QStandardPaths>

namespace zumeta {

SettingsFile::SettingsFile(const QString& path)
    : m_settings(path, QSettings::IniFormat)
{}

QString SettingsFile::defaultPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QLatin1String("/ZumetaApp/ZumetaApp.ini");
}

std::optional<QString> SettingsFile::string(const QString& key) const
{
    const QVariant value = m_settings.value(key);
    // An edited file may hold a list or an encoded object under the key.
    if (value.typeId() != QMetaType::QString)
        return std::nullopt;
    return value.toString();
}

void SettingsFile::setString(const QString& key, const QString& value)
{
    m_settings.setValue(key, value);
    write();
}

void SettingsFile::remove(const QString& key)
{
    m_settings.remove(key);
    write();
}

void SettingsFile::write()
{
    m_settings.sync();
    if (m_settings.status() != QSettings::NoError)
        logLine(QStringLiteral("Settings could not be written to ") + m_settings.fileName());
}

}

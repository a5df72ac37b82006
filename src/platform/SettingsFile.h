// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/UserDefaults.h"

#include <QSettings>

namespace zumeta {

/// The user's settings in one INI file. Each change is written at once: they are few, and one made just before a crash
/// counts as much as any other. A file that can't be written costs a log line; the settings then hold for this run.
class SettingsFile final : public UserDefaults {
public:
    /// The file and its folder need not exist; they come with the first change.
    explicit SettingsFile(const QString& path);

    /// The application's own file in the user's configuration folder.
    static QString defaultPath();

    std::optional<QString> string(const QString& key) const override;
    void setString(const QString& key, const QString& value) override;
    void remove(const QString& key) override;

private:
    void write();

    QSettings m_settings;
};

}

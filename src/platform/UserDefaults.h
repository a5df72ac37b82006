// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>
#include <optional>

namespace zumeta {

/// The user's stored settings. Everything is kept as text, as it stands in the file: a value that does not read as the
/// type asked for is absent, and its reader falls back to its own default. Main thread.
class UserDefaults {
public:
    UserDefaults() = default;
    virtual ~UserDefaults() = default;
    UserDefaults(const UserDefaults&) = delete; // an interface: copying would slice
    UserDefaults& operator=(const UserDefaults&) = delete;

    virtual std::optional<QString> string(const QString& key) const = 0;
    virtual void setString(const QString& key, const QString& value) = 0;
    /// Removing what is not there does nothing.
    virtual void remove(const QString& key) = 0;

    /// Kept as "true" or "false".
    std::optional<bool> boolean(const QString& key) const;
    void setBoolean(const QString& key, bool value);
};

}

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/UserDefaults.h"

#include <QHash>

namespace zumeta::test {

/// Settings that go away with the test, open to be looked at.
class MemoryUserDefaults final : public UserDefaults {
public:
    std::optional<QString> string(const QString& key) const override
    {
        const auto found = values.find(key);
        return found == values.end() ? std::nullopt : std::optional(*found);
    }
    void setString(const QString& key, const QString& value) override { values.insert(key, value); }
    void remove(const QString& key) override { values.remove(key); }

    QHash<QString, QString> values;
};

}

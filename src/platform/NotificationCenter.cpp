// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/NotificationCenter.h"

namespace zumeta {

void NotificationCenter::observe(const QString& name, QObject* owner, Observer observer)
{
    m_entries.push_back({name, owner, std::move(observer)});
}

void NotificationCenter::post(const QString& name, const QVariantMap& userInfo)
{
    std::erase_if(m_entries, [](const Entry& entry) { return entry.owner.isNull(); });
    std::vector<Entry> called;
    for (const Entry& entry : m_entries) {
        if (entry.name == name)
            called.push_back(entry);
    }
    for (const Entry& entry : called) {
        // An observer before may have ended this one's owner.
        if (entry.owner)
            entry.observer(userInfo);
    }
}

}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/FileAccess.h"

#include <algorithm>
#include <system_error>

namespace zumeta {

bool OpenFileAccess::startAccessing(const FileUrl& url)
{
    try {
        m_held.push_back({url, openForReading(url)});
        return true;
    } catch (const std::system_error&) {
        return false;
    }
}

void OpenFileAccess::stopAccessing(const FileUrl& url)
{
    const auto held = std::find_if(m_held.begin(), m_held.end(), [&](const Held& entry) { return entry.url == url; });
    if (held != m_held.end())
        m_held.erase(held);
}

}

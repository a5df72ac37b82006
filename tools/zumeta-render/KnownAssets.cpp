// SPDX-License-Identifier: GPL-3.0-or-later
#include "zumeta-render/KnownAssets.h"

namespace zumeta {

MediaAsset KnownAssets::load(const FileUrl& url, const std::stop_token& stop)
{
    {
        const std::scoped_lock lock(m_mutex);
        if (const auto known = m_assets.find(url.path()); known != m_assets.end())
            return known->second;
    }
    // Without the lock: a slow file must not keep the others waiting.
    MediaAsset asset = MediaAsset::load(url, stop);
    const std::scoped_lock lock(m_mutex);
    return m_assets.emplace(url.path(), std::move(asset)).first->second;
}

}

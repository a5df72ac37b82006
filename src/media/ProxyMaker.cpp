// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/ProxyMaker.h"

namespace zumeta {

const ProxyConfig& ProxyConfig::defaultConfig()
{
    static const ProxyConfig config{QStringLiteral("AVAssetExportPreset1280x720"), 1280, QStringLiteral("mp4")};
    return config;
}

}

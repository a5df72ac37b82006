// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/ProxyMaker.h"

namespace zumeta {

ProxyError ProxyError::exportSessionCreationFailed()
{
    return {Kind::exportSessionCreationFailed, QStringLiteral("Failed to create export session")};
}

ProxyError ProxyError::exportFailed(const QString& reason)
{
    return {Kind::exportFailed, reason.isEmpty() ? QStringLiteral("Export failed") : reason};
}

ProxyError ProxyError::exportCancelled()
{
    return {Kind::exportCancelled, QStringLiteral("Export was cancelled")};
}

ProxyError ProxyError::unexpectedExportStatus(int status)
{
    return {Kind::unexpectedExportStatus, QStringLiteral("Unexpected export status: %1").arg(status)};
}

ProxyError ProxyError::fileKeyFailed(const QString& reason)
{
    return {Kind::fileKeyFailed, reason};
}

const ProxyConfig& ProxyConfig::defaultConfig()
{
    static const ProxyConfig config{QStringLiteral("AVAssetExportPreset1280x720"), 1280, QStringLiteral("mp4")};
    return config;
}

}

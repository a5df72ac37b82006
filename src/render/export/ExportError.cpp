// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/export/ExportError.h"

namespace zumeta {

ExportError::ExportError(Case reason, QString payload)
    : m_case(reason)
    , m_payload(std::move(payload))
{
    m_what = errorDescription().toUtf8();
}

QString ExportError::errorDescription() const
{
    switch (m_case) {
    case Case::exportSessionFailed:
        return QStringLiteral("Export failed: ") + m_payload;
    case Case::assetWriterFailed:
        return QStringLiteral("Asset writer failed: ") + m_payload;
    case Case::outputURLAlreadyExists:
        return QStringLiteral("Output file already exists");
    case Case::exportCancelled:
        return QStringLiteral("Export was cancelled");
    case Case::missingVideoTrack:
        return QStringLiteral("Missing video track in source");
    case Case::passedOn:
        return m_payload;
    case Case::unknown:
        break;
    }
    return QStringLiteral("Unknown export error");
}

}

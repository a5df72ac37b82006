// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/BundleInfo.h"

namespace zumeta {

const BundleInfo& BundleInfo::main()
{
    static const BundleInfo info =
        fromValues(QStringLiteral(ZUMETA_SHORT_VERSION), QStringLiteral(ZUMETA_BUILD_NUMBER));
    return info;
}

BundleInfo BundleInfo::fromValues(const QString& shortVersion, const QString& buildNumber)
{
    BundleInfo info;
    if (!shortVersion.isEmpty())
        info.shortVersion = shortVersion;
    if (!buildNumber.isEmpty())
        info.buildNumber = buildNumber;
    return info;
}

}

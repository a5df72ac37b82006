// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/BundleInfo.h"

namespace zumeta {

const BundleInfo& BundleInfo::main()
{
    static const BundleInfo info =
        fromValues(QStringLiteral(ZUMETA_SHORT_VERSION), QStringLiteral(ZUMETA_BUILD_NUMBER),
                   {{QStringLiteral("ZumetaTermsURL"), QStringLiteral(ZUMETA_TERMS_URL)},
                    {QStringLiteral("ZumetaPrivacyURL"), QStringLiteral(ZUMETA_PRIVACY_URL)},
                    {QStringLiteral("ZumetaSupportURL"), QStringLiteral(ZUMETA_SUPPORT_URL)},
                    {QStringLiteral("SUFeedURL"), QStringLiteral(ZUMETA_UPDATE_FEED_URL)},
                    {QStringLiteral("SUPublicEDKey"), QStringLiteral(ZUMETA_UPDATE_PUBLIC_KEY)}});
    return info;
}

BundleInfo BundleInfo::fromValues(const QString& shortVersion, const QString& buildNumber,
                                  const QMap<QString, QString>& settings)
{
    BundleInfo info;
    if (!shortVersion.isEmpty())
        info.shortVersion = shortVersion;
    if (!buildNumber.isEmpty())
        info.buildNumber = buildNumber;
    for (auto setting = settings.begin(); setting != settings.end(); ++setting) {
        if (!setting.value().isEmpty())
            info.settings.insert(setting.key(), setting.value());
    }
    return info;
}

}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/BundleInfo.h"

#include "platform/BuildFacts.h"

namespace zumeta {

const BundleInfo& BundleInfo::main()
{
    static const BundleInfo info =
        fromValues(QString::fromUtf8(build::kVersion), QString::fromUtf8(build::kNumber),
                   {{QStringLiteral("ZumetaBuildDate"), QString::fromUtf8(build::kDate)},
                    {QStringLiteral("ZumetaTermsURL"), QString::fromUtf8(build::kTermsUrl)},
                    {QStringLiteral("ZumetaPrivacyURL"), QString::fromUtf8(build::kPrivacyUrl)},
                    {QStringLiteral("ZumetaSupportURL"), QString::fromUtf8(build::kSupportUrl)},
                    {QStringLiteral("SUFeedURL"), QString::fromUtf8(build::kUpdateFeedUrl)},
                    {QStringLiteral("SUPublicEDKey"), QString::fromUtf8(build::kUpdatePublicKey)}});
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

// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/LegalLinks.h"

#include "platform/BuildFacts.h"
#include "platform/BundleInfo.h"

namespace zumeta {

namespace {

QUrl pageOfTheSite(const char* name)
{
    return QUrl(QString::fromUtf8(build::kSite) + QLatin1Char('/') + QLatin1String(name));
}

}

LegalLinks LegalLinks::configuredIn(const BundleInfo& bundle)
{
    return {configuredURL(bundle, QStringLiteral("ZumetaTermsURL"), pageOfTheSite("terms")),
            configuredURL(bundle, QStringLiteral("ZumetaPrivacyURL"), pageOfTheSite("privacy")),
            configuredURL(bundle, QStringLiteral("ZumetaSupportURL"), pageOfTheSite("support"))};
}

QUrl configuredURL(const BundleInfo& bundle, const QString& key, const QUrl& fallback)
{
    const QUrl configured(bundle.settings.value(key), QUrl::StrictMode);
    return configured.isValid() && !configured.isRelative() ? configured : fallback;
}

}

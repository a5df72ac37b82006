// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QUrl>

namespace zumeta {
struct BundleInfo;

/// The pages that the help menu opens.
struct LegalLinks {
    QUrl terms;
    QUrl privacy;
    QUrl support;

    /// Each as the build was configured, or the site's own page.
    static LegalLinks configuredIn(const BundleInfo& bundle);
};

/// The page under this key. A value that is missing, or that no browser could open, gives the fallback.
QUrl configuredURL(const BundleInfo& bundle, const QString& key, const QUrl& fallback);

}

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QMap>
#include <QString>
#include <optional>

namespace zumeta {

/// What the build says about itself. A key that the build left empty is absent, and its reader decides what to show.
struct BundleInfo {
    std::optional<QString> shortVersion; ///< such as "1.2.0"
    std::optional<QString> buildNumber;
    /// What else was set for this deployment, by its key.
    QMap<QString, QString> settings;

    static const BundleInfo& main();
    static BundleInfo fromValues(const QString& shortVersion, const QString& buildNumber,
                                 const QMap<QString, QString>& settings = {});

    friend bool operator==(const BundleInfo&, const BundleInfo&) = default;
};

}

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/updates/BoundedDownload.h"
#include "platform/updates/UpdateAnswer.h"

#include <QTimer>
#include <memory>

namespace zumeta {
struct BundleInfo;

/// Asks whether there is a newer release: it fetches the feed and its signature, and nothing else. It asks when it is
/// told to, and never by itself. Main thread; nothing waits.
class UpdateService final : public QObject {
    Q_OBJECT
public:
    /// Whether this build has a feed and a key to believe it by. Without either there is nobody to ask.
    static bool isConfigured(const BundleInfo& bundle);

    /// Of a build that is configured.
    explicit UpdateService(const BundleInfo& bundle, const FetchLimits& limits = {});
    ~UpdateService() override;

    /// False while it is asking.
    bool canCheckForUpdates() const { return !m_run; }
    /// One question at a time; another one does nothing.
    void checkForUpdates();
    const QString& runningVersion() const { return m_runningVersion; }

Q_SIGNALS:
    void canCheckForUpdatesChanged();
    /// In a later turn than that of the question. Why there is no answer has been logged.
    void answered(const zumeta::UpdateAnswer& answer);

private:
    struct Run;
    void takeResults();
    void end(const UpdateAnswer& answer);

    QUrl m_feed;
    QString m_publicKey;
    QString m_runningVersion;
    FetchLimits m_limits;
    QTimer m_time;
    std::unique_ptr<Run> m_run; ///< while it is asking
};

}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/updates/UpdateService.h"

#include "platform/BundleInfo.h"
#include "platform/Log.h"

#include <QNetworkAccessManager>

namespace zumeta {

namespace {

const QString kFeed = QStringLiteral("SUFeedURL");
const QString kPublicKey = QStringLiteral("SUPublicEDKey");

}

/// Its connections are its own and end with it.
struct UpdateService::Run {
    explicit Run(const FetchLimits& limits)
        : feed(network, limits)
        , signature(network, limits)
    {}

    QNetworkAccessManager network;
    BoundedDownload feed;
    BoundedDownload signature;
};

bool UpdateService::isConfigured(const BundleInfo& bundle)
{
    return bundle.settings.contains(kFeed) && bundle.settings.contains(kPublicKey);
}

UpdateService::UpdateService(const BundleInfo& bundle, const FetchLimits& limits)
    : m_feed(bundle.settings.value(kFeed), QUrl::StrictMode)
    , m_publicKey(bundle.settings.value(kPublicKey))
    , m_runningVersion(bundle.shortVersion.value_or(QString()))
    , m_limits(limits)
{
    m_time.setSingleShot(true);
    connect(&m_time, &QTimer::timeout, this, [this] { end(UpdateProblem{UpdateProblem::Kind::tooSlow}); });
}

UpdateService::~UpdateService() = default;

void UpdateService::checkForUpdates()
{
    if (m_run)
        return;
    m_run = std::make_unique<Run>(m_limits);
    // Queued, because the downloads go with the end of the run and must not be at work then.
    for (BoundedDownload* const download : {&m_run->feed, &m_run->signature})
        connect(download, &BoundedDownload::finished, this, &UpdateService::takeResults, Qt::QueuedConnection);
    m_time.start(m_limits.whole);
    Q_EMIT canCheckForUpdatesChanged();
    m_run->feed.start(m_feed);
    m_run->signature.start(signatureAddress(m_feed));
}

void UpdateService::takeResults()
{
    if (!m_run) // the other file was the end of it
        return;
    for (const BoundedDownload* const download : {&m_run->feed, &m_run->signature}) {
        if (!download->result())
            continue;
        if (const auto* const problem = std::get_if<UpdateProblem>(&*download->result()))
            return end(UpdateProblem(*problem));
    }
    if (!m_run->feed.result() || !m_run->signature.result())
        return;
    end(updateAnswer(std::get<QByteArray>(*m_run->feed.result()), std::get<QByteArray>(*m_run->signature.result()),
                     m_publicKey, m_runningVersion));
}

void UpdateService::end(const UpdateAnswer& answer)
{
    m_time.stop();
    m_run.reset();
    if (const auto* const problem = std::get_if<UpdateProblem>(&answer))
        logLine(logText(*problem));
    Q_EMIT canCheckForUpdatesChanged();
    Q_EMIT answered(answer);
}

}

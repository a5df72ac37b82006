// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/updates/FeedAddress.h"
#include "platform/updates/UpdateProblem.h"

#include <QByteArray>
#include <QObject>
#include <chrono>
#include <optional>
#include <variant>

class QNetworkAccessManager;
class QNetworkReply;

namespace zumeta {

/// What a check may take of time and memory, and where it may go.
struct FetchLimits {
    qint64 bytes = 64 * 1024;                ///< of each file
    int redirects = 3;                       ///< of each file
    std::chrono::milliseconds whole{10'000}; ///< from the question to its answer
    FeedSchemes schemes = FeedSchemes::httpsOnly;
};

/// One small file from a server that may be anybody: never more than the limit is held, and every address is looked at
/// before it is gone to. Main thread; nothing waits. Time is its owner's matter: going away ends it.
class BoundedDownload final : public QObject {
    Q_OBJECT
public:
    using Result = std::variant<QByteArray, UpdateProblem>;

    /// The manager must outlive it.
    BoundedDownload(QNetworkAccessManager& manager, const FetchLimits& limits);
    ~BoundedDownload() override;

    void start(const QUrl& address);
    /// Nothing until it is over.
    const std::optional<Result>& result() const { return m_result; }

Q_SIGNALS:
    void finished();

private:
    void get(const QUrl& address);
    void take();
    void finish();
    void follow(const QUrl& target);
    void end(Result result);
    void dropReply();

    QNetworkAccessManager& m_manager;
    FetchLimits m_limits;
    QNetworkReply* m_reply = nullptr; ///< the manager's, until it is dropped
    QByteArray m_bytes;
    int m_redirects = 0;
    std::optional<Result> m_result;
};

}

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/ProxyMaker.h"
#include "platform/MainQueue.h"

#include <QObject>
#include <array>
#include <cstdint>
#include <memory>

namespace zumeta {

/// Where the proxy of one side stands.
struct ProxyStatus {
    enum class Kind { generating, failed, none, completed };
    Kind kind = Kind::none;
    double progress = 0; ///< 0 to 1 while generating, otherwise 0
    QString error;       ///< the text of a failure, otherwise empty

    static ProxyStatus generating(double progress) { return {Kind::generating, progress, {}}; }
    static ProxyStatus failed(const QString& error) { return {Kind::failed, 0, error}; }
    static ProxyStatus completed() { return {Kind::completed, 0, {}}; }

    friend bool operator==(const ProxyStatus&, const ProxyStatus&) = default;
};

/// The session's view of the proxies: one status for each side. Main thread.
class ProxyService final : public QObject {
    Q_OBJECT
public:
    using Completed = std::function<void(const FileUrl& proxyURL)>;

    /// Both must outlive the service.
    ProxyService(ProxyMaker& generator, MainQueue& queue);
    ~ProxyService() override;

    const ProxyStatus& aboveVideoStatus() const { return m_sides[0].status; }
    const ProxyStatus& belowVideoStatus() const { return m_sides[1].status; }
    void setAboveVideoStatus(const ProxyStatus& status);
    void setBelowVideoStatus(const ProxyStatus& status);

    /// The status is generating(0) when the call returns; the work starts in a later turn. `onCompleted` may be empty.
    void generateProxyForAboveVideo(FileUrl url, Completed onCompleted);
    void generateProxyForBelowVideo(FileUrl url, Completed onCompleted);

Q_SIGNALS:
    void aboveVideoStatusChanged();
    void belowVideoStatusChanged();

private:
    struct Side {
        ProxyStatus status;
        uint64_t request = 0; ///< the newest one
    };
    enum SideIndex : size_t { above, below };

    void setStatus(SideIndex side, const ProxyStatus& status);
    void generate(SideIndex side, FileUrl url, Completed onCompleted);
    Task<> run(SideIndex side, uint64_t request, FileUrl url, Completed onCompleted);
    void showProgress(SideIndex side, uint64_t request, double progress);

    ProxyMaker& m_generator;
    MainQueue& m_queue;
    std::array<Side, 2> m_sides;
};

}

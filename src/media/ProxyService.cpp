// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/ProxyService.h"

#include <QPointer>

namespace zumeta {

ProxyService::ProxyService(ProxyMaker& generator, MainQueue& queue)
    : m_generator(generator)
    , m_queue(queue)
{}

ProxyService::~ProxyService() = default;

void ProxyService::setAboveVideoStatus(const ProxyStatus& status)
{
    setStatus(above, status);
}

void ProxyService::setBelowVideoStatus(const ProxyStatus& status)
{
    setStatus(below, status);
}

void ProxyService::setStatus(SideIndex side, const ProxyStatus& status)
{
    m_sides[side].status = status;
    if (side == above)
        Q_EMIT aboveVideoStatusChanged();
    else
        Q_EMIT belowVideoStatusChanged();
}

void ProxyService::generateProxyForAboveVideo(FileUrl url, Completed onCompleted)
{
    generate(above, std::move(url), std::move(onCompleted));
}

void ProxyService::generateProxyForBelowVideo(FileUrl url, Completed onCompleted)
{
    generate(below, std::move(url), std::move(onCompleted));
}

void ProxyService::generate(SideIndex side, FileUrl url, Completed onCompleted)
{
    const uint64_t request = ++m_sides[side].request;
    setStatus(side, ProxyStatus::generating(0));
    m_queue.post([self = QPointer(this), side, request, url = std::move(url), onCompleted = std::move(onCompleted)] {
        if (self)
            self->run(side, request, url, onCompleted);
    });
}

Task<> ProxyService::run(SideIndex side, uint64_t request, FileUrl url, Completed onCompleted)
{
    const QPointer<ProxyService> self(this);
    ProxyMaker::Progress progress = [self, side, request, &queue = m_queue](double fraction) {
        queue.post([self, side, request, fraction] {
            if (self)
                self->showProgress(side, request, fraction);
        });
    };
    const ProxyOutcome outcome =
        co_await m_generator.generateProxy(url, ProxyConfig::defaultConfig(), std::move(progress));
    if (!self)
        co_return;
    // A newer request of the side owns its status; whoever asked for this proxy still hears of it.
    const bool ownsStatus = m_sides[side].request == request;
    if (const ProxyError* const error = std::get_if<ProxyError>(&outcome)) {
        if (ownsStatus)
            setStatus(side, ProxyStatus::failed(error->description));
        co_return;
    }
    if (ownsStatus)
        setStatus(side, ProxyStatus::completed());
    if (onCompleted)
        onCompleted(std::get<FileUrl>(outcome));
}

void ProxyService::showProgress(SideIndex side, uint64_t request, double progress)
{
    // Progress that was still on its way when the work ended, or when the side was cleared, says nothing any more.
    const Side& current = m_sides[side];
    if (current.request == request && current.status.kind == ProxyStatus::Kind::generating)
        setStatus(side, ProxyStatus::generating(progress));
}

}

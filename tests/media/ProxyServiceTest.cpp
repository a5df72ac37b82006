// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/ProxyService.h"
#include "support/VirtualTime.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>

namespace zumeta::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const FileUrl kSource("/pool/above.mp4");
const FileUrl kOtherSource("/pool/other.mp4");
const FileUrl kProxy("/proxies/key.mp4");

/// Ends each request when its test says so.
class RequestedProxies final : public ProxyMaker {
public:
    struct Request {
        FileUrl url;
        ProxyConfig config;
        Progress progress;
        std::optional<ProxyOutcome> outcome;
    };

    explicit RequestedProxies(VirtualTime& time)
        : m_time(time)
    {}

    Task<ProxyOutcome> generateProxy(FileUrl url, ProxyConfig config, Progress progress) override
    {
        const auto request = std::make_shared<Request>(Request{url, config, std::move(progress), std::nullopt});
        requests.push_back(request);
        while (!request->outcome)
            co_await m_time.pass(0.01);
        co_return *request->outcome;
    }

    std::vector<std::shared_ptr<Request>> requests;

private:
    VirtualTime& m_time;
};

class ProxyServices : public testing::Test {
protected:
    ProxyServices() { connectTo(*m_service); }
    ~ProxyServices() override
    {
        // Nothing may wait for ever, nor reach the maker when it has gone.
        m_time.runDueWork();
        for (const auto& request : m_maker.requests)
            request->outcome = request->outcome.value_or(ProxyError::exportCancelled());
        m_time.advance(1);
    }

    void connectTo(ProxyService& service)
    {
        QObject::connect(&service, &ProxyService::aboveVideoStatusChanged, &service,
                         [this, &service] { m_above.push_back(service.aboveVideoStatus()); });
        QObject::connect(&service, &ProxyService::belowVideoStatusChanged, &service,
                         [this, &service] { m_below.push_back(service.belowVideoStatus()); });
    }

    void requestAbove(const FileUrl& url = kSource)
    {
        m_service->generateProxyForAboveVideo(url, [this](const FileUrl& proxy) { m_completed.push_back(proxy); });
    }
    void end(size_t request, const ProxyOutcome& outcome)
    {
        m_maker.requests.at(request)->outcome = outcome;
        m_time.advance(0.02);
    }
    void progress(size_t request, double fraction)
    {
        m_maker.requests.at(request)->progress(fraction);
        m_time.runDueWork();
    }

    VirtualTime m_time;
    RequestedProxies m_maker{m_time};
    std::unique_ptr<ProxyService> m_service = std::make_unique<ProxyService>(m_maker, m_time);
    std::vector<ProxyStatus> m_above;
    std::vector<ProxyStatus> m_below;
    std::vector<FileUrl> m_completed;
};

}

TEST_F(ProxyServices, BeginWithNothingRequested)
{
    EXPECT_EQ(m_service->aboveVideoStatus(), ProxyStatus());
    EXPECT_EQ(m_service->belowVideoStatus().kind, ProxyStatus::Kind::none);
}

TEST_F(ProxyServices, SayGeneratingBeforeTheRequestReturns)
{
    requestAbove();
    EXPECT_EQ(m_service->aboveVideoStatus(), ProxyStatus::generating(0));
    EXPECT_THAT(m_maker.requests, IsEmpty());
}

TEST_F(ProxyServices, AskForTheDefaultProxyOfTheFileInALaterTurn)
{
    requestAbove();
    m_time.runDueWork();
    ASSERT_EQ(m_maker.requests.size(), 1u);
    EXPECT_EQ(m_maker.requests[0]->url, kSource);
    EXPECT_EQ(m_maker.requests[0]->config.presetName, QStringLiteral("AVAssetExportPreset1280x720"));
    EXPECT_EQ(m_maker.requests[0]->config.size, 1280);
    EXPECT_EQ(m_maker.requests[0]->config.fileExtension, QStringLiteral("mp4"));
}

TEST_F(ProxyServices, GoStraightFromGeneratingToCompletedWhenTheProxyIsFound)
{
    requestAbove();
    m_time.runDueWork();
    end(0, kProxy);
    EXPECT_THAT(m_above, ElementsAre(ProxyStatus::generating(0), ProxyStatus::completed()));
    EXPECT_THAT(m_completed, ElementsAre(kProxy));
}

TEST_F(ProxyServices, ShowProgressWhileTheProxyIsMade)
{
    requestAbove();
    m_time.runDueWork();
    progress(0, 0.25);
    progress(0, 0.5);
    end(0, kProxy);
    EXPECT_THAT(m_above, ElementsAre(ProxyStatus::generating(0), ProxyStatus::generating(0.25),
                                     ProxyStatus::generating(0.5), ProxyStatus::completed()));
}

TEST_F(ProxyServices, ShowProgressInATurnOfItsOwn)
{
    requestAbove();
    m_time.runDueWork();
    m_maker.requests[0]->progress(0.5);
    EXPECT_EQ(m_service->aboveVideoStatus(), ProxyStatus::generating(0));
}

TEST_F(ProxyServices, AreCompletedBeforeTheyTellIt)
{
    ProxyStatus atTheCall;
    m_service->generateProxyForBelowVideo(kSource, [&](const FileUrl&) { atTheCall = m_service->belowVideoStatus(); });
    m_time.runDueWork();
    end(0, kProxy);
    EXPECT_EQ(atTheCall, ProxyStatus::completed());
}

TEST_F(ProxyServices, ShowTheTextOfAFailureAndTellNobodyElse)
{
    requestAbove();
    m_time.runDueWork();
    end(0, ProxyError::exportFailed(QStringLiteral("No space left on device")));
    EXPECT_EQ(m_service->aboveVideoStatus(), ProxyStatus::failed(QStringLiteral("No space left on device")));
    EXPECT_THAT(m_completed, IsEmpty());
}

TEST_F(ProxyServices, NeedNobodyWhoWantsToHearOfTheEnd)
{
    m_service->generateProxyForAboveVideo(kSource, {});
    m_time.runDueWork();
    end(0, kProxy);
    EXPECT_EQ(m_service->aboveVideoStatus(), ProxyStatus::completed());
}

TEST_F(ProxyServices, KeepTheSidesApart)
{
    requestAbove();
    m_service->generateProxyForBelowVideo(kOtherSource, {});
    m_time.runDueWork();
    progress(1, 0.75);
    end(0, kProxy);
    EXPECT_EQ(m_service->aboveVideoStatus(), ProxyStatus::completed());
    EXPECT_EQ(m_service->belowVideoStatus(), ProxyStatus::generating(0.75));
}

TEST_F(ProxyServices, LetNoLateProgressTurnAFinishedStatusBack)
{
    requestAbove();
    m_time.runDueWork();
    end(0, kProxy);
    progress(0, 0.99);
    EXPECT_EQ(m_service->aboveVideoStatus(), ProxyStatus::completed());
}

TEST_F(ProxyServices, LetNoLateProgressTurnAFailedStatusBack)
{
    requestAbove();
    m_time.runDueWork();
    end(0, ProxyError::exportFailed());
    progress(0, 0.99);
    EXPECT_EQ(m_service->aboveVideoStatus(), ProxyStatus::failed(QStringLiteral("Export failed")));
}

TEST_F(ProxyServices, LetNoProgressTurnAClearedStatusBack)
{
    requestAbove();
    m_time.runDueWork();
    m_service->setAboveVideoStatus(ProxyStatus());
    progress(0, 0.5);
    EXPECT_EQ(m_service->aboveVideoStatus(), ProxyStatus());
}

TEST_F(ProxyServices, MoveAClearedSideToCompletedWhenItsProxyIsDone)
{
    requestAbove();
    m_time.runDueWork();
    m_service->setAboveVideoStatus(ProxyStatus());
    end(0, kProxy);
    EXPECT_EQ(m_service->aboveVideoStatus(), ProxyStatus::completed());
    EXPECT_THAT(m_completed, ElementsAre(kProxy));
}

TEST_F(ProxyServices, MoveAClearedSideToFailedWhenItsProxyFails)
{
    m_service->generateProxyForBelowVideo(kSource, {});
    m_time.runDueWork();
    m_service->setBelowVideoStatus(ProxyStatus());
    end(0, ProxyError::exportCancelled());
    EXPECT_EQ(m_service->belowVideoStatus(), ProxyStatus::failed(QStringLiteral("Export was cancelled")));
}

TEST_F(ProxyServices, LeaveTheStatusToTheNewestRequestOfASide)
{
    requestAbove();
    requestAbove(kOtherSource);
    m_time.runDueWork();
    progress(1, 0.25);
    progress(0, 0.75);
    end(0, kProxy);
    EXPECT_EQ(m_service->aboveVideoStatus(), ProxyStatus::generating(0.25));
    EXPECT_THAT(m_completed, ElementsAre(kProxy));
}

TEST_F(ProxyServices, LetNoOlderFailureReachTheNewerRequestsStatus)
{
    requestAbove();
    requestAbove(kOtherSource);
    m_time.runDueWork();
    end(1, kProxy);
    end(0, ProxyError::exportFailed());
    EXPECT_EQ(m_service->aboveVideoStatus(), ProxyStatus::completed());
}

TEST_F(ProxyServices, MayGoWhileTheirProxiesAreStillMade)
{
    requestAbove();
    m_time.runDueWork();
    const auto request = m_maker.requests[0];
    m_service.reset();
    request->progress(0.5);
    end(0, kProxy);
    EXPECT_THAT(m_completed, IsEmpty());
    EXPECT_THAT(m_above, ElementsAre(ProxyStatus::generating(0)));
}

TEST_F(ProxyServices, MayGoBeforeTheirRequestsBegin)
{
    requestAbove();
    m_service.reset();
    m_time.runDueWork();
    EXPECT_THAT(m_maker.requests, IsEmpty());
}

TEST(ProxyStatuses, AreComparedByCaseAndWhatTheyCarry)
{
    EXPECT_EQ(ProxyStatus::generating(0.5), ProxyStatus::generating(0.5));
    EXPECT_FALSE(ProxyStatus::generating(0.5) == ProxyStatus::generating(0.25));
    EXPECT_FALSE(ProxyStatus::failed(QStringLiteral("full")) == ProxyStatus::failed(QStringLiteral("gone")));
    EXPECT_FALSE(ProxyStatus::generating(0) == ProxyStatus());
    EXPECT_FALSE(ProxyStatus::completed() == ProxyStatus());
}

TEST(ProxyErrors, HaveTheirTexts)
{
    EXPECT_EQ(ProxyError::exportSessionCreationFailed().description, QStringLiteral("Failed to create export session"));
    EXPECT_EQ(ProxyError::exportFailed().description, QStringLiteral("Export failed"));
    EXPECT_EQ(ProxyError::exportFailed(QStringLiteral("the disk is gone")).description,
              QStringLiteral("the disk is gone"));
    EXPECT_EQ(ProxyError::exportCancelled().description, QStringLiteral("Export was cancelled"));
    EXPECT_EQ(ProxyError::unexpectedExportStatus(2).description, QStringLiteral("Unexpected export status: 2"));
}

}

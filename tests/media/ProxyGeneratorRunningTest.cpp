// SPDX-License-Identifier: GPL-3.0-or-later
// What happens while proxies are being made.
#include "Proxies.h"
#include "support/VirtualTime.h"

#include <QCoreApplication>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zumeta::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::UnorderedElementsAre;

class RunningGenerators : public ProxyFolder {
protected:
    /// Exports stop where they begin to write, until the gate is opened.
    void hold()
    {
        exports.writing = [this](const FileUrl& output) {
            gate.wait();
            fill(output, "a proxy");
        };
    }
    bool isWriting(int count = 1)
    {
        return eventually([this, count] { return gate.waiting() == count; });
    }

    ExportGate gate;
};

}

TEST_F(RunningGenerators, LetASecondRequestForTheSameKeyWaitForTheFirst)
{
    hold();
    const FileUrl source = write("swim.mp4", "a recording");
    const FileUrl copy = write("copy.mp4", "a recording");
    ProxyGenerator generator(queue, proxies(), exports.opener());
    const PendingRequest first(generator, source);
    ASSERT_TRUE(isWriting());
    const PendingRequest second(generator, copy);
    const PendingRequest third(generator, source);
    gate.open();
    EXPECT_EQ(first.outcome(), ProxyOutcome(proxyOf(source)));
    EXPECT_EQ(second.outcome(), ProxyOutcome(proxyOf(source)));
    EXPECT_EQ(third.outcome(), ProxyOutcome(proxyOf(source)));
    EXPECT_EQ(exports.opened(), 1);
}

TEST_F(RunningGenerators, GiveAFailureToEverybodyWhoWaits)
{
    exports.writing = [this](const FileUrl&) {
        gate.wait();
        throw MovieError(MovieError::Kind::cannotWrite, "the disk is gone");
    };
    const FileUrl source = write("swim.mp4", "a recording");
    ProxyGenerator generator(queue, proxies(), exports.opener());
    const PendingRequest first(generator, source);
    const PendingRequest second(generator, source);
    ASSERT_TRUE(isWriting());
    gate.open();
    const ProxyOutcome failure = ProxyError::exportFailed(QStringLiteral("the disk is gone"));
    EXPECT_EQ(first.outcome(), failure);
    EXPECT_EQ(second.outcome(), failure);
}

TEST_F(RunningGenerators, MakeTheProxiesOfBothSidesAtOnce)
{
    hold();
    ProxyGenerator generator(queue, proxies(), exports.opener());
    const PendingRequest above(generator, write("above.mp4", "above"));
    const PendingRequest below(generator, write("below.mp4", "below"));
    EXPECT_TRUE(isWriting(2));
    gate.open();
    EXPECT_TRUE(std::holds_alternative<FileUrl>(above.outcome()));
    EXPECT_TRUE(std::holds_alternative<FileUrl>(below.outcome()));
}

TEST_F(RunningGenerators, FindAProxyWhileAnotherIsMade)
{
    const FileUrl found = write("above.mp4", "above");
    ProxyGenerator generator(queue, proxies(), exports.opener());
    request(generator, found);
    hold();
    const PendingRequest running(generator, write("below.mp4", "below"));
    ASSERT_TRUE(isWriting());
    EXPECT_EQ(request(generator, found), ProxyOutcome(proxyOf(found)));
    EXPECT_FALSE(running.hasEnded());
    gate.open();
    running.outcome();
}

TEST_F(RunningGenerators, NameTheSourcesWhoseExportsRun)
{
    hold();
    const FileUrl above = write("above.mp4", "above");
    const FileUrl below = write("below.mp4", "below");
    ProxyGenerator generator(queue, proxies(), exports.opener());
    EXPECT_THAT(generator.activeSessions(), IsEmpty());
    const PendingRequest first(generator, above);
    const PendingRequest second(generator, below);
    ASSERT_TRUE(isWriting(2));
    EXPECT_THAT(generator.activeSessions(), UnorderedElementsAre(above, below));
    gate.open();
    first.outcome();
    second.outcome();
    EXPECT_THAT(generator.activeSessions(), IsEmpty());
}

TEST_F(RunningGenerators, ShareTheCoresAmongTheirExports)
{
    hold();
    std::mutex mutex;
    std::vector<int> threads;
    const ProxyExportOpener opener = [&, open = exports.opener()](const FileUrl& source, int count,
                                                                  std::stop_token stop) {
        const std::lock_guard lock(mutex);
        threads.push_back(count);
        return open(source, count, std::move(stop));
    };
    ProxyGenerator generator(queue, proxies(), opener);
    const PendingRequest first(generator, write("above.mp4", "above"));
    ASSERT_TRUE(isWriting());
    const PendingRequest second(generator, write("below.mp4", "below"));
    ASSERT_TRUE(isWriting(2));
    const int cores = std::max(1, int(std::thread::hardware_concurrency()));
    EXPECT_THAT(threads, ElementsAre(cores, std::max(1, cores / 2)));
    gate.open();
    first.outcome();
    second.outcome();
}

TEST_F(RunningGenerators, TellProgressAtOnceAndEveryTenthOfASecondUntilTheEnd)
{
    hold();
    exports.fractions = {0.25};
    VirtualTime time;
    std::vector<double> told;
    ProxyGenerator generator(time, proxies(), exports.opener());
    const PendingRequest pending(generator, write("swim.mp4", "a recording"),
                                 [&](double fraction) { told.push_back(fraction); });
    ASSERT_TRUE(isWriting());
    ASSERT_THAT(told, SizeIs(1));
    time.advance(0.099);
    EXPECT_THAT(told, SizeIs(1));
    time.advance(0.002);
    EXPECT_THAT(told, SizeIs(2));
    EXPECT_EQ(told.back(), 0.25);
    time.advance(0.2);
    EXPECT_THAT(told, SizeIs(4));
    gate.open();
    pending.outcome();
    time.advance(10);
    EXPECT_THAT(told, SizeIs(4));
}

TEST_F(RunningGenerators, TellTheirProgressToTheSecondRequestToo)
{
    hold();
    exports.fractions = {0.5};
    VirtualTime time;
    std::vector<double> told;
    const FileUrl source = write("swim.mp4", "a recording");
    ProxyGenerator generator(time, proxies(), exports.opener());
    const PendingRequest first(generator, source);
    ASSERT_TRUE(isWriting());
    const PendingRequest second(generator, source, [&](double fraction) { told.push_back(fraction); });
    ASSERT_TRUE(eventually([&] {
        time.advance(0.1);
        return !told.empty();
    }));
    EXPECT_EQ(told.front(), 0.5);
    gate.open();
    first.outcome();
    second.outcome();
}

TEST_F(RunningGenerators, ToldToGoStopTheirExportsAndLeaveNothing)
{
    const ProxyExportOpener opener = [this](const FileUrl&, int, std::stop_token stop) -> ProxyExport {
        return [this, stop](const FileUrl& output, const std::function<void(double)>&) {
            fill(output, "half a proxy");
            const std::stop_callback wake(stop, [this] { gate.open(); });
            gate.wait();
            throw MovieError(MovieError::Kind::cancelled, "cancelled");
        };
    };
    auto generator = std::make_unique<ProxyGenerator>(queue, proxies(), opener);
    const FileUrl source = write("swim.mp4", "a recording");
    const PendingRequest first(*generator, source);
    const PendingRequest second(*generator, source);
    ASSERT_TRUE(isWriting());
    generator.reset();
    EXPECT_EQ(gate.waiting(), 0);
    EXPECT_THAT(filesIn(proxies()), IsEmpty());
    EXPECT_THAT(filesIn(unfinished()), IsEmpty());
    EXPECT_EQ(first.outcome(), ProxyOutcome(ProxyError::exportCancelled()));
    EXPECT_EQ(second.outcome(), ProxyOutcome(ProxyError::exportCancelled()));
}

TEST_F(RunningGenerators, ToldToGoAtAnyMomentEndTheRequest)
{
    for (int turns = 0; turns < 20; ++turns) {
        const FileUrl source = write(std::to_string(turns) + ".mp4", "recording " + std::to_string(turns));
        auto generator = std::make_unique<ProxyGenerator>(queue, proxies(), exports.opener());
        const PendingRequest pending(*generator, source);
        for (int i = 0; i < turns; ++i)
            QCoreApplication::processEvents();
        generator.reset();
        const ProxyOutcome outcome = pending.outcome();
        if (std::holds_alternative<FileUrl>(outcome)) {
            EXPECT_TRUE(std::filesystem::exists(proxyOf(source).path()));
        } else {
            EXPECT_EQ(outcome, ProxyOutcome(ProxyError::exportCancelled()));
        }
        EXPECT_THAT(filesIn(unfinished()), IsEmpty());
    }
}

TEST_F(RunningGenerators, GoWithoutAWordWhenAListenerLetsThemGo)
{
    hold();
    auto generator = std::make_unique<ProxyGenerator>(queue, proxies(), exports.opener());
    gate.open();
    const PendingRequest pending(*generator, write("swim.mp4", "a recording"), [&](double) { generator.reset(); });
    ASSERT_TRUE(eventually([&] { return pending.hasEnded(); }));
    EXPECT_EQ(generator, nullptr);
}

}

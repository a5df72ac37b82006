// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/FileAccess.h"
#include "platform/MainQueue.h"
#include "platform/NotificationCenter.h"
#include "support/FileSandbox.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QThread>
#include <gmock/gmock.h>
#include <thread>

namespace zumeta {
namespace {

using test::FileSandbox;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(MainQueue, RunsWorkInALaterTurnInTheOrderOfPosting)
{
    EventLoopQueue queue;
    std::vector<int> ran;
    queue.post([&] {
        queue.post([&] { ran.push_back(3); });
        ran.push_back(1);
    });
    queue.post([&] { ran.push_back(2); });
    EXPECT_THAT(ran, IsEmpty());
    while (ran.size() < 3)
        QCoreApplication::processEvents();
    EXPECT_THAT(ran, ElementsAre(1, 2, 3));
}

TEST(MainQueue, TakesWorkFromAnyThreadAndRunsItOnItsOwn)
{
    EventLoopQueue queue;
    QThread* ranOn = nullptr;
    std::thread([&] { queue.post([&] { ranOn = QThread::currentThread(); }); }).join();
    while (!ranOn)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_EQ(ranOn, QThread::currentThread());
}

TEST(MainQueue, NeverRunsDelayedWorkEarly)
{
    EventLoopQueue queue;
    QElapsedTimer timer;
    timer.start();
    qint64 ranAfter = 0;
    queue.postAfter(0.0205, [&] { ranAfter = timer.nsecsElapsed(); });
    while (ranAfter == 0)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_GE(ranAfter, 20'400'000);
}

TEST(MainQueue, DropsWhatIsStillWaitingWhenItGoes)
{
    bool ran = false;
    {
        EventLoopQueue queue;
        queue.post([&] { ran = true; });
    }
    QCoreApplication::processEvents();
    EXPECT_FALSE(ran);
}

TEST(MainQueue, LetsGoOfWhatWaitingWorkHoldsWhenItGoes)
{
    const auto held = std::make_shared<int>();
    {
        EventLoopQueue queue;
        queue.post([held] {});
        queue.postAfter(100, [held] {});
        EXPECT_EQ(held.use_count(), 3);
    }
    EXPECT_EQ(held.use_count(), 1);
}

TEST(NotificationCenter, CallsTheObserversOfANameBeforeItReturns)
{
    NotificationCenter center;
    QObject owner;
    std::vector<int> frames;
    center.observe(notifications::kStepFrames, &owner,
                   [&](const QVariantMap& info) { frames.push_back(info.value(QStringLiteral("frames")).toInt()); });
    center.observe(notifications::kMarkSyncPoint, &owner, [&](const QVariantMap&) { frames.push_back(-1); });
    center.post(notifications::kStepFrames, {{QStringLiteral("frames"), 10}});
    EXPECT_THAT(frames, ElementsAre(10));
}

TEST(NotificationCenter, AnObserverEndsWithItsOwner)
{
    NotificationCenter center;
    int calls = 0;
    {
        QObject owner;
        center.observe(notifications::kStepFrames, &owner, [&](const QVariantMap&) { ++calls; });
    }
    center.post(notifications::kStepFrames);
    EXPECT_EQ(calls, 0);
}

TEST(NotificationCenter, AnObserverMayEndAnotherOneAndAddOne)
{
    NotificationCenter center;
    QObject first;
    auto second = std::make_unique<QObject>();
    std::vector<int> calls;
    center.observe(notifications::kStepFrames, &first, [&](const QVariantMap&) {
        calls.push_back(1);
        second.reset();
        center.observe(notifications::kStepFrames, &first, [&](const QVariantMap&) { calls.push_back(3); });
    });
    center.observe(notifications::kStepFrames, second.get(), [&](const QVariantMap&) { calls.push_back(2); });
    center.post(notifications::kStepFrames);
    EXPECT_THAT(calls, ElementsAre(1));
}

TEST(FileAccess, IsGivenForAFileThatCanBeReadAndTakesItWithAnyName)
{
    const FileSandbox sandbox;
    const FileUrl file(sandbox.write("swim.mp4", "x"));
    OpenFileAccess access;
    EXPECT_TRUE(access.startAccessing(file));
    access.stopAccessing(file);
}

TEST(FileAccess, IsRefusedForAFileThatIsNotThere)
{
    OpenFileAccess access;
    EXPECT_FALSE(access.startAccessing(FileUrl("/no/such/swim.mp4")));
    access.stopAccessing(FileUrl("/no/such/swim.mp4"));
}

TEST(FileAccess, HoldsTheFileOpenUntilItIsStopped)
{
    const auto openFiles = [] {
        return std::distance(std::filesystem::directory_iterator("/proc/self/fd"),
                             std::filesystem::directory_iterator());
    };
    const FileSandbox sandbox;
    const FileUrl file(sandbox.write("swim.mp4", "x"));
    OpenFileAccess access;
    const auto before = openFiles();
    access.startAccessing(file);
    EXPECT_EQ(openFiles(), before + 1);
    access.stopAccessing(file);
    EXPECT_EQ(openFiles(), before);
}

}
}

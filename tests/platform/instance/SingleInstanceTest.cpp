// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/instance/SingleInstance.h"
#include "support/TemporaryFolder.h"

#include <QElapsedTimer>
#include <QLocalSocket>
#include <QProcess>
#include <QTest>
#include <csignal>
#include <gmock/gmock.h>
#include <sys/file.h>
#include <sys/prctl.h>
#include <thread>

namespace zumeta {
namespace {

using namespace std::chrono_literals;
using Start = SingleInstance::Start;

const QString kName = QStringLiteral("screen");

/// The same program in a process of its own.
class OtherProcess {
public:
    explicit OtherProcess(const test::TemporaryFolder& folder, const QString& token = {})
    {
        m_process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
        m_process.start(QStringLiteral(ONE_INSTANCE), {QString::fromStdString(folder.path().native()), kName, token});
    }
    ~OtherProcess()
    {
        m_process.kill();
        m_process.waitForFinished();
    }
    OtherProcess(const OtherProcess&) = delete; // it stands for one process
    OtherProcess& operator=(const OtherProcess&) = delete;

    bool says(const QByteArray& line)
    {
        return QTest::qWaitFor([&] {
            m_said += m_process.readAllStandardOutput();
            return m_said.contains(line + '\n');
        });
    }
    int exitCode()
    {
        const bool hasEnded = QTest::qWaitFor([&] { return m_process.state() == QProcess::NotRunning; });
        return hasEnded && m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
    }
    void send(int signal) const { ::kill(pid_t(m_process.processId()), signal); }

private:
    QProcess m_process;
    QByteArray m_said;
};

struct Instances : testing::Test {
    test::TemporaryFolder folder;
    SingleInstance instance{path(), kName};

    QString path() const { return QString::fromStdString(folder.path().native()); }
    QString socket() const { return path() + QStringLiteral("/screen.socket"); }
};

TEST_F(Instances, TheFirstHearsOfALaterStart)
{
    ASSERT_EQ(instance.start({}), Start::isFirst);
    QByteArrayList tokens;
    QObject::connect(&instance, &SingleInstance::startedAgain,
                     [&](const QByteArray& token) { tokens.push_back(token); });
    OtherProcess later(folder, QStringLiteral("token-7"));
    EXPECT_TRUE(later.says("served"));
    EXPECT_EQ(later.exitCode(), 0);
    OtherProcess without(folder);
    EXPECT_TRUE(without.says("served"));
    EXPECT_THAT(tokens, testing::ElementsAre("token-7", ""));
}

TEST_F(Instances, ALaterStartIsServedByTheFirst)
{
    OtherProcess first(folder);
    ASSERT_TRUE(first.says("first"));
    EXPECT_EQ(instance.start("abc"), Start::isServed);
    EXPECT_TRUE(first.says("again abc"));
}

TEST_F(Instances, OfOtherScreensDoNotMeet)
{
    ASSERT_EQ(instance.start({}), Start::isFirst);
    SingleInstance other(path(), QStringLiteral("another-screen"));
    EXPECT_EQ(other.start({}, 100ms), Start::isFirst);
}

TEST_F(Instances, OneThatWasKilledLocksNobodyOut)
{
    OtherProcess first(folder);
    ASSERT_TRUE(first.says("first"));
    first.send(SIGKILL);
    EXPECT_EQ(first.exitCode(), -1);
    ASSERT_TRUE(QFile::exists(socket())) << "it could not clear up";
    EXPECT_EQ(instance.start({}, 5s), Start::isFirst);
    OtherProcess later(folder);
    EXPECT_TRUE(later.says("served"));
}

TEST_F(Instances, AfterTheFirstHasEndedTheNextIsTheFirst)
{
    ASSERT_EQ(instance.start({}), Start::isFirst);
    instance.release();
    EXPECT_FALSE(QFile::exists(socket()));
    OtherProcess next(folder);
    EXPECT_TRUE(next.says("first"));
}

TEST_F(Instances, WaitForOneThatIsAboutToEnd)
{
    FileDescriptor ending(::open(folder.file("screen.lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    ASSERT_EQ(::flock(ending.get(), LOCK_EX), 0);
    std::thread soon([&] {
        std::this_thread::sleep_for(200ms);
        ending.close();
    });
    EXPECT_EQ(instance.start({}, 5s), Start::isFirst);
    soon.join();
}

TEST_F(Instances, OneThatHangsKeepsNobodyFromWorking)
{
    OtherProcess first(folder);
    ASSERT_TRUE(first.says("first"));
    first.send(SIGSTOP);
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(instance.start({}, 300ms), Start::goesAlone);
    EXPECT_GE(timer.elapsed(), 290);
    EXPECT_LT(timer.elapsed(), 5000);
    first.send(SIGCONT);
    OtherProcess later(folder);
    EXPECT_TRUE(later.says("served")) << "it took nothing from the first";
}

TEST_F(Instances, WithoutAPlaceForALockEachGoesAlone)
{
    SingleInstance nowhere(path() + QStringLiteral("/not-there"), kName);
    EXPECT_EQ(nowhere.start({}, 100ms), Start::goesAlone);
}

TEST_F(Instances, AreNotDisturbedByOtherTalk)
{
    ASSERT_EQ(instance.start({}), Start::isFirst);
    int starts = 0;
    QObject::connect(&instance, &SingleInstance::startedAgain, [&] { ++starts; });
    for (const QByteArray& talk : {QByteArray("hello\n"), QByteArray("\n"), QByteArray(100000, 'x')}) {
        QLocalSocket caller;
        caller.connectToServer(socket());
        ASSERT_TRUE(caller.waitForConnected(2000));
        caller.write(talk);
        EXPECT_TRUE(QTest::qWaitFor([&] { return caller.state() == QLocalSocket::UnconnectedState; }));
        EXPECT_TRUE(caller.readAll().isEmpty());
    }
    EXPECT_EQ(starts, 0);
    OtherProcess later(folder);
    EXPECT_TRUE(later.says("served"));
    EXPECT_EQ(starts, 1);
}

}
}

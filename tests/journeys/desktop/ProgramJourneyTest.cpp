// SPDX-License-Identifier: GPL-3.0-or-later
// The program as a process among others: started twice, killed, asked to end.
#include "journeys/desktop/DesktopJourney.h"
#include "journeys/desktop/OwnScreen.h"
#include "support/ChildProcess.h"
#include "support/FootageMaker.h"

#include <QElapsedTimer>
#include <QTest>
#include <QWidget>
#include <csignal>

namespace zumeta {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;

class Running {
public:
    explicit Running(const char* program, const QStringList& arguments = {})
    {
        m_isStarted = startBound(m_process, QString::fromUtf8(program), arguments);
    }
    ~Running()
    {
        if (m_process.state() != QProcess::NotRunning)
            stop(m_process);
    }
    Running(const Running&) = delete; // it stands for one process
    Running& operator=(const Running&) = delete;

    bool isRunning() const { return m_isStarted && m_process.state() == QProcess::Running; }
    bool says(const QByteArray& line)
    {
        return QTest::qWaitFor(
            [&] {
                m_said += m_process.readAllStandardOutput();
                return m_said.contains(line + '\n');
            },
            30000);
    }
    void send(int signal) const { ::kill(pid_t(m_process.processId()), signal); }
    /// -1 for one that is killed, or has not ended within ten seconds.
    int exitCode()
    {
        const bool hasEnded = QTest::qWaitFor([&] { return m_process.state() == QProcess::NotRunning; }, 10000);
        return hasEnded && m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
    }

private:
    QProcess m_process;
    bool m_isStarted = false;
    QByteArray m_said;
};

QByteArray xdotool(const std::vector<std::string>& words)
{
    const ProcessResult result = runProcess({"xdotool", words, std::chrono::seconds(10), {}, {}});
    return result.exitCode == 0 ? result.out.trimmed() : QByteArray();
}

struct Program : DesktopJourney {
    TemporaryFolder folder;

    static bool isActive() { return xdotool({"getactivewindow", "getwindowname"}) == "Zumeta"; }
    static QByteArrayList windows()
    {
        const QByteArray found = xdotool({"search", "--onlyvisible", "--name", "^Zumeta$"});
        return found.isEmpty() ? QByteArrayList() : found.split('\n');
    }
    bool isShown()
    {
        return waitFor([] { return isActive(); }, 15000);
    }
    /// Something else on the screen, which has the keyboard.
    std::unique_ptr<QWidget> otherWindow()
    {
        auto other = std::make_unique<QWidget>();
        other->setWindowTitle(QStringLiteral("Other"));
        other->setGeometry(100, 100, 1200, 800);
        other->show();
        other->activateWindow();
        EXPECT_TRUE(waitFor([] { return xdotool({"getactivewindow", "getwindowname"}) == "Other"; }));
        return other;
    }
    /// What the screen shows once nothing moves any more.
    QImage stillScreen()
    {
        QImage last;
        waitFor(
            [&] {
                QTest::qWait(200);
                return std::exchange(last, screenshot()) == last;
            },
            8000);
        return last;
    }
};

TEST_F(Program, AStartWhileItRunsRaisesItsWindowAndEndsWell)
{
    Running first(ZUMETA);
    ASSERT_TRUE(isShown());
    const std::unique_ptr<QWidget> other = otherWindow();
    Running second(ZUMETA);
    EXPECT_EQ(second.exitCode(), 0);
    EXPECT_TRUE(isShown());
    EXPECT_EQ(windows().size(), 1);
    EXPECT_TRUE(first.isRunning());
}

TEST_F(Program, AStartWhileItIsMinimisedBringsItBack)
{
    Running first(ZUMETA);
    ASSERT_TRUE(isShown());
    xdotool({"getactivewindow", "windowminimize"});
    ASSERT_TRUE(waitFor([] { return windows().empty(); }));
    Running second(ZUMETA);
    EXPECT_EQ(second.exitCode(), 0);
    EXPECT_TRUE(isShown());
}

TEST_F(Program, OneThatWasKilledLocksNobodyOut)
{
    Running killed(ZUMETA);
    ASSERT_TRUE(isShown());
    killed.send(SIGKILL);
    EXPECT_EQ(killed.exitCode(), -1);
    Running next(ZUMETA);
    EXPECT_TRUE(isShown());
    EXPECT_TRUE(next.isRunning());
    Running another(ZUMETA);
    EXPECT_EQ(another.exitCode(), 0) << "the next one is the first";
}

TEST_F(Program, EndsByCtrlQOnItsStartScreen)
{
    Running zumeta(ZUMETA);
    ASSERT_TRUE(isShown());
    pressKeys({QStringLiteral("ctrl+q")});
    EXPECT_EQ(zumeta.exitCode(), 0);
}

TEST_F(Program, EndsWhenItsWindowIsClosed)
{
    Running zumeta(ZUMETA);
    ASSERT_TRUE(isShown());
    pressKeys({QStringLiteral("alt+F4")}); // the window manager's
    EXPECT_EQ(zumeta.exitCode(), 0);
}

TEST_F(Program, FindsTheChosenLanguageAgainWhenItIsStartedAnew)
{
    auto zumeta = std::make_unique<Running>(ZUMETA);
    ASSERT_TRUE(isShown());
    const QImage english = stillScreen();
    pressKeys({QStringLiteral("Tab"), QStringLiteral("Tab"), QStringLiteral("Tab"), QStringLiteral("Tab"),
               QStringLiteral("Return")});
    QTest::qWait(400); // the menu opens
    pressKeys(QStringList(8, QStringLiteral("Down")) + QStringList{QStringLiteral("Return")});
    const QImage german = stillScreen();
    EXPECT_NE(german, english);
    pressKeys({QStringLiteral("ctrl+q")});
    EXPECT_EQ(zumeta->exitCode(), 0);
    zumeta = std::make_unique<Running>(ZUMETA);
    ASSERT_TRUE(isShown());
    pressKeys({QStringLiteral("Tab"), QStringLiteral("Tab"), QStringLiteral("Tab"), QStringLiteral("Tab")});
    EXPECT_EQ(stillScreen(), german) << "with the focus where it was";
}

struct Ending {
    const char* name;
    int signal;
};

std::ostream& operator<<(std::ostream& out, const Ending& ending)
{
    return out << ending.name;
}

class EverySignal : public Program, public testing::WithParamInterface<Ending> {};

TEST_P(EverySignal, EndsTheProgramWell)
{
    Running zumeta(ZUMETA);
    ASSERT_TRUE(isShown());
    zumeta.send(GetParam().signal);
    EXPECT_EQ(zumeta.exitCode(), 0);
}

struct ExportingProgram : Program {
    std::unique_ptr<Running> zumeta;

    void startExport()
    {
        FootageSpec below;
        below.side = test::Side::below;
        below.frames = 90;
        FootageSpec above;
        above.frames = 90;
        const auto word = [](const std::filesystem::path& path) { return QString::fromStdString(path.native()); };
        zumeta = std::make_unique<Running>(EXPORTING_ZUMETA,
                                           QStringList{word(FootageMaker::make(above)), word(FootageMaker::make(below)),
                                                       word(folder.file("swim.mp4"))});
        ASSERT_TRUE(zumeta->says("exporting"));
        ASSERT_TRUE(isShown());
        ASSERT_THAT(folder.names(), ElementsAre("swim.mp4"));
    }
};

class EverySignalToAnExport : public ExportingProgram, public testing::WithParamInterface<Ending> {};

TEST_P(EverySignalToAnExport, EndsTheProgramWithoutAQuestionAndLeavesNoFile)
{
    startExport();
    QElapsedTimer sinceSignal;
    sinceSignal.start();
    zumeta->send(GetParam().signal);
    EXPECT_EQ(zumeta->exitCode(), 0);
    EXPECT_LT(sinceSignal.elapsed(), 4000);
    EXPECT_THAT(folder.names(), IsEmpty());
}

constexpr Ending kEndings[] = {{"RequestToEnd", SIGTERM}, {"CtrlC", SIGINT}, {"ClosedTerminal", SIGHUP}};
const auto kNameOf = [](const auto& parameter) { return parameter.param.name; };
INSTANTIATE_TEST_SUITE_P(Signals, EverySignal, testing::ValuesIn(kEndings), kNameOf);
INSTANTIATE_TEST_SUITE_P(Signals, EverySignalToAnExport, testing::ValuesIn(kEndings), kNameOf);

TEST_F(ExportingProgram, ThatIsClosedByTheWindowManagerAsksAndThenEndsWithoutAFile)
{
    startExport();
    pressKeys({QStringLiteral("alt+F4")});
    QTest::qWait(600); // the question opens, on Cancel
    pressKeys({QStringLiteral("Return")});
    QTest::qWait(600);
    ASSERT_TRUE(zumeta->isRunning());
    ASSERT_THAT(folder.names(), ElementsAre("swim.mp4"));
    pressKeys({QStringLiteral("alt+F4")});
    QTest::qWait(600);
    EXPECT_TRUE(zumeta->isRunning());
    pressKeys({QStringLiteral("Tab"), QStringLiteral("Return")});
    EXPECT_EQ(zumeta->exitCode(), 0);
    EXPECT_THAT(folder.names(), IsEmpty());
}

TEST_F(ExportingProgram, ShowsItsQuestionToWhoeverStartsItAgain)
{
    startExport();
    pressKeys({QStringLiteral("ctrl+q")});
    QTest::qWait(600);
    const std::unique_ptr<QWidget> other = otherWindow();
    Running second(ZUMETA);
    EXPECT_EQ(second.exitCode(), 0);
    EXPECT_TRUE(isShown());
    pressKeys({QStringLiteral("Tab"), QStringLiteral("Return")});
    EXPECT_EQ(zumeta->exitCode(), 0);
    EXPECT_THAT(folder.names(), IsEmpty());
}

}
}

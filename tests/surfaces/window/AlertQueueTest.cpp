// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/window/AlertQueue.h"

#include <QCoreApplication>
#include <gmock/gmock.h>

namespace zumeta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

Alert question(const char* title, const QStringList& buttons)
{
    return {QString::fromLatin1(title), QStringLiteral("message"), buttons, false};
}

const QStringList kTwo{QStringLiteral("Replace"), QStringLiteral("Cancel")};

struct Alerts : testing::Test {
    std::unique_ptr<AlertQueue> queue = std::make_unique<AlertQueue>(nullptr);
    std::vector<int> answers;

    Task<> ask(Alert alert)
    {
        const int answer = co_await queue->ask(std::move(alert));
        answers.push_back(answer);
    }
    void turn() { QCoreApplication::processEvents(); }
};

TEST_F(Alerts, AreShownOneAtATimeInTheirOrder)
{
    ask(question("first", kTwo));
    ask(question("second", kTwo));
    EXPECT_EQ(queue->title(), QStringLiteral("first"));
    queue->answer(0);
    EXPECT_EQ(queue->title(), QStringLiteral("second"));
    queue->answer(1);
    turn();
    EXPECT_FALSE(queue->isOpen());
    EXPECT_THAT(answers, ElementsAre(0, 1));
}

TEST_F(Alerts, ThatAreClosedAnswerWithTheLastButton)
{
    ask(question("first", kTwo));
    queue->close();
    turn();
    EXPECT_THAT(answers, ElementsAre(1));
}

TEST_F(Alerts, TellOfEveryChange)
{
    int told = 0;
    QObject::connect(queue.get(), &AlertQueue::changed, [&] { ++told; });
    ask(question("first", {QStringLiteral("OK")}));
    EXPECT_EQ(told, 1);
    queue->answer(0);
    EXPECT_EQ(told, 2);
    turn();
}

TEST_F(Alerts, ThatAreNotThereTakeNoAnswer)
{
    queue->answer(0);
    turn();
    EXPECT_THAT(answers, IsEmpty());
    EXPECT_EQ(queue->title(), QString());
}

TEST_F(Alerts, ThatBecomePointlessAreAnsweredAsIfClosed)
{
    ask(question("first", kTwo));
    ask(question("second", kTwo));
    ask(question("third", {QStringLiteral("OK")}));
    queue->withdraw(question("second", kTwo));
    turn();
    EXPECT_EQ(queue->title(), QStringLiteral("first"));
    EXPECT_THAT(answers, ElementsAre(1));
    queue->withdraw(question("first", kTwo));
    turn();
    EXPECT_EQ(queue->title(), QStringLiteral("third"));
    EXPECT_THAT(answers, ElementsAre(1, 1));
    queue->withdraw(question("first", kTwo)); // no longer there
    turn();
    EXPECT_THAT(answers, ElementsAre(1, 1));
    queue->answer(0);
    turn();
    EXPECT_THAT(answers, ElementsAre(1, 1, 0));
}

TEST_F(Alerts, OfAWindowThatGoesAreClosed)
{
    ask(question("first", kTwo));
    ask(question("second", {QStringLiteral("OK")}));
    queue.reset();
    turn();
    EXPECT_THAT(answers, ElementsAre(1, 0));
}

}
}

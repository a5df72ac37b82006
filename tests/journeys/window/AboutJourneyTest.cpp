// SPDX-License-Identifier: GPL-3.0-or-later
#include "journeys/window/LayoutWalk.h"
#include "journeys/window/WindowJourney.h"
#include "platform/BundleInfo.h"

#include <QTest>

namespace zumeta {
namespace {

using namespace test;

struct AboutCard : WindowJourney {
    void begin(QSize size)
    {
        open(size);
        confirmCamera();
        openCard();
    }
    void openCard()
    {
        ASSERT_TRUE(waitFor([&] { return item("menuTitle0") != nullptr; }));
        movePointer({700, 500});
        press(Qt::Key_F10);
        press(Qt::Key_Home);
        press(Qt::Key_Return);
        ASSERT_TRUE(waitFor([&] { return item("aboutClose") && item("aboutClose")->hasActiveFocus(); }));
    }
    double top() { return item("licenceView")->property("contentY").toDouble(); }
    double end() { return item("licenceView")->property("contentHeight").toDouble() - item("licenceView")->height(); }
};

TEST_F(AboutCard, TellsTheVersionAndTheTermsOfAll)
{
    begin({1400, 900});
    EXPECT_TRUE(item("aboutVersion")->property("text").toString().startsWith(*BundleInfo::main().shortVersion));
    EXPECT_TRUE(itemWithText(QStringLiteral("What Zumeta uses of others")));
    EXPECT_TRUE(itemWithText(QStringLiteral("GNU GENERAL PUBLIC LICENSE\nVersion 3, 29 June 2007")));
}

TEST_F(AboutCard, IsReadByTheKeyboard)
{
    begin({1024, 680});
    press(Qt::Key_Tab);
    ASSERT_TRUE(item("licences")->hasActiveFocus());
    press(Qt::Key_Down);
    EXPECT_GT(top(), 0);
    const double line = top();
    press(Qt::Key_PageDown);
    EXPECT_GT(top(), line + item("licenceView")->height() / 2);
    press(Qt::Key_End);
    EXPECT_NEAR(top(), end(), 1);
    EXPECT_GT(end(), 3000) << "the whole of the licence";
    press(Qt::Key_Home);
    EXPECT_EQ(top(), 0);
    press(Qt::Key_Tab);
    EXPECT_TRUE(item("aboutClose")->hasActiveFocus());
    press(Qt::Key_Return);
    EXPECT_TRUE(waitFor([&] { return !item("aboutClose") && app().modality().isOpen(); }));
}

TEST_F(AboutCard, IsReadByTheWheel)
{
    begin({1024, 680});
    const QPoint place = middleOf(item("licenceView"));
    QWheelEvent wheel(place, window().mapToGlobal(place), {}, {0, -240}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&window(), &wheel);
    EXPECT_TRUE(waitFor([&] { return top() > 20; }));
}

TEST_F(AboutCard, ClosesByEscapeAndBeginsAnew)
{
    begin({1024, 680});
    press(Qt::Key_Tab);
    press(Qt::Key_End);
    press(Qt::Key_Escape);
    ASSERT_TRUE(waitFor([&] { return !item("aboutClose") && app().modality().isOpen(); }));
    openCard();
    EXPECT_EQ(top(), 0);
}

TEST_F(AboutCard, LooksAsItWasDrawn)
{
    begin({1400, 900});
    expectPicture("about", item("aboutCard"));
    press(Qt::Key_Escape);
    ASSERT_TRUE(waitFor([&] { return !item("aboutClose"); }));
    app().languages().setLanguage(AppLanguage::japanese);
    window().resize({1024, 680});
    openCard();
    press(Qt::Key_Tab);
    expectPicture("about-1024-japanese");
}

TEST_F(AboutCard, FitsInEveryLanguage)
{
    begin({1024, 680});
    for (const AppLanguage language : kAllAppLanguages) {
        app().languages().setLanguage(language);
        QTest::qWait(40);
        EXPECT_EQ(layoutFaults(window()).join(u'\n').toStdString(), "") << rawValue(language).toStdString();
    }
}

}
}

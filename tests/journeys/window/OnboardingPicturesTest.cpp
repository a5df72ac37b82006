// SPDX-License-Identifier: GPL-3.0-or-later
#include "journeys/window/LayoutWalk.h"
#include "journeys/window/OnboardingJourney.h"

namespace zumeta {
namespace {

using namespace test;

struct OnboardingPictures : OnboardingJourney {
    static const char* nameOf(Card card)
    {
        constexpr std::array kNames{"drop-above", "slider", "lock",       "preview", "next",  "drop-below",
                                    "next-step2", "step3",  "next-step3", "step4",   "export"};
        return kNames[size_t(card)];
    }
    void expectCard(Card card, QSize size, AppLanguage language = AppLanguage::english)
    {
        ASSERT_NO_FATAL_FAILURE(openAt(card, size));
        app().languages().setLanguage(language);
        movePointer({5, 5});
        ASSERT_TRUE(waitFor([&] { return !item("stepView") || item("stepView")->property("isAtRest").toBool(); }));
        QTest::qWait(100);
        QString name = QStringLiteral("guide-%1-%2").arg(QLatin1String(nameOf(card))).arg(size.width());
        if (language != AppLanguage::english)
            name += QLatin1Char('-') + app().languages().localeIdentifier();
        expectPicture(qPrintable(name));
        close();
    }
};

TEST_F(OnboardingPictures, OfEveryCardInASmallWindow)
{
    for (const Card card : kAllCards)
        expectCard(card, {1024, 680});
}

TEST_F(OnboardingPictures, OfALargeWindow)
{
    for (const Card card : {Card::dropAbove, Card::slider, Card::lock, Card::preview, Card::step3, Card::step4})
        expectCard(card, {2560, 1440});
}

TEST_F(OnboardingPictures, InJapanese)
{
    for (const Card card : {Card::slider, Card::lock, Card::step3, Card::exporting})
        expectCard(card, {1024, 680}, AppLanguage::japanese);
}

TEST_F(OnboardingPictures, InGerman)
{
    for (const Card card : {Card::dropBelow, Card::step3, Card::step4})
        expectCard(card, {1024, 680}, AppLanguage::german);
}

/// Where its cards stand in every language, in the smallest window and a large one.
struct OnboardingLayout : OnboardingJourney, testing::WithParamInterface<OnboardingJourney::Card> {
    std::vector<QRectF> cards()
    {
        std::vector<QRectF> places;
        for (const char* const name : {"onboardingCard", "onboardingSecondCard"}) {
            if (item(name))
                places.push_back(placeOf(item(name)));
        }
        return places;
    }
    /// What is wrong with how cards, holes and window stand to each other.
    QStringList faults(Card card)
    {
        QStringList found = layoutFaults(window());
        const std::vector<QRectF> places = cards();
        if (places.size() > 1 && places[0].intersects(places[1]))
            found << QStringLiteral("the cards overlap");
        for (const QRectF& place : places) {
            if (!QRectF(QPointF(0, 30), QPointF(window().width(), window().height())).contains(place))
                found << QStringLiteral("a card stands outside the window or under the menu bar");
            for (const SpotlightTargetRect& lit : guide().spotlight().targets) {
                if (card != Card::preview && place.intersects(lit.rect)) // that one lies in its picture's corner
                    found << QStringLiteral("a card covers what it points at");
            }
        }
        return found;
    }
    void expectNoFaults(Card card)
    {
        for (const AppLanguage language : kAllAppLanguages) {
            app().languages().setLanguage(language);
            QStringList found;
            // What was just relabelled is laid out in the next frames.
            waitFor(
                [&] {
                    QTest::qWait(20);
                    found = faults(card);
                    return found.isEmpty();
                },
                600);
            EXPECT_EQ(found.join(u'\n').toStdString(), "")
                << titleKeyOf(card) << " at " << window().width() << " in " << rawValue(language).toStdString();
        }
    }
};

INSTANTIATE_TEST_SUITE_P(Every, OnboardingLayout, testing::ValuesIn(OnboardingJourney::kAllCards));

TEST_P(OnboardingLayout, OfTheCardHoldsInEveryLanguage)
{
    ASSERT_NO_FATAL_FAILURE(openAt(GetParam(), {1024, 680}));
    expectNoFaults(GetParam());
    window().resize(2560, 1440);
    ASSERT_TRUE(waitFor([&] { return window().contentItem()->size() == QSizeF(2560, 1440); }));
    expectNoFaults(GetParam());
}

}
}

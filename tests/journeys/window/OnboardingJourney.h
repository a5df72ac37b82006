// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "journeys/window/PanelJourney.h"
#include "surfaces/guides/SpotlightDimLayer.h"

namespace zumeta::test {

/// The application for somebody who has never seen it, with nothing in motion.
struct OnboardingJourney : PanelJourney {
    /// Every card of the guide, or pair of them, in the order in which a user meets them.
    enum class Card {
        dropAbove,
        slider,
        lock,
        preview,
        next,
        dropBelow,
        nextOfStep2,
        step3,
        nextOfStep3,
        step4,
        exporting
    };
    static constexpr std::array kAllCards{Card::dropAbove,   Card::slider,    Card::lock,        Card::preview,
                                          Card::next,        Card::dropBelow, Card::nextOfStep2, Card::step3,
                                          Card::nextOfStep3, Card::step4,     Card::exporting};

    static const char* titleKeyOf(Card card)
    {
        constexpr std::array kKeys{
            "Tutorial Above Drop Title",       "Tutorial Timeline Title",           "Tutorial Lock Title",
            "Tutorial Preview Title",          "Tutorial Next Step Title",          "Tutorial Below Drop Title",
            "Tutorial Step 2 Next Step Title", "Tutorial Step 3 Adjustments Title", "Tutorial Step 3 Next Step Title",
            "Tutorial Step 4 Trim Title",      "Tutorial Step 4 Export Title"};
        return kKeys[size_t(card)];
    }
    /// Behind the start screen.
    void openAsNewcomer(QSize size = {1400, 900})
    {
        beNewcomer();
        open(size);
        SurfaceContext::of(*qmlEngine(&window())).motion().setReduced(true);
        confirmCamera();
        ASSERT_TRUE(waitForCard("Tutorial Above Drop Title"));
        ASSERT_TRUE(waitForRest());
    }
    /// A window in which this card is shown.
    void openAt(Card card, QSize size)
    {
        ASSERT_NO_FATAL_FAILURE(openAsNewcomer(size));
        goTo(card);
        ASSERT_TRUE(waitForCard(titleKeyOf(card))) << titleKeyOf(card);
        ASSERT_TRUE(waitForRest());
    }
    /// Until the holes have not moved for a while.
    bool waitForRest()
    {
        SpotlightShape before;
        return waitFor([&] {
            QTest::qWait(80);
            return item("stepView")->property("isAtRest").toBool() &&
                   std::exchange(before, guide().spotlight()) == guide().spotlight();
        });
    }
    SpotlightDimLayer* layer() { return qobject_cast<SpotlightDimLayer*>(item("spotlightDimLayer")); }
    OnboardingModel& guide()
    {
        return *window().findChild<SpotlightDimLayer*>(QStringLiteral("spotlightDimLayer"))->model();
    }
    bool isShown(const char* titleKey)
    {
        return item("onboardingCard") && itemWithText(text(titleKey)) && guide().isPresented();
    }
    bool waitForCard(const char* titleKey)
    {
        return waitFor([&] { return isShown(titleKey); });
    }
    bool waitForNoCard()
    {
        return waitFor([&] { return !item("onboardingOverlay"); });
    }
    QRectF hole(size_t index = 0) { return guide().spotlight().targets.at(index).rect; }
    static QRectF placeOf(const QQuickItem* part)
    {
        return part->mapRectToScene(QRectF(0, 0, part->width(), part->height()));
    }

private:
    void goTo(Card card)
    {
        if (card == Card::dropAbove)
            return;
        if (card == Card::slider || card == Card::lock || card == Card::preview) {
            loadVideo(Side::above);
            if (card == Card::slider)
                return;
            seekTo(1);
            session().setHasSliderBeenMoved(true);
            if (card == Card::preview)
                session().toggleAboveLock();
            return;
        }
        if (card == Card::next || card == Card::dropBelow) {
            openStep(1);
            if (card == Card::dropBelow)
                session().setCurrentStep(CompositorViewModel::WorkflowStep::step2);
            return;
        }
        openStep(card == Card::nextOfStep2 ? 2 : card == Card::step3 || card == Card::nextOfStep3 ? 3 : 4);
        if (card == Card::nextOfStep3)
            session().beginStep3Adjustment();
        if (card == Card::exporting)
            session().markStep4ExportControlsInteracted();
    }
};

}

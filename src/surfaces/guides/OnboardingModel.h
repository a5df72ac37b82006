// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "surfaces/guides/OnboardingCardModel.h"
#include "surfaces/guides/SpotlightShape.h"

#include <set>

class QJSEngine;
class QQmlEngine;

namespace zumeta {
class CompositorViewModel;
class NotificationCenter;
class UserDefaults;

/// The guide for newcomers: which card it shows, from the session's state and what the user has waved away, and where,
/// from where the controls stand. Main thread.
class OnboardingModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    /// A card is shown. It needs a control that it can point at.
    Q_PROPERTY(bool isPresented READ isPresented NOTIFY isPresentedChanged FINAL)
    Q_PROPERTY(zumeta::OnboardingCardModel* firstCard READ firstCard CONSTANT FINAL)
    Q_PROPERTY(zumeta::OnboardingCardModel* secondCard READ secondCard CONSTANT FINAL) ///< beside it, in Steps 3 and 4
public:
    static constexpr bool isFirstRunOnboardingEnabled = true;

    /// All must outlive it.
    OnboardingModel(CompositorViewModel& session, NotificationCenter& notifications, UserDefaults& defaults,
                    QObject* parent = nullptr);
    /// The engine's own; see SurfaceContext.
    static OnboardingModel* create(QQmlEngine* engine, QJSEngine*);

    bool isPresented() const { return m_isPresented; }
    OnboardingCardModel* firstCard() { return &m_firstCard; }
    OnboardingCardModel* secondCard() { return &m_secondCard; }
    /// As it was last, while no card is shown.
    const SpotlightShape& spotlight() const { return m_spotlight; }

    /// Whether there is a card to show, once its control is there; only then frames are of use.
    bool showFirstRunOnboarding() const { return m_showFirstRunOnboarding; }
    /// Where the controls stand now, in an overlay of this size, which fills the window.
    void setFrames(const OnboardingFrames& frames, QSizeF overlay);

    /// Waves the card away, or both: it does not come again in this run.
    Q_INVOKABLE void dismissGuide();
    /// Ends the guide for good, until it is asked for.
    Q_INVOKABLE void skipGuide();

Q_SIGNALS:
    void isPresentedChanged();
    /// The card shown is another one, or one is shown after none was.
    void cardChanged();
    /// The layer's holes have changed their places.
    void spotlightMoved();
    /// This part of the panel, in the window, holds the controls of a new card.
    void sightWanted(QRectF part);
    /// The guide has to know where the controls stand.
    void framesWanted();

private:
    /// A key stands for one card in each step that has it.
    struct Shown {
        InteractiveOnboardingGuideKey key;
        PublishedFields::WorkflowStep step;
        friend bool operator==(const Shown&, const Shown&) = default;
    };

    std::optional<InteractiveOnboardingGuideKey> currentOnboardingGuideKey() const;
    void presentFirstRunOnboardingIfNeeded();
    void dismissFirstRunOnboardingGuide(const InteractiveOnboardingGuideKey& key);
    void showAgain();
    void noteFinishedExport();
    void setHasSeen(bool hasSeen);
    void follow();
    void present();
    void showCards();
    void placeCards();
    void askForSight();

    CompositorViewModel& m_session;
    UserDefaults& m_defaults;
    bool m_hasSeenFirstRunOnboarding;
    std::set<InteractiveOnboardingGuideKey> m_dismissedFirstRunGuideKeys; ///< in this run
    bool m_showFirstRunOnboarding = false;
    std::optional<Shown> m_wanted; ///< what is to be shown
    std::optional<Shown> m_shown;  ///< what the cards say
    bool m_isPresented = false;
    bool m_asksForSight = false; ///< once the controls of the new card are there
    OnboardingFrames m_frames;
    QSizeF m_overlay;
    SpotlightShape m_spotlight;
    OnboardingCardModel m_firstCard;
    OnboardingCardModel m_secondCard;
};

}

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "surfaces/panels/Confirmation.h"
#include "surfaces/panels/SideSetup.h"

#include <QObject>
#include <qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

namespace zumeta {
class LanguageManager;
class NotificationCenter;

/// What the adjustment panel shows and does besides its rows of values: the header, the step bar, Steps 1 to 3, and the
/// ways to begin anew. Step 4 has Step4Actions.
class StepPanelModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(int step READ step NOTIFY changed FINAL) ///< 1 to 4
    Q_PROPERTY(int maxReachedStep READ maxReachedStep NOTIFY changed FINAL)
    Q_PROPERTY(bool canSave READ canSave NOTIFY changed FINAL)
    Q_PROPERTY(bool canExport READ canExport NOTIFY changed FINAL)
    Q_PROPERTY(bool isLoopOn READ isLoopOn NOTIFY changed FINAL)
    Q_PROPERTY(bool isSlowOn READ isSlowOn NOTIFY changed FINAL)
    Q_PROPERTY(zumeta::SideSetup* aboveSetup READ aboveSetup CONSTANT FINAL)
    Q_PROPERTY(zumeta::SideSetup* belowSetup READ belowSetup CONSTANT FINAL)
public:
    /// As StepPillLook.
    enum PillLook { Ahead, Visited, Done, Current };
    Q_ENUM(PillLook)

    StepPanelModel(CompositorViewModel& session, NotificationCenter& notifications, Dialogs& dialogs,
                   const LanguageManager& languages, QObject* parent = nullptr);
    /// The engine's own; see SurfaceContext.
    static StepPanelModel* create(QQmlEngine* engine, QJSEngine*);

    int step() const { return m_shown.step; }
    int maxReachedStep() const { return m_shown.maxReachedStep; }
    /// A project is worth keeping once both sides are set up.
    bool canSave() const { return m_shown.step >= 3; }
    bool canExport() const { return m_shown.canExport; }
    bool isLoopOn() const { return m_shown.isLoopOn; }
    bool isSlowOn() const { return m_shown.isSlowOn; }
    SideSetup* aboveSetup() { return &m_aboveSetup; }
    SideSetup* belowSetup() { return &m_belowSetup; }

    Q_INVOKABLE PillLook pillLook(int step, int currentStep, int maxReachedStep) const;
    Q_INVOKABLE bool isConnectorCompleted(int stepBefore, int maxReachedStep) const;

    Q_INVOKABLE void goToStep(int step);
    Q_INVOKABLE void save();
    Q_INVOKABLE void open();
    Q_INVOKABLE void changeCamera(); ///< on the start screen; no work is lost
    // Step 3.
    Q_INVOKABLE void toggleLoop();
    Q_INVOKABLE void toggleSlow();
    Q_INVOKABLE void goToStep4();
    // Each asks first.
    Q_INVOKABLE void resetAboveOnly();
    Q_INVOKABLE void resetBelowOnly();
    Q_INVOKABLE void resetAdjustmentValues();
    Q_INVOKABLE void startOver();

Q_SIGNALS:
    void changed();

private:
    struct State {
        int step = 1;
        int maxReachedStep = 1;
        bool canExport = false;
        bool isLoopOn = false;
        bool isSlowOn = false;
        friend bool operator==(const State&, const State&) = default;
    };
    State currentState() const;
    void follow();
    void leaveField();
    void askForReset(const QString& titleKey, void (CompositorViewModel::*reset)());

    CompositorViewModel& m_session;
    NotificationCenter& m_notifications;
    const LanguageManager& m_languages;
    Confirmation m_confirmation;
    SideSetup m_aboveSetup;
    SideSetup m_belowSetup;
    State m_shown;
};

}

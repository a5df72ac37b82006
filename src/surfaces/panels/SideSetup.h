// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "session/Side.h"
#include "surfaces/panels/ChecklistModel.h"

#include <QObject>
#include <qqmlregistration.h>

namespace zumeta {
class CompositorViewModel;

/// What Steps 1 and 2 show, each for its side: what is to be done, the lock, and the way on once all is done.
class SideSetup final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("StepPanelModel has both")
    Q_PROPERTY(int step READ step CONSTANT FINAL)
    Q_PROPERTY(QString titleKey READ titleKey CONSTANT FINAL)
    Q_PROPERTY(QAbstractItemModel* checklist READ checklist CONSTANT FINAL)
    Q_PROPERTY(QString lockTitleKey READ lockTitleKey NOTIFY changed FINAL)
    Q_PROPERTY(QString lockIcon READ lockIcon NOTIFY changed FINAL)
    /// The lock is what to press next.
    Q_PROPERTY(bool isLockHighlighted READ isLockHighlighted NOTIFY changed FINAL)
    /// Without a video there is nothing to lock.
    Q_PROPERTY(bool isLockAvailable READ isLockAvailable NOTIFY changed FINAL)
    Q_PROPERTY(bool canGoToNextStep READ canGoToNextStep NOTIFY changed FINAL)
    Q_PROPERTY(QString nextStepKey READ nextStepKey CONSTANT FINAL)
    Q_PROPERTY(QString partialResetKey READ partialResetKey CONSTANT FINAL)
public:
    SideSetup(CompositorViewModel& session, Side side, QObject* parent = nullptr);

    int step() const { return m_side == Side::above ? 1 : 2; }
    QString titleKey() const;
    QAbstractItemModel* checklist() { return &m_checklist; }
    QString lockTitleKey() const;
    QString lockIcon() const;
    bool isLockHighlighted() const { return m_shown.isLockHighlighted; }
    bool isLockAvailable() const { return m_shown.hasVideo; }
    bool canGoToNextStep() const { return m_shown.isLocked && m_shown.hasAlignmentPoint; }
    QString nextStepKey() const;
    QString partialResetKey() const;

    Q_INVOKABLE void pressLock();

Q_SIGNALS:
    void changed();

private:
    struct State {
        bool hasVideo = false;
        bool isLocked = false;
        bool hasAlignmentPoint = false;
        bool isLockHighlighted = false;
        friend bool operator==(const State&, const State&) = default;
    };
    State currentState() const;
    Checklist currentChecklist() const;
    void follow();

    CompositorViewModel& m_session;
    Side m_side;
    State m_shown;
    ChecklistModel m_checklist;
};

}

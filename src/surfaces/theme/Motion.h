// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QObject>
#include <QTimer>
#include <qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

namespace zumeta {

/// How much moves on the screen. Main thread.
class Motion final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    // Durations in milliseconds; all are 0 where motion is not wanted, save the pulse's, which does not run then.
    Q_PROPERTY(int tap READ tap NOTIFY changed FINAL)           ///< a button that shrinks under the press
    Q_PROPERTY(int colour READ colour NOTIFY changed FINAL)     ///< of what is hovered or focused
    Q_PROPERTY(int progress READ progress NOTIFY changed FINAL) ///< a ring that follows what it tells of
    Q_PROPERTY(int guide READ guide NOTIFY changed FINAL)       ///< the vertical guide line
    Q_PROPERTY(int thumb READ thumb NOTIFY changed FINAL)       ///< a thumb that grows; the waterline indicator
    Q_PROPERTY(int smooth READ smooth NOTIFY changed FINAL)     ///< what opens and closes
    Q_PROPERTY(int step READ step NOTIFY changed FINAL)         ///< from one step to the next
    Q_PROPERTY(int pop READ pop NOTIFY changed FINAL)           ///< the button to the next step
    Q_PROPERTY(int stagger READ stagger NOTIFY changed FINAL)   ///< between one row that appears and the next
    Q_PROPERTY(int pulse READ pulse CONSTANT FINAL)
    /// Whether what decorates may move for ever. It rests a while after the user's last input and while the window is
    /// not the active one, because a screen at rest shall cost nothing.
    Q_PROPERTY(bool pulses READ pulses NOTIFY changed FINAL)
public:
    /// No argument may be left out: QML would make one of its own where it could.
    explicit Motion(QObject* parent);
    /// The engine's own; see SurfaceContext.
    static Motion* create(QQmlEngine* engine, QJSEngine*);

    int tap() const { return scaled(80); }
    int colour() const { return scaled(120); }
    int progress() const { return scaled(150); }
    int guide() const { return scaled(180); }
    int thumb() const { return scaled(200); }
    int smooth() const { return scaled(250); }
    int step() const { return scaled(300); }
    int pop() const { return scaled(320); }
    int stagger() const { return scaled(50); }
    int pulse() const { return 1200; }
    bool pulses() const { return !m_isReduced && m_isWindowActive && m_sinceInput.isActive(); }
    void setReduced(bool isReduced);
    void setWindowActive(bool isActive);
    void noteInput();

Q_SIGNALS:
    void changed();

private:
    int scaled(int milliseconds) const { return m_isReduced ? 0 : milliseconds; }

    bool m_isReduced = false;
    bool m_isWindowActive = false;
    QTimer m_sinceInput;
};

}

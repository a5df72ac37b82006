// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QObject>
#include <qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

namespace zumeta {

/// Whether the window is worked by the keyboard at the moment, which is when the focus needs a ring: whoever points
/// with the mouse sees what the pointer is on. Main thread.
class KeyboardFocus final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool isShown READ isShown NOTIFY changed FINAL)
public:
    /// No argument may be left out: QML would make one of its own where it could.
    explicit KeyboardFocus(QObject* parent);
    /// The engine's own; see SurfaceContext.
    static KeyboardFocus* create(QQmlEngine* engine, QJSEngine*);

    bool isShown() const { return m_isShown; }
    /// A key of Qt::Key went down. One that only modifies others says nothing about how the user works.
    void noteKey(int key);
    void notePress(); ///< of a mouse button, a finger or a pen

Q_SIGNALS:
    void changed();

private:
    void setShown(bool isShown);

    bool m_isShown = false;
};

}

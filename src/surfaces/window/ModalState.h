// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "surfaces/keys/ModalGate.h"

#include <QObject>
#include <QPointer>
#include <QQuickItem>
#include <array>
#include <qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

namespace zumeta {

/// What is open in front of the window's work. Whatever opens enters here and leaves when it closes; several of one
/// kind count. Main thread.
class ModalState final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool isOpen READ isOpen NOTIFY changed FINAL)
    Q_PROPERTY(bool enablesMenuItems READ enablesMenuItems NOTIFY changed FINAL)
    Q_PROPERTY(bool acceptsDrops READ acceptsDrops NOTIFY changed FINAL)
public:
    enum Kind { Menu, Popover, Sheet, Alert, MissingMediaCard, StartScreen, FileDialog, InactiveWindow };
    Q_ENUM(Kind)

    /// No argument may be left out: QML would make one of its own where it could.
    explicit ModalState(QObject* parent);
    /// The engine's own; see SurfaceContext.
    static ModalState* create(QQmlEngine* engine, QJSEngine*);

    Q_INVOKABLE void enter(Kind kind);
    /// Once too often is harmless.
    Q_INVOKABLE void leave(Kind kind);
    /// For what is there or not.
    void set(Kind kind, bool isThere);

    ModalGate gate() const;
    bool isOpen() const { return gate().isOpen(); } ///< whether keys reach the shortcuts
    bool enablesMenuItems() const { return gate().enablesMenuItems(); }
    bool acceptsDrops() const { return gate().acceptsDrops(); }

Q_SIGNALS:
    void changed();

private:
    /// Whether something of the window itself stands in front of the rest.
    bool hasFront() const;
    bool has(Kind kind) const { return m_counts[size_t(kind)] > 0; }

    std::array<int, InactiveWindow + 1> m_counts{};
    QPointer<QQuickItem> m_focusBehind; ///< what had the focus when the first of them opened
};

/// Stands for a file dialog, or whatever else QML does not open, while it lives.
class ModalPresence {
public:
    ModalPresence(ModalState& state, ModalState::Kind kind)
        : m_state(state)
        , m_kind(kind)
    {
        m_state.enter(m_kind);
    }
    ~ModalPresence() { m_state.leave(m_kind); }
    ModalPresence(const ModalPresence&) = delete; // it stands for one thing
    ModalPresence& operator=(const ModalPresence&) = delete;

private:
    ModalState& m_state;
    ModalState::Kind m_kind;
};

}

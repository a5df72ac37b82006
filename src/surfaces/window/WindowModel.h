// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QObject>
#include <qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

namespace zumeta {
class CompositorViewModel;

/// What the window as a whole follows of the session.
class WindowModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(int step READ step NOTIFY changed FINAL) ///< 1 to 4
    Q_PROPERTY(bool isCompositeStep READ isCompositeStep NOTIFY changed FINAL)
    Q_PROPERTY(bool isFullScreen READ isFullScreen NOTIFY changed FINAL)
    Q_PROPERTY(bool isStartScreenShown READ isStartScreenShown NOTIFY changed FINAL)
public:
    explicit WindowModel(CompositorViewModel& session, QObject* parent = nullptr);
    /// The engine's own; see SurfaceContext.
    static WindowModel* create(QQmlEngine* engine, QJSEngine*);

    int step() const;
    bool isCompositeStep() const { return step() >= 3; }
    /// The panel and the bars are left out. Within the window: its own size is another matter.
    bool isFullScreen() const;
    bool isStartScreenShown() const;

Q_SIGNALS:
    void changed();

private:
    CompositorViewModel& m_session;
};

}

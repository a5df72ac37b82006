// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "shell/WindowKeys.h"

#include <QObject>
#include <QPointer>

class QKeyEvent;
class QMouseEvent;
class QQuickWindow;

namespace zumeta {
class SurfaceContext;

/// Starts and keeps the one window, and sees each of its keys and presses before anything in it does: what a shortcut
/// means goes out as a notification. Main thread.
class AppDelegate final : public QObject {
    Q_OBJECT
public:
    /// To be made before any view is: views that go away learn first that editing is over.
    explicit AppDelegate(SurfaceContext& context);
    ~AppDelegate() override;

    /// Sees everything in the window from now on.
    void applicationDidFinishLaunching(QQuickWindow& window);
    /// Once, it makes the window fill the screen's usable area; then it keeps the size that the user has given it.
    void showWindow();
    void applicationWillTerminate();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void endEditingBeforeViewsGo();
    void noteActivation();
    void noteInput(const QEvent& event);
    bool wantsKey(const QKeyEvent& event) const;
    bool takeKey(const QKeyEvent& event);
    void takePress(QPointF place);
    WindowKeyFacts keyFacts() const;

    SurfaceContext& m_context;
    QPointer<QQuickWindow> m_window;
    bool m_didApplyInitialWindowFrame = false;
};

}

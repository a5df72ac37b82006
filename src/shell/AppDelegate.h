// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "shell/ClosingGuard.h"
#include "shell/WindowKeys.h"

#include <QObject>
#include <QPointer>
#include <functional>

class QKeyEvent;
class QMouseEvent;
class QQuickWindow;

namespace zumeta {
class SurfaceContext;

/// The end of a user's session on the desktop, as far as an application has a say in it.
struct SessionEnd {
    std::function<bool()> allowsInteraction; ///< whether a question is in order
    std::function<void()> release;           ///< the question is answered
    std::function<void()> cancel;            ///< the user stays
};

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
    /// The application is started once more, or asked for by the desktop. Always true: it wants to hear of that.
    bool applicationShouldHandleReopen(bool hasVisibleWindows);
    /// Brings the window to the front, or the file dialog that stands over it.
    void applicationDidBecomeActive();
    /// The desktop's session is about to end. A running export is asked about within this call, in an event loop of its
    /// own: the desktop goes on as soon as it returns.
    void commitSession(const SessionEnd& end);
    /// Ends the event loop, and asks nothing.
    void terminate();
    void applicationWillTerminate();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void endEditingBeforeViewsGo();
    void closeWindow();
    void noteActivation();
    void noteInput(const QEvent& event);
    bool wantsKey(const QKeyEvent& event) const;
    bool takeKey(const QKeyEvent& event);
    void takePress(QPointF place);
    WindowKeyFacts keyFacts() const;

    SurfaceContext& m_context;
    ClosingGuard m_closing;
    QPointer<QQuickWindow> m_window;
    bool m_didApplyInitialWindowFrame = false;
    bool m_isCommitting = false; ///< the question is the session's: it closes the window by itself
};

}

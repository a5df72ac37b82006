// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/AppDelegate.h"

#include "languages/LanguageManager.h"
#include "platform/NotificationCenter.h"
#include "session/CompositorViewModel.h"
#include "surfaces/theme/SurfaceContext.h"

#include <QEventLoop>
#include <QGuiApplication>
#include <QInputMethodQueryEvent>
#include <QKeyEvent>
#include <QQuickItem>
#include <QQuickWindow>
#include <QScreen>

namespace zumeta {

namespace {

PressedKey pressedKey(const QKeyEvent& event)
{
    return {event.key(), event.modifiers(), event.nativeScanCode(), event.nativeModifiers(), event.isAutoRepeat()};
}

/// Whether typing would arrive there.
bool takesInput(QObject* focusObject)
{
    if (!focusObject)
        return false;
    QInputMethodQueryEvent query(Qt::ImEnabled);
    QCoreApplication::sendEvent(focusObject, &query);
    return query.value(Qt::ImEnabled).toBool();
}

bool isInput(QEvent::Type type)
{
    switch (type) {
    case QEvent::KeyPress:
    case QEvent::MouseMove:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::Wheel:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TabletPress:
    case QEvent::TabletMove:
    case QEvent::DragMove:
    case QEvent::Drop:
        return true;
    default:
        return false;
    }
}

bool isPress(QEvent::Type type)
{
    return type == QEvent::MouseButtonPress || type == QEvent::TouchBegin || type == QEvent::TabletPress;
}

}

AppDelegate::AppDelegate(SurfaceContext& context)
    : m_context(context)
    , m_closing(context.session(), context.alerts(),
                [&context](const QString& key) { return context.languages().localized(key); })
{
    endEditingBeforeViewsGo();
    // Whoever closes it from the desktop's list of windows may not see it.
    connect(&m_closing, &ClosingGuard::asked, this, &AppDelegate::applicationDidBecomeActive);
    connect(&m_closing, &ClosingGuard::confirmed, this, &AppDelegate::closeWindow);
}

AppDelegate::~AppDelegate() = default;

void AppDelegate::endEditingBeforeViewsGo()
{
    // A field that is destroyed reports no loss of focus; its row would count as being edited for ever.
    const CompositorViewModel& session = m_context.session();
    for (const auto signal :
         {&CompositorViewModel::currentStepChanged, &CompositorViewModel::isFullScreenChanged,
          &CompositorViewModel::isCameraSelectionConfirmedChanged, &CompositorViewModel::showMissingFileAlertChanged})
        connect(&session, signal, this,
                [this] { m_context.notifications().post(notifications::kClearTextFieldFocus); });
}

void AppDelegate::applicationDidFinishLaunching(QQuickWindow& window)
{
    m_window = &window;
    window.installEventFilter(this);
    connect(&window, &QWindow::activeChanged, this, &AppDelegate::noteActivation);
    noteActivation();
}

void AppDelegate::applicationWillTerminate()
{
    if (m_window)
        m_window->removeEventFilter(this);
}

void AppDelegate::showWindow()
{
    if (!m_window)
        return;
    if (!m_didApplyInitialWindowFrame) {
        m_didApplyInitialWindowFrame = true;
        const QScreen* const screen = m_window->screen() ? m_window->screen() : QGuiApplication::primaryScreen();
        if (screen)
            m_window->setGeometry(screen->availableGeometry());
        // Told as well to whoever frames windows: the geometry leaves no room for a frame.
        m_window->showMaximized();
    }
    m_window->setVisible(true);
    applicationDidBecomeActive();
}

bool AppDelegate::applicationShouldHandleReopen(bool hasVisibleWindows)
{
    if (!hasVisibleWindows)
        showWindow();
    return true;
}

void AppDelegate::applicationDidBecomeActive()
{
    if (!m_window || !m_window->isVisible())
        return;
    if (m_window->windowStates().testFlag(Qt::WindowMinimized))
        m_window->setWindowStates(m_window->windowStates() & ~Qt::WindowMinimized);
    m_window->raise();
    QWindow* const dialog = QGuiApplication::modalWindow();
    if (dialog)
        dialog->raise();
    (dialog ? dialog : m_window.data())->requestActivate();
}

void AppDelegate::commitSession(const SessionEnd& end)
{
    const CompositorViewModel& session = m_context.session();
    if (!session.isExporting() || !end.allowsInteraction())
        return;
    if (!m_closing.mayClose()) {
        m_isCommitting = true;
        QEventLoop answered;
        connect(&m_closing, &ClosingGuard::confirmed, &answered, &QEventLoop::quit);
        connect(&m_closing, &ClosingGuard::declined, &answered, &QEventLoop::quit);
        answered.exec();
        m_isCommitting = false;
    }
    end.release();
    if (session.isExporting())
        end.cancel();
}

void AppDelegate::closeWindow()
{
    if (m_window && !m_isCommitting)
        m_window->close();
}

void AppDelegate::terminate()
{
    m_context.session().cancelExport();
    QCoreApplication::exit();
}

void AppDelegate::noteActivation()
{
    const bool isActive = m_window && m_window->isActive();
    m_context.modality().set(ModalState::InactiveWindow, !isActive);
    m_context.motion().setWindowActive(isActive);
}

void AppDelegate::noteInput(const QEvent& event)
{
    if (!isInput(event.type()))
        return;
    m_context.motion().noteInput();
    if (event.type() == QEvent::KeyPress)
        m_context.keyboardFocus().noteKey(static_cast<const QKeyEvent&>(event).key());
    else if (isPress(event.type()))
        m_context.keyboardFocus().notePress();
}

bool AppDelegate::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_window) // each key passes by again for the item that has the focus
        return false;
    noteInput(*event);
    switch (event->type()) {
    case QEvent::Close:
        if (m_closing.mayClose())
            return false;
        event->ignore();
        return true;
    case QEvent::ShortcutOverride:
        // Before the press itself: a shortcut that somebody has registered would act without asking.
        if (!wantsKey(static_cast<const QKeyEvent&>(*event)))
            return false;
        event->accept();
        return true;
    case QEvent::KeyPress:
        if (!takeKey(static_cast<const QKeyEvent&>(*event)))
            return false;
        event->accept();
        return true;
    case QEvent::MouseButtonPress:
        if (const auto& press = static_cast<const QMouseEvent&>(*event); press.button() == Qt::LeftButton)
            takePress(press.position());
        return false;
    default:
        return false;
    }
}

bool AppDelegate::wantsKey(const QKeyEvent& event) const
{
    return windowKey(pressedKey(event), keyFacts()).action != WindowKeyAction::passOn;
}

bool AppDelegate::takeKey(const QKeyEvent& event)
{
    const WindowKey key = windowKey(pressedKey(event), keyFacts());
    switch (key.action) {
    case WindowKeyAction::passOn:
        return false;
    case WindowKeyAction::consume:
        return true;
    case WindowKeyAction::post:
        m_context.notifications().post(key.notification->name, key.notification->userInfo);
        return true;
    case WindowKeyAction::leaveFullScreen:
        m_context.session().setFullScreen(false);
        return true;
    case WindowKeyAction::toggleWindowFullScreen:
        m_window->setWindowStates(m_window->windowStates() ^ Qt::WindowFullScreen);
        return true;
    case WindowKeyAction::quit:
        m_window->close();
        return true;
    }
    return false;
}

void AppDelegate::takePress(QPointF place)
{
    // The menus act on the field that is being edited.
    if (m_context.modality().gate().isMenuOpen)
        return;
    const auto* const menuBar = m_window->findChild<QQuickItem*>(QStringLiteral("menuBar"));
    const bool isOnMenuBar = menuBar && menuBar->isVisible() && menuBar->contains(menuBar->mapFromScene(place));
    if (!isOnMenuBar)
        m_context.notifications().post(notifications::kClearTextFieldFocus);
}

WindowKeyFacts AppDelegate::keyFacts() const
{
    QObject* const focusObject = m_window->focusObject();
    const CompositorViewModel& session = m_context.session();
    return {.gate = m_context.modality().gate(),
            .focus = textInputFacts(m_context.fieldFocus().focusCount(), takesInput(focusObject)),
            .isComposing = focusObject && focusObject->property("inputMethodComposing").toBool(),
            .isFullScreen = session.isFullScreen(),
            .isCompositeStep = session.currentStep() >= CompositorViewModel::WorkflowStep::step3};
}

}

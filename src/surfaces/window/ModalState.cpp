// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/window/ModalState.h"

#include "surfaces/theme/SurfaceContext.h"

#include <QGuiApplication>
#include <QQuickWindow>
#include <algorithm>
#include <utility>

namespace zumeta {

namespace {

QQuickItem* focusedItem()
{
    return qobject_cast<QQuickItem*>(QGuiApplication::focusObject());
}

/// Popups leave the focus of a plain window nowhere when they close, and the keyboard would begin anew.
void giveFocusBack(QQuickItem& item)
{
    const QQuickWindow* const window = item.window();
    if (!window || !item.isVisible() || !item.isEnabled())
        return;
    if (!window->activeFocusItem() || window->activeFocusItem() == window->contentItem())
        item.forceActiveFocus(Qt::PopupFocusReason);
}

}

ModalState::ModalState(QObject* parent)
    : QObject(parent)
{}

ModalState* ModalState::create(QQmlEngine* engine, QJSEngine*)
{
    return &SurfaceContext::of(*engine).modality();
}

void ModalState::enter(Kind kind)
{
    if (!hasFront())
        m_focusBehind = focusedItem();
    ++m_counts[size_t(kind)];
    Q_EMIT changed();
}

void ModalState::leave(Kind kind)
{
    m_counts[size_t(kind)] = std::max(m_counts[size_t(kind)] - 1, 0);
    if (m_focusBehind && !hasFront())
        giveFocusBack(*std::exchange(m_focusBehind, nullptr));
    Q_EMIT changed();
}

void ModalState::set(Kind kind, bool isThere)
{
    if (has(kind) == isThere)
        return;
    m_counts[size_t(kind)] = isThere ? 1 : 0;
    Q_EMIT changed();
}

bool ModalState::hasFront() const
{
    return has(Menu) || has(Popover) || has(Sheet) || has(Alert) || has(MissingMediaCard);
}

ModalGate ModalState::gate() const
{
    return {.isMenuOpen = has(Menu),
            .isPopoverOpen = has(Popover),
            .isSheetOpen = has(Sheet),
            .isAlertOpen = has(Alert),
            .isMissingMediaCardOpen = has(MissingMediaCard),
            .isStartScreenShown = has(StartScreen),
            .isFileDialogOpen = has(FileDialog),
            .isWindowInactive = has(InactiveWindow)};
}

}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/window/ModalState.h"

#include "surfaces/theme/SurfaceContext.h"

#include <algorithm>

namespace zumeta {

ModalState::ModalState(QObject* parent)
    : QObject(parent)
{}

ModalState* ModalState::create(QQmlEngine* engine, QJSEngine*)
{
    return &SurfaceContext::of(*engine).modality();
}

void ModalState::enter(Kind kind)
{
    ++m_counts[size_t(kind)];
    Q_EMIT changed();
}

void ModalState::leave(Kind kind)
{
    m_counts[size_t(kind)] = std::max(m_counts[size_t(kind)] - 1, 0);
    Q_EMIT changed();
}

void ModalState::set(Kind kind, bool isThere)
{
    if (has(kind) == isThere)
        return;
    m_counts[size_t(kind)] = isThere ? 1 : 0;
    Q_EMIT changed();
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

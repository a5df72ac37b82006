// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/theme/KeyboardFocus.h"

#include "surfaces/theme/SurfaceContext.h"

#include <utility>

namespace zumeta {

KeyboardFocus::KeyboardFocus(QObject* parent)
    : QObject(parent)
{}

KeyboardFocus* KeyboardFocus::create(QQmlEngine* engine, QJSEngine*)
{
    return &SurfaceContext::of(*engine).keyboardFocus();
}

void KeyboardFocus::noteKey(int key)
{
    switch (key) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Meta:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_CapsLock:
    case Qt::Key_NumLock:
        return;
    default:
        setShown(true);
    }
}

void KeyboardFocus::notePress()
{
    setShown(false);
}

void KeyboardFocus::setShown(bool isShown)
{
    if (std::exchange(m_isShown, isShown) != isShown)
        Q_EMIT changed();
}

}

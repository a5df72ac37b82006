// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QPoint>
#include <QString>

/// The pointer and the keyboard of the screen: what is sent goes the whole way through the display server, each kind of
/// which has its own. They throw std::runtime_error when it cannot be sent.
namespace zumeta::test::realinput {

/// How long it may take until what was sent has arrived, in milliseconds.
int latency();
/// Where it points at nothing.
void parkPointer();
void movePointer(QPoint place);
void pressButton();
void releaseButton();
/// "Tab", "Return", "ctrl+z".
void pressKey(const QString& key);
void type(const QString& text);

}

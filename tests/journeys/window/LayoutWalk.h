// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QQuickItem>
#include <QStringList>

class QQuickWindow;

namespace zumeta::test {

/// Every item of a window that can be seen, those behind before those in front. While something modal is open, or the
/// guide for newcomers, only what it holds, because the rest is dimmed and out of reach.
std::vector<QQuickItem*> reachableItems(QQuickWindow& window);

/// Everything that is wrong with how the items of a window stand to each other, a sentence each: texts that are cut
/// off, painted outside their items or the window, too small to read, or over each other; controls that overlap. What
/// can be scrolled into view is not outside. Names of files may be shortened in their middle.
QStringList layoutFaults(QQuickWindow& window);

}

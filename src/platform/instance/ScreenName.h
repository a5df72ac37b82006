// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>

namespace zumeta {

/// What tells a process where its windows appear.
struct ScreenFacts {
    QString platform;       ///< as Qt calls it, such as "xcb"
    QString x11Display;     ///< of the environment, such as ":0.0"
    QString waylandDisplay; ///< the same, such as "wayland-0"
};

/// A name for the place where the windows of one user meet, fit for that of a file: two processes with the same name
/// show their windows side by side. Empty where nobody else could see the window.
QString screenName(const ScreenFacts& facts);

}

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <functional>

class QApplication;

namespace zumeta {
class ZumetaApp;

/// The life of the process: it opens the window, or gives this start to the one that is open already, and ends when the
/// window is closed or a signal asks for it. Gives the exit status. `whenShown` may do more once the window is there.
int runProgram(QApplication& application, const std::function<void(ZumetaApp&)>& whenShown = {});

}

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QCoroTask>

namespace zumeta {

/// A coroutine. It runs at once up to its first wait. It never throws; one whose result nobody awaits goes on alone.
template <typename T = void> using Task = QCoro::Task<T>;

}

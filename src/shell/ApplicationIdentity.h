// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace zumeta {

/// What the desktop knows the program by: the name of its windows' class, and the name of its desktop entry. Before the
/// application is made.
void nameApplication();
/// The picture that taskbars show of its windows, where they know no desktop entry. Once the application is there.
void giveApplicationItsIcon();

}

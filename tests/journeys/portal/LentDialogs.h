// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QStringList>
#include <filesystem>
#include <vector>

/// The portal of the test's desktop, another program, which answers whoever asks for files.
namespace zumeta::test::LentDialogs {

/// Before the application. Throws std::runtime_error when it does not come up.
void start();
void end();
/// What it answers with.
std::vector<std::filesystem::path> filesToOpen();
/// The questions so far, a line each; see FakePortal.
QStringList questions();

}

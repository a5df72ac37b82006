// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QByteArray>
#include <filesystem>
#include <string>
#include <vector>

namespace zumeta::test {

/// A file or folder of the installation: "bin/zumeta".
std::filesystem::path installed(const std::string& name);
/// Every file of the installation by its name, sorted.
std::vector<std::string> installedNames();

/// All of a file. Throws std::runtime_error when it cannot be read.
QByteArray contentOf(const std::filesystem::path& file);
/// The same of a file that gzip has made smaller.
QByteArray unzippedContentOf(const std::filesystem::path& file);

/// What the desktop calls the program.
inline constexpr const char* kApplicationId = "com.zumetaapp.Zumeta";
/// The languages of the program besides English, as the desktop names them.
inline constexpr const char* kOtherLanguages[] = {"ja", "zh", "ko", "pt", "es", "fr", "de", "it"};

}

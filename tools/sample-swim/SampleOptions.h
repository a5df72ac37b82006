// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "SwimPlan.h"

#include <QString>
#include <QStringList>
#include <filesystem>
#include <variant>

namespace zumeta::swim {

/// What the command line asks for.
struct SampleOptions {
    std::filesystem::path folder;
    int width = 1280;
    int height = 720;
    FrameRate rate;
    double seconds = 12;
    bool quiet = false;
    bool help = false;
};

/// The options, or one line that says what is wrong with them. `arguments` starts with the program's name.
std::variant<SampleOptions, QString> readOptions(const QStringList& arguments);

QString helpText();

}

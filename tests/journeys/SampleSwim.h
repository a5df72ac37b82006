// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <filesystem>
#include <string>
#include <vector>

namespace zumeta::test {

/// The recordings that sample-swim makes, and what it says of them.
struct SampleSwim {
    std::vector<std::filesystem::path> above; ///< two chapters
    std::filesystem::path below;
    int width = 0;
    int height = 0;
    double landmarkAbove = 0; ///< seconds
    double landmarkBelow = 0; ///< seconds
    double beepAbove = 0;     ///< seconds
    double surfaceAbove = 0;  ///< 0 bottom to 1 top, as the camera's zoom shows it
    double surfaceBelow = 0;  ///< 0 bottom to 1 top

    static constexpr double kRate = 30000.0 / 1001.0; ///< frames per second, the program's own choice

    /// Four seconds in a small picture; drawn by the first test that asks for it. Nobody may change the files.
    static const SampleSwim& wide();
    static const SampleSwim& fourByThree();

    /// The arguments that name the recordings, with the chapters in the wrong order.
    std::vector<std::string> files() const;
    /// The files and how they fit together.
    std::vector<std::string> arguments() const;
    /// The same for copies of the files in another folder.
    SampleSwim copiedTo(const std::filesystem::path& folder) const;
};

std::vector<std::string> operator+(std::vector<std::string> a, const std::vector<std::string>& b);

}

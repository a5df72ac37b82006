// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/MediaComposition.h"
#include "support/FootageMaker.h"

#include <filesystem>
#include <string>
#include <vector>

namespace zumeta::test {

/// Footage and what a plain decode with foreign tools, from its beginning, says of it.
struct Film {
    MediaComposition source;
    std::vector<int> numbers;  ///< the bar code of each frame
    std::vector<double> times; ///< from when it is shown, seconds

    /// The number of the last frame that has begun by then.
    int numberAt(double seconds) const;
    double length() const { return source.duration().seconds(); }
};

/// A kind of footage and how its film is made.
struct FilmKind {
    const char* name;
    std::vector<FootageSpec> chapters; ///< one for a single file
    /// Makes the file to be played out of the recording, "?" in it; none: the recording itself.
    std::vector<std::string> derivation = {};
};

std::ostream& operator<<(std::ostream& out, const FilmKind& kind);
Film filmOf(const FilmKind& kind);
/// Every kind that cameras, phones and editors make.
const std::vector<FilmKind>& filmKinds();

}

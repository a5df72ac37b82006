// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "LiveSession.h"

#include "render/export/Exporting.h"
#include "support/FootageMaker.h"

namespace zumeta::test {

/// Two recordings of one swim, and the values with which a user makes a movie of them. Moments are counted in frames,
/// so that what the movie has to show can be told without the session's arithmetic.
struct FilmedSwim {
    FootageSpec above;
    FootageSpec below;
    /// Where the recordings lie; made from the specs when empty.
    std::filesystem::path aboveFile;
    std::filesystem::path belowFile;

    int aboveLock = 0; ///< the landmark's frame in each recording, counted from 0
    int belowLock = 0;
    double abovePick = 0.5; ///< height of the water surface, 0 bottom to 1 top
    double belowPick = 0.5;
    double relativeWaterlineHeight = 0; ///< reference units, like the next two
    double relativeAboveOffset = 0;
    double aboveHorizontalOffset = 0;
    double aboveZoom = 0;    ///< percent
    double timingOffset = 0; ///< hundredths of a second
    double blendAmount = 15; ///< reference units
    int firstFrame = 0;      ///< of the composite that the movie shows
    int endFrame = 0;        ///< the first that it no longer shows whole: the trim stands within it
    ExportResolutionType resolution = ExportResolutionType::hd720;

    /// One of many that differ in everything: rate, length, frame numbers, values; every second one is 4:3. No two
    /// frames of two swims have the same number.
    static FilmedSwim numbered(int index);

    /// The same with copies of the recordings as "above.mp4" and "below.mp4" in a folder that is made.
    FilmedSwim copiedTo(const std::filesystem::path& folder) const;

    std::filesystem::path file(Side side) const;
    double seconds(double frames) const; ///< of so many frames

    /// What the session has to tell after all this.
    VideoCompositionConfig expectedConfig(double compositeDuration) const;
    /// What an export has to get.
    ExportParameters expectedExport() const;
    /// What the movie has to show. A side that the timing puts between two frames shows the earlier one.
    ShownFrames expectedFrames() const;
};

/// Loads, locks, picks, adjusts and trims like a user, with a mistake that is undone, and ends in Step 4.
void makeComposition(LiveSession& live, const FilmedSwim& swim);

/// Every frame's numbers, the size and one picture of the movie, each against what the swim says.
void expectMovieOf(const FilmedSwim& swim, const std::filesystem::path& movie);

/// The bytes of a movie, those of the export's ID and date aside.
std::string contentWithoutIdAndDate(const std::filesystem::path& movie);

/// That the two have this content in common. Where the encoder does not repeat itself, that of their pictures counts.
void expectEqualMovies(const FilmedSwim& swim, const std::filesystem::path& movie, const std::filesystem::path& other);

}

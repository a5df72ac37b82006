// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "render/export/ExportService.h"
#include "support/FootageMaker.h"
#include "support/MovieProbe.h"
#include "support/ReferenceComposition.h"
#include "support/TemporaryFolder.h"

#include <optional>
#include <string>
#include <vector>

namespace zumeta::test {

/// A 720p composite of two whole recordings that begin together, half and half, as the GoPro zoom shows it.
ExportParameters compositeOf(const std::vector<std::filesystem::path>& above,
                             const std::vector<std::filesystem::path>& below);

/// The geometry of such an export as the reference takes it.
ReferenceSettings referenceOf(const ExportParameters& params);

struct ExportReport {
    ExportOutcome outcome;
    std::vector<double> progress;
    bool inTime = true;
    int turnsOfTheEventLoop = 0; ///< of a timer that fires as often as it can

    /// The error's text; empty for a finished movie.
    std::string error() const;
};

/// Exports with the event loop running, as the application does, and waits for the end. `watch` is called with every
/// report of progress.
ExportReport runExport(const ExportParameters& params, const std::filesystem::path& output,
                       const std::function<void(ExportService&, double)>& watch = {},
                       ExportEnvironment environment = {});

/// Numbers in the two parts of an exported frame; -1 where none can be read or it is the other side's.
struct ShownFrames {
    std::vector<int> above;
    std::vector<int> below;
};
ShownFrames framesShownIn(const std::filesystem::path& movie, const ExportParameters& params,
                          const PictureFormat& aboveSource, const PictureFormat& belowSource);
/// The format of an exported movie's pictures.
PictureFormat exportedFormat(const ExportParameters& params);

std::vector<int> counting(int first, int count, int step = 1);

}

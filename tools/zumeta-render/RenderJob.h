// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "model/ProjectState.h"
#include "render/export/ExportParameters.h"
#include "render/export/ExportService.h"
#include "zumeta-render/KnownAssets.h"
#include "zumeta-render/RenderArguments.h"

#include <memory>
#include <stdexcept>

namespace zumeta {

/// One line for the user; the tool ends with status 1.
class RenderFailure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A request of values and files with everything looked up that the export needs.
struct RenderJob {
    ExportParameters params;
    /// What was found out about the files: they need not be looked at twice.
    std::shared_ptr<KnownAssets> assets = std::make_shared<KnownAssets>();
    /// The composition as a project, with its bookmarks; made only when it shall be kept.
    std::optional<ProjectState> project;
    double estimatedDuration = 0; ///< seconds, for the disk space; 0 when the files tell nothing
};

/// What is written must not take the place of what is read, nor of each other. That the movie spares its recordings is
/// seen to by the export. Throws RenderFailure.
void checkPlaces(const RenderRequest& request);

/// Looks at the files of a request without a project. Throws RenderFailure.
RenderJob prepareRenderJob(const RenderRequest& request);

/// The export's surroundings for this job.
ExportEnvironment environmentOf(const RenderJob& job);

/// Throws RenderFailure when the output's volume has not enough room; does nothing when that cannot be found out.
void checkDiskSpace(const RenderJob& job, const FileUrl& output);

}

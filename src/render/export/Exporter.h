// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/Task.h"
#include "render/export/ExportError.h"
#include "render/export/ExportParameters.h"
#include "render/export/StorageRequirement.h"

#include <functional>
#include <optional>

namespace zumeta {

/// Nothing: the movie is finished. Otherwise no file is left.
using ExportOutcome = std::optional<ExportError>;

/// One export. Main thread; what takes long runs elsewhere and goes on when the object is dropped.
class Exporter {
public:
    Exporter() = default;
    virtual ~Exporter() = default;
    Exporter(const Exporter&) = delete; // an interface: copying would slice
    Exporter& operator=(const Exporter&) = delete;

    /// Nothing when the free space of the output's volume cannot be read. `exportDuration` in seconds.
    virtual Task<std::optional<StorageRequirement>>
    storageRequirement(double exportDuration, ExportResolutionType resolution, FileUrl outputURL) = 0;

    /// Starts at once. `progressHandler` gets fractions 0 to 1 in turns of the event loop, the last one before the task
    /// ends.
    virtual Task<ExportOutcome> exportComposite(ExportParameters params, FileUrl outputURL,
                                                std::function<void(double)> progressHandler) = 0;

    /// Gives the export up within a frame; it ends with ExportError::exportCancelled.
    virtual void cancel() = 0;
    virtual bool isCancelled() const = 0;
};

}

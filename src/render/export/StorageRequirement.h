// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "model/ExportSettings.h"
#include "platform/FileUrl.h"
#include "platform/Volume.h"

#include <cstdint>

namespace zumeta {

/// The disk space that an export takes, bytes.
struct StorageRequirement {
    int64_t estimatedBytes = 0; ///< of the movie
    int64_t requiredBytes = 0;  ///< with a margin
    int64_t availableBytes = 0; ///< on the output's volume; a file that will be replaced counts as free

    bool isMet() const { return availableBytes >= requiredBytes; }
    friend bool operator==(const StorageRequirement&, const StorageRequirement&) = default;
};

/// `exportDuration` in seconds. Throws std::system_error when the free space cannot be read: the volume's own error, or
/// not_supported when the volume does not tell it.
StorageRequirement storageRequirement(double exportDuration, ExportResolutionType resolution, const FileUrl& outputURL,
                                      const Volume& volume);

}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/export/StorageRequirement.h"

#include <algorithm>
#include <cmath>
#include <system_error>

namespace zumeta {

namespace {

constexpr double kContainerOverhead = 0.05;
constexpr double kMarginShare = 0.25;
constexpr int64_t kLeastMargin = 268'435'456; // 256 MiB

int64_t estimatedOutputBytes(double exportDuration, ExportResolutionType resolution)
{
    if (!(exportDuration > 0))
        return 0;
    const double bytes = double(facts(resolution).estimateRate) * exportDuration * 0.125;
    return int64_t(std::ceil(bytes + bytes * kContainerOverhead));
}

int64_t existingFileSize(const FileUrl& url)
{
    std::error_code error;
    const auto size = std::filesystem::file_size(url.path(), error);
    return error ? 0 : int64_t(size);
}

}

StorageRequirement storageRequirement(double exportDuration, ExportResolutionType resolution, const FileUrl& outputURL,
                                      const Volume& volume)
{
    StorageRequirement requirement;
    requirement.estimatedBytes = estimatedOutputBytes(exportDuration, resolution);
    const auto share = int64_t(std::trunc(double(requirement.estimatedBytes) * kMarginShare));
    requirement.requiredBytes = requirement.estimatedBytes + std::max(share, kLeastMargin);
    const std::filesystem::path folder = std::filesystem::absolute(outputURL.path()).parent_path();
    const VolumeCapacity capacity = volume.capacityOfFolder(FileUrl(folder));
    const std::optional<int64_t> free =
        capacity.availableForImportantUsage ? capacity.availableForImportantUsage : capacity.available;
    if (!free) // a volume that says nothing is not a full one
        throw std::system_error(std::make_error_code(std::errc::not_supported));
    requirement.availableBytes = *free + existingFileSize(outputURL);
    return requirement;
}

}

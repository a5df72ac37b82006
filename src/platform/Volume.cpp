// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Volume.h"

#include <algorithm>
#include <limits>
#include <system_error>

namespace zumeta {

VolumeCapacity SystemVolume::capacityOfFolder(const FileUrl& folder) const
{
    // Not QStorageInfo: it takes a QString, and a folder's name need not be UTF-8.
    std::error_code error;
    const std::filesystem::space_info space = std::filesystem::space(folder.path(), error);
    if (error)
        throw std::system_error(error);
    constexpr auto kMost = uintmax_t(std::numeric_limits<int64_t>::max());
    VolumeCapacity capacity;
    if (space.capacity > 0)
        capacity.available = int64_t(std::min<uintmax_t>(space.available, kMost));
    return capacity;
}

}

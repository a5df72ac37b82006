// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/FileUrl.h"

#include <cstdint>
#include <optional>

namespace zumeta {

/// Free space of a volume in bytes. Either may be unknown.
struct VolumeCapacity {
    std::optional<int64_t> available;
    /// What the system would make room for when the user asks for it; counts before `available` where it is known.
    std::optional<int64_t> availableForImportantUsage;
};

/// Asks for the free space of the volume that holds a folder.
class Volume {
public:
    Volume() = default;
    virtual ~Volume() = default;
    Volume(const Volume&) = delete; // an interface: copying would slice
    Volume& operator=(const Volume&) = delete;
    /// Throws std::system_error when the folder or its volume cannot be read.
    virtual VolumeCapacity capacityOfFolder(const FileUrl& folder) const = 0;
};

/// The volumes of this machine. Linux keeps nothing back for important usage: at most `available` is known, and not
/// that where a file system claims to have no blocks at all, as those do that were never taught to count.
class SystemVolume final : public Volume {
public:
    VolumeCapacity capacityOfFolder(const FileUrl& folder) const override;
};

}

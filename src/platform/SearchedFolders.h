// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/Bookmark.h"
#include "platform/Clock.h"
#include "platform/FileIdentity.h"

#include <map>
#include <set>
#include <stop_token>

namespace zumeta {

/// What one search reads of the disk, each folder and each file once, until its limits are used up. What was read
/// before that stays to be looked at.
class SearchedFolders {
public:
    struct File {
        std::filesystem::path path;
        int64_t size = 0;
    };
    struct Listing {
        std::vector<std::filesystem::path> folders; ///< to go into: neither hidden nor links
        std::vector<File> files;                    ///< regular ones of a wanted size
    };

    /// The time runs from now on. `clock` outlives this.
    SearchedFolders(std::set<int64_t> wantedSizes, BookmarkSearchLimits limits, const Clock& clock,
                    std::stop_token stop);

    const Listing& listing(const std::filesystem::path& folder);
    /// Nothing when the file cannot be read or the time is over.
    std::optional<FileIdentity> identity(const std::filesystem::path& file);

private:
    bool isOver() const { return m_stop.stop_requested() || m_clock.now() >= m_deadline; }
    Listing read(const std::filesystem::path& folder);

    std::set<int64_t> m_wantedSizes;
    size_t m_entriesLeft;
    const Clock& m_clock;
    double m_deadline;
    std::stop_token m_stop;
    std::map<std::string, Listing> m_listings;
    std::map<std::string, std::optional<FileIdentity>> m_identities;
};

/// Nothing for a file that is not there, no longer there or not for us.
std::optional<FileIdentity> identityIfReadable(const FileUrl& url);

}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/SearchedFolders.h"

#include <system_error>

namespace zumeta {

namespace {

namespace fs = std::filesystem;

bool isFolderToEnter(const fs::directory_entry& entry)
{
    std::error_code error;
    return !entry.is_symlink(error) && entry.is_directory(error) && !entry.path().filename().native().starts_with('.');
}

/// Nothing for what is no regular file.
std::optional<int64_t> sizeOf(const fs::directory_entry& entry)
{
    std::error_code error;
    if (entry.is_symlink(error) || !entry.is_regular_file(error) || error)
        return std::nullopt;
    const uintmax_t size = entry.file_size(error);
    return error ? std::nullopt : std::optional(int64_t(size));
}

/// One spelling for "/a/b", "/a/b/" and "/a/c/../b".
fs::path plainFolder(const fs::path& folder)
{
    const fs::path plain = folder.lexically_normal();
    return plain.has_filename() ? plain : plain.parent_path();
}

}

std::optional<FileIdentity> identityIfReadable(const FileUrl& url)
{
    try {
        return FileIdentity::of(url);
    } catch (const std::system_error&) {
        return std::nullopt;
    }
}

SearchedFolders::SearchedFolders(std::set<int64_t> wantedSizes, BookmarkSearchLimits limits, const Clock& clock,
                                 std::stop_token stop)
    : m_wantedSizes(std::move(wantedSizes))
    , m_entriesLeft(limits.entries)
    , m_clock(clock)
    , m_deadline(clock.now() + std::chrono::duration<double>(limits.time).count())
    , m_stop(std::move(stop))
{}

const SearchedFolders::Listing& SearchedFolders::listing(const fs::path& folder)
{
    const fs::path plain = plainFolder(folder);
    const auto known = m_listings.find(plain.native());
    return known != m_listings.end() ? known->second : m_listings.emplace(plain.native(), read(plain)).first->second;
}

SearchedFolders::Listing SearchedFolders::read(const fs::path& folder)
{
    Listing listing;
    if (m_entriesLeft == 0 || isOver())
        return listing;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error); !error && entry != fs::directory_iterator();
         entry.increment(error)) {
        --m_entriesLeft;
        if (isFolderToEnter(*entry))
            listing.folders.push_back(entry->path());
        else if (const auto size = sizeOf(*entry); size && m_wantedSizes.contains(*size))
            listing.files.push_back({entry->path(), *size});
        if (m_entriesLeft == 0 || isOver())
            break;
    }
    return listing;
}

std::optional<FileIdentity> SearchedFolders::identity(const fs::path& file)
{
    if (const auto known = m_identities.find(file.native()); known != m_identities.end())
        return known->second;
    if (isOver())
        return std::nullopt;
    return m_identities.emplace(file.native(), identityIfReadable(FileUrl(file))).first->second;
}

}

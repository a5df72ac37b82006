// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/BookmarkSearch.h"

#include "platform/BookmarkBytes.h"
#include "platform/FileKey.h"
#include "platform/SearchedFolders.h"

#include <algorithm>
#include <deque>
#include <system_error>
#include <tuple>

namespace zumeta {

namespace {

namespace fs = std::filesystem;

BookmarkError notFound(const FileUrl& url)
{
    return {BookmarkError::Kind::notFound, "Not found: " + url.displayName().toStdString()};
}

bool stillBeginsAs(const FileIdentity& wanted)
{
    try {
        return fileKeyOfLength(wanted.url, wanted.size) == wanted.key;
    } catch (const std::system_error&) {
        return false;
    }
}

/// One bookmark's file, and how it was found.
struct Wanted {
    FileIdentity identity;
    std::optional<ResolvedBookmark> found;
    /// The best of those that other bookmarks have taken, in the nearest place.
    std::optional<FileUrl> shared;

    /// The file itself may have been edited, as long as it begins as it did: a name or an inode alone proves nothing,
    /// since copying over a file keeps both.
    void lookAtItsPath()
    {
        const auto there = identityIfReadable(identity.url);
        if (there && (there->hasSameContentAs(identity) || (there->isSameFileAs(identity) && stillBeginsAs(identity))))
            found = {identity.url, *there != identity};
    }
};

enum class Depth { folderOnly, everythingBelow };

class Search {
public:
    Search(std::vector<Wanted*> wanted, SearchedFolders& folders)
        : m_wanted(std::move(wanted))
        , m_folders(folders)
    {
        for (const Wanted* const one : m_wanted) {
            if (one->found)
                take(*one, one->found->url);
        }
    }

    /// For each bookmark that has found nothing yet, the place that `placeOf` gives for it.
    template <typename PlaceOf> void look(Depth depth, const PlaceOf& placeOf)
    {
        std::map<fs::path, std::vector<Wanted*>> seekers;
        for (Wanted* const one : m_wanted) {
            if (!one->found)
                seekers[placeOf(*one)].push_back(one);
        }
        std::vector<Candidate> candidates;
        for (const auto& [place, group] : seekers)
            collect(candidates, place, depth, group);
        handOut(std::move(candidates));
    }

    void shareTheRest()
    {
        for (Wanted* const one : m_wanted) {
            if (!one->found && one->shared)
                one->found = {*one->shared, true};
        }
    }

private:
    struct Candidate {
        Wanted* seeker;
        FileUrl url;
        std::tuple<bool, bool, std::string> rank; ///< the smallest wins
    };

    void collect(std::vector<Candidate>& candidates, const fs::path& place, Depth depth,
                 const std::vector<Wanted*>& group)
    {
        // Breadth first: a moved file is more often near than deep.
        std::deque<fs::path> waiting{place};
        while (!waiting.empty()) {
            const SearchedFolders::Listing& listing = m_folders.listing(waiting.front());
            waiting.pop_front();
            consider(candidates, listing, group);
            if (depth == Depth::everythingBelow)
                waiting.insert(waiting.end(), listing.folders.begin(), listing.folders.end());
        }
    }

    void consider(std::vector<Candidate>& candidates, const SearchedFolders::Listing& listing,
                  const std::vector<Wanted*>& group)
    {
        std::vector<std::tuple<bool, const SearchedFolders::File*, Wanted*>> pairs;
        for (const SearchedFolders::File& file : listing.files) {
            for (Wanted* const one : group) {
                if (file.size == one->identity.size)
                    pairs.emplace_back(hasItsName(*one, file.path), &file, one);
            }
        }
        // Chapters are often of one length, so that any may be any: the likely ones are read while there is time.
        std::stable_partition(pairs.begin(), pairs.end(), [](const auto& pair) { return std::get<bool>(pair); });
        for (const auto& [isItsName, file, one] : pairs) {
            const auto identity = m_folders.identity(file->path);
            if (identity && identity->hasSameContentAs(one->identity))
                candidates.push_back({one,
                                      FileUrl(file->path),
                                      {!identity->isSameFileAs(one->identity), !isItsName, file->path.native()}});
        }
    }

    static bool hasItsName(const Wanted& one, const fs::path& file)
    {
        return file.filename() == one.identity.url.path().filename();
    }

    void handOut(std::vector<Candidate> candidates)
    {
        std::stable_sort(candidates.begin(), candidates.end(),
                         [](const Candidate& a, const Candidate& b) { return a.rank < b.rank; });
        for (Candidate& candidate : candidates) {
            Wanted& one = *candidate.seeker;
            if (one.found)
                continue;
            if (take(one, candidate.url))
                one.found = {std::move(candidate.url), true};
            else if (!one.shared)
                one.shared = std::move(candidate.url);
        }
    }

    /// Several bookmarks of one old path are one file's, and no rivals.
    bool take(const Wanted& one, const FileUrl& url)
    {
        const std::string& owner = one.identity.url.path().native();
        return m_owners.emplace(url.path().lexically_normal().native(), owner).first->second == owner;
    }

    std::vector<Wanted*> m_wanted;
    SearchedFolders& m_folders;
    std::map<std::string, std::string> m_owners; ///< of each file that was found, the old path
};

void search(const std::vector<Wanted*>& wanted, const std::vector<fs::path>& searchFolders, BookmarkSearchLimits limits,
            const Clock& clock, const std::stop_token& stop)
{
    std::set<int64_t> sizes;
    for (const Wanted* const one : wanted) {
        if (!one->found)
            sizes.insert(one->identity.size);
    }
    if (sizes.empty())
        return;
    SearchedFolders folders(std::move(sizes), limits, clock, stop);
    Search search(wanted, folders);
    const auto oldFolder = [](const Wanted& one) { return one.identity.url.path().parent_path(); };
    search.look(Depth::folderOnly, oldFolder);
    for (const fs::path& folder : searchFolders)
        search.look(Depth::everythingBelow, [&](const Wanted&) { return folder; });
    search.look(Depth::everythingBelow, [&](const Wanted& one) { return oldFolder(one).parent_path(); });
    search.shareTheRest();
}

}

std::vector<BookmarkOutcome> resolveBookmarks(const std::vector<QByteArray>& bookmarks,
                                              const std::vector<fs::path>& searchFolders, BookmarkSearchLimits limits,
                                              const Clock& clock, const std::stop_token& stop)
{
    std::vector<std::variant<Wanted, BookmarkError>> asked;
    for (const QByteArray& bookmark : bookmarks) {
        try {
            asked.emplace_back(Wanted{identityInBookmark(bookmark), {}, {}});
        } catch (const BookmarkError& error) {
            asked.emplace_back(error);
        }
    }
    std::vector<Wanted*> wanted;
    for (auto& one : asked) {
        if (auto* const readable = std::get_if<Wanted>(&one))
            wanted.push_back(readable);
    }
    for (Wanted* const one : wanted) {
        if (!stop.stop_requested())
            one->lookAtItsPath();
    }
    search(wanted, searchFolders, limits, clock, stop);

    std::vector<BookmarkOutcome> outcomes;
    for (const auto& one : asked) {
        if (const auto* const error = std::get_if<BookmarkError>(&one))
            outcomes.emplace_back(*error);
        else if (const auto& readable = std::get<Wanted>(one); readable.found)
            outcomes.emplace_back(*readable.found);
        else
            outcomes.emplace_back(notFound(readable.identity.url));
    }
    return outcomes;
}

}

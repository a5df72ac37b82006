// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Bookmark.h"

#include "platform/FileIdentity.h"
#include "platform/FileKey.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <deque>
#include <set>
#include <system_error>
#include <tuple>

namespace zumeta {

namespace {

namespace fs = std::filesystem;

constexpr qint64 kVersion = 1;

// Device and inode are unsigned 64-bit numbers, which JSON numbers in Qt do not hold: they travel as text.
QByteArray bytesOf(const FileIdentity& identity)
{
    QJsonObject object{
        {QStringLiteral("version"), kVersion},
        {QStringLiteral("url"), QString::fromLatin1(identity.url.absoluteString())},
        {QStringLiteral("device"), QString::number(identity.device)},
        {QStringLiteral("inode"), QString::number(identity.inode)},
        {QStringLiteral("size"), qint64(identity.size)},
        {QStringLiteral("modified"), qint64(identity.modifiedNanoseconds)},
        {QStringLiteral("key"), QString::fromLatin1(identity.key)},
    };
    if (identity.birthNanoseconds)
        object.insert(QStringLiteral("birth"), qint64(*identity.birthNanoseconds));
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

[[noreturn]] void throwMalformed()
{
    throw BookmarkError(BookmarkError::Kind::malformed, "Not a bookmark of this system");
}

int64_t integer(const QJsonValue& value)
{
    // Asked twice, because the answer for anything but an integer is the default.
    if (!value.isDouble() || value.toInteger(0) != value.toInteger(1))
        throwMalformed();
    return value.toInteger();
}

uint64_t unsignedText(const QJsonValue& value)
{
    bool isNumber = false;
    const uint64_t number = value.toString().toULongLong(&isNumber);
    if (!isNumber)
        throwMalformed();
    return number;
}

FileIdentity identityOf(const QByteArray& bookmark)
{
    const QJsonObject object = QJsonDocument::fromJson(bookmark).object();
    if (integer(object.value(QLatin1String("version"))) != kVersion)
        throwMalformed();
    const auto url = FileUrl::fromAbsoluteString(object.value(QLatin1String("url")).toString().toUtf8());
    if (!url || url->path().empty())
        throwMalformed();
    FileIdentity identity;
    identity.url = *url;
    identity.device = unsignedText(object.value(QLatin1String("device")));
    identity.inode = unsignedText(object.value(QLatin1String("inode")));
    identity.size = integer(object.value(QLatin1String("size")));
    identity.modifiedNanoseconds = integer(object.value(QLatin1String("modified")));
    if (const QJsonValue birth = object.value(QLatin1String("birth")); !birth.isUndefined())
        identity.birthNanoseconds = integer(birth);
    identity.key = object.value(QLatin1String("key")).toString().toLatin1();
    if (identity.key.size() != 64)
        throwMalformed();
    return identity;
}

std::optional<FileIdentity> identityIfReadable(const FileUrl& url)
{
    try {
        return FileIdentity::of(url);
    } catch (const std::system_error&) {
        return std::nullopt; // not there, no longer there or not for us: the search goes on
    }
}

/// Looks for a content in one folder after another until the limits are used up.
class Search {
public:
    enum class Depth { folderOnly, everythingBelow };

    Search(const FileIdentity& wanted, BookmarkSearchLimits limits)
        : m_wanted(wanted)
        , m_entriesLeft(limits.entries)
        , m_deadline(std::chrono::steady_clock::now() + limits.time)
    {}

    std::optional<FileUrl> in(const fs::path& top, Depth depth)
    {
        m_best.reset();
        // Breadth first: a moved file is more often near than deep.
        std::deque<fs::path> folders{top};
        while (!folders.empty() && !isUsedUp()) {
            const fs::path folder = std::move(folders.front());
            folders.pop_front();
            std::error_code error;
            for (fs::directory_iterator entry(folder, error); !error && entry != fs::directory_iterator();
                 entry.increment(error)) {
                if (isUsedUp())
                    break;
                --m_entriesLeft;
                if (depth == Depth::everythingBelow && isFolderToEnter(*entry))
                    folders.push_back(entry->path());
                else
                    consider(*entry);
            }
        }
        return m_best ? std::optional(m_best->url) : std::nullopt;
    }

private:
    struct Candidate {
        FileUrl url;
        std::tuple<bool, bool, std::string> rank; ///< the smallest wins
    };

    bool isUsedUp() const { return m_entriesLeft == 0 || std::chrono::steady_clock::now() >= m_deadline; }

    static bool isFolderToEnter(const fs::directory_entry& entry)
    {
        std::error_code error;
        return !entry.is_symlink(error) && entry.is_directory(error) &&
               !entry.path().filename().native().starts_with('.');
    }

    void consider(const fs::directory_entry& entry)
    {
        // Only files of the right length are opened at all; each is read once, however often its folder comes up.
        std::error_code error;
        if (entry.is_symlink(error) || !entry.is_regular_file(error) || error ||
            entry.file_size(error) != uintmax_t(m_wanted.size) || error)
            return;
        if (!m_read.insert(entry.path().native()).second)
            return;
        const FileUrl url(entry.path());
        const auto found = identityIfReadable(url);
        if (!found || !found->hasSameContentAs(m_wanted))
            return;
        Candidate candidate{url,
                            {!found->isSameFileAs(m_wanted),
                             url.lastPathComponent() != m_wanted.url.lastPathComponent(), url.path().native()}};
        if (!m_best || candidate.rank < m_best->rank)
            m_best = std::move(candidate);
    }

    const FileIdentity& m_wanted;
    size_t m_entriesLeft;
    std::chrono::steady_clock::time_point m_deadline;
    std::optional<Candidate> m_best;
    std::set<std::string> m_read;
};

}

QByteArray makeBookmark(const FileUrl& url)
{
    try {
        return bytesOf(FileIdentity::of(url));
    } catch (const std::system_error& error) {
        throw BookmarkError(BookmarkError::Kind::unreadableFile,
                            url.displayName().toStdString() + ": " + error.code().message());
    }
}

ResolvedBookmark resolveBookmark(const QByteArray& bookmark, const std::vector<fs::path>& searchFolders,
                                 BookmarkSearchLimits limits)
{
    const FileIdentity wanted = identityOf(bookmark);
    if (const auto there = identityIfReadable(wanted.url);
        there && (there->isSameFileAs(wanted) || there->hasSameContentAs(wanted)))
        return {wanted.url, *there != wanted};

    const fs::path oldFolder = wanted.url.path().parent_path();
    Search search(wanted, limits);
    std::optional<FileUrl> found = search.in(oldFolder, Search::Depth::folderOnly);
    for (size_t i = 0; i < searchFolders.size() && !found; ++i)
        found = search.in(searchFolders[i], Search::Depth::everythingBelow);
    if (!found)
        found = search.in(oldFolder.parent_path(), Search::Depth::everythingBelow);
    if (!found)
        throw BookmarkError(BookmarkError::Kind::notFound, "Not found: " + wanted.url.displayName().toStdString());
    return {*found, true};
}

}

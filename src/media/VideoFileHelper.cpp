// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/VideoFileHelper.h"

#include "platform/Log.h"

#include <algorithm>

namespace zumeta {

namespace {

/// The length of the UTF-8 sequence that a byte begins by its own account; 0 when it begins none.
size_t announcedLength(unsigned char byte)
{
    if (byte < 0x80)
        return 1;
    if (byte >= 0xc2 && byte < 0xe0)
        return 2;
    if (byte >= 0xe0 && byte < 0xf0)
        return 3;
    return byte >= 0xf0 && byte < 0xf5 ? 4 : 0;
}

/// The length of the valid UTF-8 sequence at the start of `bytes`, or 0.
size_t validLength(std::string_view bytes)
{
    const size_t length = announcedLength(static_cast<unsigned char>(bytes.front()));
    if (length == 0 || length > bytes.size() || !QUtf8StringView(bytes.data(), qsizetype(length)).isValidUtf8())
        return 0;
    return length;
}

/// The name as the code points that it is ordered by.
std::u32string orderingKey(const FileUrl& url)
{
    constexpr char32_t kPastAllCharacters = 0x110000;
    const std::string name = url.lastPathComponent();
    const std::string_view bytes = name;
    std::u32string key;
    for (size_t i = 0; i < bytes.size();) {
        // As long a run as possible: composition joins what stands beside each other.
        size_t end = i;
        while (end < bytes.size()) {
            const size_t length = validLength(bytes.substr(end));
            if (length == 0)
                break;
            end += length;
        }
        const QString run = QString::fromUtf8(bytes.data() + i, qsizetype(end - i));
        key += run.normalized(QString::NormalizationForm_C).toStdU32String();
        if (end < bytes.size())
            key.push_back(kPastAllCharacters + static_cast<unsigned char>(bytes[end++]));
        i = end;
    }
    return key;
}

bool isVideo(const FileUrl& url)
{
    return VideoFileHelper::supportedExtensions().contains(url.lowerCaseExtension());
}

}

bool FileNameOrder::operator()(const FileUrl& a, const FileUrl& b) const
{
    return orderingKey(a) < orderingKey(b);
}

const std::set<std::string>& VideoFileHelper::supportedExtensions()
{
    static const std::set<std::string> extensions{"mp4", "mov", "m4v", "avi", "mkv"};
    return extensions;
}

std::vector<FileUrl> VideoFileHelper::sortedByName(std::vector<FileUrl> urls)
{
    std::stable_sort(urls.begin(), urls.end(), FileNameOrder());
    return urls;
}

std::vector<FileUrl> VideoFileHelper::sortedVideoURLs(std::vector<FileUrl> urls)
{
    std::erase_if(urls, [](const FileUrl& url) { return !isVideo(url); });
    return sortedByName(std::move(urls));
}

std::vector<FileUrl> VideoFileHelper::loadDroppedVideoURLs(const std::vector<DroppedItem>& items)
{
    std::vector<FileUrl> urls;
    for (const DroppedItem& item : items) {
        if (const auto* failure = std::get_if<DropFailure>(&item))
            logLine(QStringLiteral("Drop error for provider: ") + failure->text);
        const auto* bytes = std::get_if<QByteArray>(&item);
        const auto url = bytes != nullptr ? FileUrl::fromAbsoluteString(*bytes) : std::nullopt;
        if (url && isVideo(*url))
            urls.push_back(*url);
    }
    return sortedVideoURLs(std::move(urls));
}

}

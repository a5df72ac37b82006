// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QByteArray>
#include <compare>
#include <filesystem>
#include <optional>

namespace zumeta {

/// The location of a file on this machine. It keeps the path's bytes as they are on disk, also when they are not
/// UTF-8, which neither QString nor QUrl can promise.
class FileUrl {
public:
    FileUrl() = default;
    explicit FileUrl(std::filesystem::path path);

    /// Reads "file:///…" with percent-encoding. Nothing when it is not a file URL of this machine, has a broken escape
    /// or an encoded null byte.
    static std::optional<FileUrl> fromAbsoluteString(const QByteArray& text);
    /// "file://" and the path, everything percent-encoded that a URL's path may not hold as it stands.
    QByteArray absoluteString() const;

    const std::filesystem::path& path() const { return m_path; }
    /// The file's name without its folder, as bytes.
    std::string lastPathComponent() const;
    /// What follows the last dot of the name, ASCII letters in lower case; empty for ".mp4", "clip" and "clip.".
    std::string lowerCaseExtension() const;
    /// The name for people: bytes that are not UTF-8 become the replacement character.
    QString displayName() const;

    friend bool operator==(const FileUrl&, const FileUrl&) = default;

private:
    std::filesystem::path m_path;
};

}

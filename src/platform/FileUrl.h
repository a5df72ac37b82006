// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QByteArray>
#include <QString>
#include <filesystem>
#include <optional>
#include <string>

namespace zumeta {

/// The location of a file on this machine. It keeps the path's bytes as they are on disk, also when they are not
/// UTF-8, which neither QString nor QUrl can promise. The path is absolute or empty.
class FileUrl {
public:
    FileUrl() = default;
    /// A relative path is taken from the working folder.
    explicit FileUrl(std::filesystem::path path);

    /// Reads "file:///…" or "file:/…" with percent-encoding. Nothing when it is not a file URL of this machine, has a
    /// broken escape, a query, a fragment or a null byte.
    static std::optional<FileUrl> fromAbsoluteString(const QByteArray& text);
    /// "file://" and the path, everything percent-encoded that a URL's path may not hold as it stands.
    QByteArray absoluteString() const;

    const std::filesystem::path& path() const { return m_path; }
    /// The name without its folder, as bytes; slashes at the end do not count, and "/" is its own name.
    std::string lastPathComponent() const;
    /// What follows the last dot of the name, ASCII letters in lower case; empty for ".mp4", "clip" and "clip.".
    std::string lowerCaseExtension() const;
    /// The name for people: bytes that are not UTF-8 become the replacement character.
    QString displayName() const;

    /// By bytes: two spellings of one place differ.
    friend bool operator==(const FileUrl& a, const FileUrl& b) { return a.m_path.native() == b.m_path.native(); }

private:
    std::filesystem::path m_path;
};

}

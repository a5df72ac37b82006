// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <stdexcept>
#include <string>

namespace zumeta {

/// Why a project file could not be read or written. The text is one line; where a key is at fault it begins with its
/// path, such as "aboveVideo.fileURLs[0]: not a file URL".
class ProjectFileError : public std::runtime_error {
public:
    enum class Kind {
        fileReadCorruptFile, ///< there were no contents to read
        fileNotReadable,     ///< the file system refused
        notJson,
        missingKey,     ///< a required key is absent or null
        wrongType,      ///< another JSON type than the key has
        invalidValue,   ///< the right JSON type, but not a date, UUID, known choice, number in range...
        notWritable,    ///< the state holds what the format cannot
        fileNotWritten, ///< the file system refused
    };
    ProjectFileError(Kind kind, std::string keyPath, const std::string& reason)
        : std::runtime_error(keyPath.empty() ? reason : keyPath + ": " + reason)
        , m_kind(kind)
        , m_keyPath(std::move(keyPath))
    {}

    Kind kind() const { return m_kind; }
    /// Empty when the file as a whole is at fault.
    const std::string& keyPath() const { return m_keyPath; }
    /// The same failure, told of a certain file.
    ProjectFileError inFile(const std::string& fileName) const { return {*this, fileName}; }

private:
    ProjectFileError(const ProjectFileError& error, const std::string& fileName)
        : std::runtime_error(fileName + ": " + error.what())
        , m_kind(error.m_kind)
        , m_keyPath(error.m_keyPath)
    {}

    Kind m_kind;
    std::string m_keyPath;
};

}

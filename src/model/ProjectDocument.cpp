// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/ProjectDocument.h"

#include "model/ProjectFileError.h"
#include "platform/FileBytes.h"

#include <system_error>

namespace zumeta {

namespace {

/// Thousands of times what a project takes: keeps a file that was chosen by mistake out of memory.
constexpr qsizetype kLargestProjectFile = qsizetype(16) << 20;

/// The name as it may stand in a line of text.
std::string shownName(const FileUrl& url)
{
    QString name = url.displayName();
    for (QChar& c : name) {
        if (c.category() == QChar::Other_Control)
            c = QLatin1Char('?');
    }
    return name.toStdString();
}

}

ProjectDocument ProjectDocument::fromContents(const std::optional<QByteArray>& contents)
{
    if (!contents)
        throw ProjectFileError(ProjectFileError::Kind::fileReadCorruptFile, {}, "The file has no contents to read");
    return {ProjectState::decode(*contents)};
}

ProjectState readProjectFile(const FileUrl& url)
{
    try {
        return ProjectDocument::fromContents(readFileBytes(url, kLargestProjectFile)).projectState;
    } catch (const ProjectFileError& error) {
        throw error.inFile(shownName(url));
    } catch (const std::system_error& error) {
        throw ProjectFileError(ProjectFileError::Kind::fileNotReadable, {}, error.code().message())
            .inFile(shownName(url));
    }
}

void writeProjectFile(const FileUrl& url, const ProjectState& state)
{
    try {
        replaceFileBytes(url, ProjectDocument{state}.fileContents());
    } catch (const ProjectFileError& error) {
        throw error.inFile(shownName(url));
    } catch (const std::system_error& error) {
        throw ProjectFileError(ProjectFileError::Kind::fileNotWritten, {}, error.code().message())
            .inFile(shownName(url));
    }
}

}

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "model/ProjectState.h"

namespace zumeta {

/// A project file: what the save dialog is handed and the open dialog gives.
struct ProjectDocument {
    /// Of a project file's name, without the dot. The only type that is read and written.
    static constexpr char kFileExtension[] = "zumetaproj";

    ProjectState projectState;

    /// Absent contents throw ProjectFileError (fileReadCorruptFile); other failures are the decoder's.
    static ProjectDocument fromContents(const std::optional<QByteArray>& contents);
    /// Passes the encoder's error on.
    QByteArray fileContents() const { return projectState.encode(); }

    friend bool operator==(const ProjectDocument&, const ProjectDocument&) = default;
};

/// Reads and decodes a project file. The error's text is one line that begins with the file's name.
ProjectState readProjectFile(const FileUrl& url);

/// Writes a project file so that an old one stays whole until the new one is complete; on failure it is as before. The
/// error's text is one line that begins with the file's name.
void writeProjectFile(const FileUrl& url, const ProjectState& state);

}

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "model/ProjectFileError.h"
#include "model/ProjectState.h"
#include "platform/Task.h"

#include <QThreadPool>
#include <optional>
#include <variant>

namespace zumeta {

using ProjectReadOutcome = std::variant<ProjectState, ProjectFileError>;
/// Nothing: the file is written.
using ProjectWriteOutcome = std::optional<ProjectFileError>;

/// Reads and writes project files without keeping the main thread waiting. Main thread.
class ProjectFiles {
public:
    ProjectFiles() = default;
    virtual ~ProjectFiles() = default;
    ProjectFiles(const ProjectFiles&) = delete; // an interface: copying would slice
    ProjectFiles& operator=(const ProjectFiles&) = delete;

    virtual Task<ProjectReadOutcome> read(FileUrl url) = 0;
    /// On failure the old file is as it was. Of two writes the later one wins.
    virtual Task<ProjectWriteOutcome> write(FileUrl url, ProjectState state) = 0;
};

/// On a thread of its own, one file after the other. Waits at its end for what is under way: a project that is being
/// kept is kept.
class ThreadedProjectFiles final : public ProjectFiles {
public:
    ThreadedProjectFiles();
    Task<ProjectReadOutcome> read(FileUrl url) override;
    Task<ProjectWriteOutcome> write(FileUrl url, ProjectState state) override;

private:
    QThreadPool m_thread;
};

}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/ProjectFiles.h"

#include "model/ProjectDocument.h"

#include <QCoroFuture>
#include <QtConcurrentRun>

namespace zumeta {

namespace {

ProjectReadOutcome readNow(const FileUrl& url)
{
    try {
        return readProjectFile(url);
    } catch (const ProjectFileError& error) {
        return error;
    }
}

ProjectWriteOutcome writeNow(const FileUrl& url, const ProjectState& state)
{
    try {
        writeProjectFile(url, state);
        return std::nullopt;
    } catch (const ProjectFileError& error) {
        return error;
    }
}

}

ThreadedProjectFiles::ThreadedProjectFiles()
{
    m_thread.setMaxThreadCount(1);
}

// The futures are named first: awaiting the call itself destroys its captures twice under GCC 12.
Task<ProjectReadOutcome> ThreadedProjectFiles::read(FileUrl url)
{
    const QFuture<ProjectReadOutcome> outcome = QtConcurrent::run(&m_thread, readNow, std::move(url));
    co_return co_await outcome;
}

Task<ProjectWriteOutcome> ThreadedProjectFiles::write(FileUrl url, ProjectState state)
{
    const QFuture<ProjectWriteOutcome> outcome =
        QtConcurrent::run(&m_thread, writeNow, std::move(url), std::move(state));
    co_return co_await outcome;
}

}

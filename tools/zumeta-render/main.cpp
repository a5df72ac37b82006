// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/ProjectDocument.h"
#include "model/ProjectFileError.h"
#include "platform/Log.h"
#include "render/export/ExportService.h"
#include "zumeta-render/InterruptWatcher.h"
#include "zumeta-render/ProgressDisplay.h"
#include "zumeta-render/RenderJob.h"

#include <QCoreApplication>
#include <QFutureWatcher>
#include <csignal>
#include <cstdio>
#include <unistd.h>

namespace {

using namespace zumeta;

enum ExitStatus { done = 0, failed = 1, wrongUsage = 2 };

ProgressDisplay::Style progressStyle(bool quiet)
{
    if (quiet)
        return ProgressDisplay::Style::silent;
    return ::isatty(STDOUT_FILENO) ? ProgressDisplay::Style::bar : ProgressDisplay::Style::lines;
}

int fail(const std::string& text)
{
    std::fprintf(stderr, "zumeta-render: %s\n", text.c_str());
    return failed;
}

/// Runs the event loop until the export has ended.
ExportOutcome exportAndWait(const RenderJob& job, const RenderRequest& request)
{
    ProgressDisplay progress(progressStyle(request.quiet));
    ExportService service;
    const InterruptWatcher interrupts;
    QObject::connect(&interrupts, &InterruptWatcher::interrupted, [&service] { service.cancel(); });
    QFutureWatcher<ExportOutcome> watcher;
    QObject::connect(&watcher, &QFutureWatcherBase::finished, QCoreApplication::instance(), &QCoreApplication::quit);
    watcher.setFuture(
        service.exportComposite(job.params, request.output, [&progress](double fraction) { progress.show(fraction); }));
    QCoreApplication::exec();
    progress.end();
    return watcher.result();
}

int render(const RenderRequest& request)
{
    try {
        const RenderJob job = prepareRenderJob(request);
        checkDiskSpace(job, request.output);
        if (const ExportOutcome outcome = exportAndWait(job, request))
            return fail(outcome->errorDescription().toStdString());
        if (request.keep && job.project)
            writeProjectFile(*request.keep, *job.project);
        return done;
    } catch (const RenderFailure& failure) {
        return fail(failure.what());
    } catch (const ProjectFileError& error) {
        return fail(error.what());
    }
}

}

int main(int argc, char** argv)
{
    // A file that grows past a limit is an error of the write, told like a full disk, and no reason to be killed.
    std::signal(SIGXFSZ, SIG_IGN);
    const QCoreApplication application(argc, argv);
    const LogCapture noLines([](const QString&) {});
    const auto parsed = parseRenderArguments({argv + 1, argv + argc});
    if (std::holds_alternative<HelpWanted>(parsed)) {
        std::fputs(kRenderUsage, stdout);
        return done;
    }
    if (const auto* const wrong = std::get_if<WrongUsage>(&parsed)) {
        std::fprintf(stderr, "zumeta-render: %s\nTry 'zumeta-render --help'.\n", wrong->reason.c_str());
        return wrongUsage;
    }
    return render(std::get<RenderRequest>(parsed));
}

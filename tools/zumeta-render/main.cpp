// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/ProjectDocument.h"
#include "model/ProjectFileError.h"
#include "platform/Log.h"
#include "platform/interrupts/InterruptWatcher.h"
#include "render/export/ExportService.h"
#include "zumeta-render/ProgressDisplay.h"
#include "zumeta-render/ProjectRender.h"
#include "zumeta-render/RenderJob.h"

#include <QCoreApplication>
#include <QFutureWatcher>
#include <algorithm>
#include <csignal>
#include <cstdio>
#include <string_view>
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

/// One line whatever stands in it: file names may hold line breaks and worse.
int fail(std::string text)
{
    std::replace_if(
        text.begin(), text.end(), [](unsigned char c) { return c < 0x20 || c == 0x7f; }, '?');
    std::fprintf(stderr, "zumeta-render: %s\n", text.c_str());
    return failed;
}

/// Ends the program while nothing is on disk that would have to be cleaned up. May run at any point of it.
void giveUpAtOnce(int)
{
    constexpr std::string_view kText = "zumeta-render: Export was cancelled\n";
    [[maybe_unused]] const ssize_t written = ::write(STDERR_FILENO, kText.data(), kText.size());
    ::_exit(failed);
}

/// Runs the event loop until the export has ended.
ExportOutcome exportAndWait(const RenderJob& job, const RenderRequest& request, const InterruptWatcher& interrupts)
{
    ProgressDisplay progress(progressStyle(request.quiet));
    ExportService service(environmentOf(job));
    QObject::connect(&interrupts, &InterruptWatcher::interrupted, [&service] { service.cancel(); });
    QFutureWatcher<ExportOutcome> watcher;
    QObject::connect(&watcher, &QFutureWatcherBase::finished, QCoreApplication::instance(), &QCoreApplication::quit);
    watcher.setFuture(
        service.start(job.params, request.output, [&progress](double fraction) { progress.show(fraction); }));
    QCoreApplication::exec();
    progress.end();
    return watcher.result();
}

int render(const RenderRequest& request)
{
    try {
        if (request.project) {
            renderProject(request, progressStyle(request.quiet));
            return done;
        }
        const RenderJob job = prepareRenderJob(request);
        checkDiskSpace(job, request.output);
        // Lives until the project is kept as well: by then it is too late to cancel, and a half kept one helps nobody.
        const InterruptWatcher interrupts;
        if (const ExportOutcome outcome = exportAndWait(job, request, interrupts))
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
    // Whoever reads the progress may go away without taking the movie along.
    std::signal(SIGPIPE, SIG_IGN);
    onInterrupt(giveUpAtOnce);
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

// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/export/ExportService.h"

#include "render/export/ExportRun.h"

#include <QCoroFuture>
#include <QThreadPool>
#include <QtConcurrentRun>

namespace zumeta {

namespace {

/// Exports block their thread for minutes, which would starve whatever else shares a pool.
QThreadPool& exportThreads()
{
    static QThreadPool pool;
    pool.setMaxThreadCount(16);
    return pool;
}

/// `co_await NextTurn{home}` goes on in a later turn of home's event loop, after all that was posted to it before.
struct NextTurn {
    QObject* home;
    bool await_ready() const noexcept { return false; }
    void await_suspend(std::coroutine_handle<> task)
    {
        QMetaObject::invokeMethod(
            home, [task] { task.resume(); }, Qt::QueuedConnection);
    }
    void await_resume() const noexcept {}
};

std::optional<StorageRequirement> readStorageRequirement(double exportDuration, ExportResolutionType resolution,
                                                         const FileUrl& outputURL,
                                                         const std::shared_ptr<const Volume>& volume)
{
    try {
        return zumeta::storageRequirement(exportDuration, resolution, outputURL, *volume);
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

}

/// What the caller's thread and the export's thread share.
class ExportService::Run {
public:
    std::stop_source stop;
    /// Lives on the caller's thread, where calls that are posted to it run.
    std::unique_ptr<QObject, void (*)(QObject*)> home{new QObject, [](QObject* object) { object->deleteLater(); }};
};

ExportService::ExportService(ExportEnvironment environment)
    : m_environment(std::move(environment))
    , m_run(std::make_shared<Run>())
{}

ExportService::~ExportService() = default;

Task<std::optional<StorageRequirement>>
ExportService::storageRequirement(double exportDuration, ExportResolutionType resolution, FileUrl outputURL)
{
    // On a thread: a disk far away may take its time to answer.
    const QFuture<std::optional<StorageRequirement>> requirement = QtConcurrent::run(
        &exportThreads(), readStorageRequirement, exportDuration, resolution, outputURL, m_environment.volume);
    co_return co_await requirement;
}

Task<ExportOutcome> ExportService::exportComposite(ExportParameters params, FileUrl outputURL,
                                                   std::function<void(double)> progressHandler)
{
    const std::shared_ptr<Run> run = m_run; // the service may go meanwhile
    const QFuture<ExportOutcome> outcome = start(params, outputURL, std::move(progressHandler));
    co_await outcome;
    // A future that has ended already is not waited for, and its last reports of progress are still on their way.
    co_await NextTurn{run->home.get()};
    co_return outcome.result();
}

QFuture<ExportOutcome> ExportService::start(const ExportParameters& params, const FileUrl& outputURL,
                                            std::function<void(double)> progressHandler)
{
    const auto report = [run = m_run, handler = std::move(progressHandler)](double fraction) {
        QMetaObject::invokeMethod(
            run->home.get(), [handler, fraction] { handler(fraction); }, Qt::QueuedConnection);
    };
    return QtConcurrent::run(&exportThreads(),
                             [run = m_run, params, outputURL, environment = m_environment, report]() -> ExportOutcome {
                                 return ExportRun(params, outputURL, environment, run->stop.get_token(), report).run();
                             });
}

void ExportService::cancel()
{
    m_run->stop.request_stop();
}

bool ExportService::isCancelled() const
{
    return m_run->stop.stop_requested();
}

void ExportService::waitUntilAllHaveEnded()
{
    exportThreads().waitForDone();
}

}

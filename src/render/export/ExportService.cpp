// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/export/ExportService.h"

#include "render/export/ExportRun.h"

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

QFuture<ExportOutcome> ExportService::exportComposite(const ExportParameters& params, const FileUrl& outputURL,
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

}

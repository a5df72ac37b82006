// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/ProxyGenerator.h"

#include "media/UnfinishedProxies.h"
#include "media/movie/MovieError.h"
#include "platform/BackgroundPriority.h"
#include "platform/FileKey.h"
#include "platform/Log.h"

#include <QCoroFuture>
#include <QPointer>
#include <QPromise>
#include <QStandardPaths>
#include <QtConcurrentRun>
#include <algorithm>
#include <atomic>
#include <thread>

namespace zumeta {

namespace {

constexpr double kProgressInterval = 0.1; // seconds
/// Keys are short work, but one that hangs on a network must not hold up the other side's.
constexpr int kFileThreads = 2;
/// More than sessions ever ask for at once: none waits for another.
constexpr int kMostExports = 16;

using KeyOutcome = std::variant<std::string, ProxyError>;
using ProxyCache = std::map<std::string, FileUrl>;

KeyOutcome keyOf(const FileUrl& url)
{
    try {
        return fileKey(url).toStdString();
    } catch (const std::exception& error) {
        return ProxyError::fileKeyFailed(QString::fromUtf8(error.what()));
    }
}

bool isFile(const FileUrl& url)
{
    std::error_code ignored;
    return std::filesystem::is_regular_file(url.path(), ignored);
}

/// The proxy that is there already: where it is known to be, else where it would be made.
std::optional<FileUrl> findProxy(const std::optional<FileUrl>& known, const FileUrl& output)
{
    if (known && isFile(*known))
        return known;
    return isFile(output) ? std::optional(output) : std::nullopt;
}

/// Everything in the folder by its name, whatever it is: a stray file bears no key that anybody asks for.
ProxyCache scan(const std::filesystem::path& folder, const std::shared_ptr<UnfinishedProxies>& unfinished)
{
    try {
        unfinished->clearAbandoned();
    } catch (const std::exception& error) {
        logLine(QStringLiteral("Unfinished proxies stay: ") + QString::fromUtf8(error.what()));
    }
    ProxyCache found;
    std::error_code error;
    auto entry = std::filesystem::recursive_directory_iterator(
        folder, std::filesystem::directory_options::skip_permission_denied, error);
    for (; !error && entry != std::filesystem::recursive_directory_iterator(); entry.increment(error))
        found.insert_or_assign(entry->path().stem().native(), FileUrl(entry->path()));
    return found;
}

std::filesystem::path besideFor(const std::filesystem::path& folder)
{
    const std::filesystem::path named = folder.has_filename() ? folder : folder.parent_path();
    return named.parent_path() / (named.filename().native() + "InProgress");
}

/// All that a worker needs to make one proxy.
struct ExportJob {
    FileUrl source;
    std::string key;
    FileUrl output;
    int threads = 1;
    std::stop_token stop;
    std::function<void(double)> progress;
    std::shared_ptr<UnfinishedProxies> unfinished;
    ProxyExportOpener open;
};

void write(const ExportJob& job, const ProxyExport& proxyExport)
{
    const FileUrl place = job.unfinished->place(job.output.lastPathComponent());
    try {
        proxyExport(place, job.progress);
        // A recording that was replaced meanwhile has another key, under which this proxy would not be its own.
        if (fileKey(job.source).toStdString() != job.key)
            throw MovieError(MovieError::Kind::cannotOpen,
                             job.source.lastPathComponent() + " has changed while its proxy was made");
        UnfinishedProxies::publish(place, job.output);
    } catch (...) {
        std::error_code ignored;
        std::filesystem::remove(place.path(), ignored);
        throw;
    }
}

ProxyOutcome exportNow(const ExportJob& job)
{
    standBackInBackground();
    ProxyExport proxyExport;
    try {
        proxyExport = job.open(job.source, job.threads, job.stop);
    } catch (const std::exception& error) {
        if (job.stop.stop_requested())
            return ProxyError::exportCancelled();
        logLine(QStringLiteral("No proxy can be made: ") + QString::fromUtf8(error.what()));
        return ProxyError::exportSessionCreationFailed();
    }
    try {
        write(job, proxyExport);
        return job.output;
    } catch (const std::exception& error) {
        const auto* const movieError = dynamic_cast<const MovieError*>(&error);
        if (job.stop.stop_requested() || (movieError && movieError->kind() == MovieError::Kind::cancelled))
            return ProxyError::exportCancelled();
        logLine(QStringLiteral("A proxy failed: ") + QString::fromUtf8(error.what()));
        return ProxyError::exportFailed(QString::fromUtf8(error.what()));
    }
}

}

/// One key that is being looked for or exported, with everybody who waits for it.
struct ProxyGenerator::Session {
    Session(std::string keyOfSource, FileUrl url, ProxyConfig requested, FileUrl place)
        : key(std::move(keyOfSource))
        , source(std::move(url))
        , config(std::move(requested))
        , output(std::move(place))
    {
        end.start();
    }

    const std::string key;
    const FileUrl source;
    const ProxyConfig config;
    const FileUrl output;
    std::vector<Progress> listeners;
    QPromise<ProxyOutcome> end; ///< always finished: a future that is dropped would never wake who waits for it
    bool hasEnded = false;
    std::stop_source stop;
    std::atomic<double> fraction = 0; ///< written by the worker
};

std::filesystem::path ProxyGenerator::defaultProxyDirectory()
{
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    if (data.isEmpty())
        qFatal("no folder for the data of applications");
    return std::filesystem::path(data.toStdString()) / "ZumetaApp" / "Proxies";
}

ProxyGenerator::ProxyGenerator(MainQueue& queue, std::filesystem::path proxyDirectory, ProxyExportOpener openExport)
    : m_queue(queue)
    , m_proxyDirectory(std::move(proxyDirectory))
    , m_openExport(std::move(openExport))
    , m_unfinished(std::make_shared<UnfinishedProxies>(besideFor(m_proxyDirectory)))
{
    m_files.setMaxThreadCount(kFileThreads);
    m_exports.setMaxThreadCount(kMostExports);
    std::error_code ignored; // an export says what is wrong with it
    std::filesystem::create_directories(m_proxyDirectory, ignored);
    loadCache();
}

ProxyGenerator::~ProxyGenerator()
{
    for (const auto& [key, session] : m_running)
        session->stop.request_stop();
    m_exports.waitForDone();
    m_files.waitForDone();
    for (const auto& [key, session] : std::exchange(m_running, {})) {
        session->hasEnded = true;
        session->end.addResult(ProxyError::exportCancelled());
        session->end.finish();
    }
}

Task<> ProxyGenerator::loadCache()
{
    const QPointer<ProxyGenerator> self(this);
    const QFuture<ProxyCache> scanning = QtConcurrent::run(&m_files, scan, m_proxyDirectory, m_unfinished);
    ProxyCache found = co_await scanning;
    // What requests have entered meanwhile is newer than what was found, and stays.
    if (self)
        m_proxyCache.merge(found);
}

Task<ProxyOutcome> ProxyGenerator::generateProxy(FileUrl url, ProxyConfig config, Progress progress)
{
    const QPointer<ProxyGenerator> self(this);
    const QFuture<KeyOutcome> hashing = QtConcurrent::run(&m_files, keyOf, url);
    const KeyOutcome outcomeOfKey = co_await hashing;
    if (!self)
        co_return ProxyError::exportCancelled();
    if (const ProxyError* const error = std::get_if<ProxyError>(&outcomeOfKey))
        co_return *error;
    const std::string key = std::get<std::string>(outcomeOfKey);
    SharedSession session = m_running[key];
    const bool isFirst = !session;
    if (isFirst) {
        const FileUrl output(m_proxyDirectory / (key + "." + config.fileExtension.toStdString()));
        session = std::make_shared<Session>(key, url, config, output);
        m_running[key] = session;
    }
    if (progress)
        session->listeners.push_back(std::move(progress));
    const QFuture<ProxyOutcome> end = session->end.future();
    if (isFirst)
        run(session);
    co_return co_await end;
}

Task<> ProxyGenerator::run(SharedSession session)
{
    const QPointer<ProxyGenerator> self(this);
    const auto known = m_proxyCache.find(session->key);
    const QFuture<std::optional<FileUrl>> finding =
        QtConcurrent::run(&m_files, findProxy,
                          known != m_proxyCache.end() ? std::optional(known->second) : std::nullopt, session->output);
    const std::optional<FileUrl> found = co_await finding;
    if (!self)
        co_return;
    if (found) {
        conclude(session, *found);
    } else if (session->config.presetName != ProxyConfig::defaultConfig().presetName) {
        conclude(session, ProxyError::exportSessionCreationFailed());
    } else {
        const ProxyOutcome outcome = co_await exported(session);
        if (self)
            conclude(session, outcome);
    }
}

Task<ProxyOutcome> ProxyGenerator::exported(SharedSession session)
{
    const int threads = threadsForOneMore();
    m_activeSessions[session->source.path()] = session;
    const ExportJob job{session->source,
                        session->key,
                        session->output,
                        threads,
                        session->stop.get_token(),
                        [session](double fraction) { session->fraction = fraction; },
                        m_unfinished,
                        m_openExport};
    const QFuture<ProxyOutcome> exporting = QtConcurrent::run(&m_exports, exportNow, job);
    showProgress(session);
    co_return co_await exporting;
}

int ProxyGenerator::threadsForOneMore() const
{
    // Those that run keep their threads: a decoder cannot give any back. Low priority keeps them out of the way.
    const int cores = std::max(1, int(std::thread::hardware_concurrency()));
    return std::max(1, cores / (1 + int(m_activeSessions.size())));
}

void ProxyGenerator::showProgress(const SharedSession& session)
{
    if (session->hasEnded)
        return;
    const QPointer<ProxyGenerator> self(this);
    const std::vector<Progress> listeners = session->listeners; // one of them may bring another one
    for (const Progress& listener : listeners)
        listener(session->fraction);
    if (self)
        m_queue.postAfter(kProgressInterval, [self, session] {
            if (self)
                self->showProgress(session);
        });
}

void ProxyGenerator::conclude(const SharedSession& session, const ProxyOutcome& outcome)
{
    session->hasEnded = true;
    m_running.erase(session->key);
    const auto active = m_activeSessions.find(session->source.path());
    if (active != m_activeSessions.end() && active->second == session)
        m_activeSessions.erase(active);
    if (const FileUrl* const proxy = std::get_if<FileUrl>(&outcome))
        m_proxyCache.insert_or_assign(session->key, *proxy);
    session->end.addResult(outcome);
    session->end.finish();
}

std::vector<FileUrl> ProxyGenerator::activeSessions() const
{
    std::vector<FileUrl> sources;
    for (const auto& [path, session] : m_activeSessions)
        sources.push_back(session->source);
    return sources;
}

}

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/ProxyExport.h"
#include "media/ProxyMaker.h"
#include "platform/MainQueue.h"

#include <QObject>
#include <QThreadPool>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace zumeta {

class UnfinishedProxies;

/// Makes proxies and keeps them in a folder, named by their sources' keys, where they are found again after a restart.
/// Lives on the main thread; reading, writing and encoding happen on its own threads. Two requests for one key share
/// one export. When the generator goes, what is running is given up and whoever waits is told that it was cancelled.
class ProxyGenerator final : public QObject, public ProxyMaker {
public:
    /// "ZumetaApp/Proxies" among the user's application data.
    static std::filesystem::path defaultProxyDirectory();

    /// Makes the folder, and begins to look through it. `queue` must outlive the generator.
    explicit ProxyGenerator(MainQueue& queue, std::filesystem::path proxyDirectory = defaultProxyDirectory(),
                            ProxyExportOpener openExport = transcodingExports());
    ~ProxyGenerator() override;

    /// `progress` is called on the main thread, at once when an export begins and every tenth of a second after.
    Task<ProxyOutcome> generateProxy(FileUrl url, ProxyConfig config, Progress progress) override;

    const std::filesystem::path& proxyDirectory() const { return m_proxyDirectory; }
    /// Known proxies by their sources' keys; their files may have gone since.
    const std::map<std::string, FileUrl>& proxyCache() const { return m_proxyCache; }
    /// The sources that are being exported now.
    std::vector<FileUrl> activeSessions() const;

private:
    struct Session;
    using SharedSession = std::shared_ptr<Session>;

    Task<> loadCache();
    Task<> run(SharedSession session);
    Task<ProxyOutcome> exported(SharedSession session);
    void showProgress(const SharedSession& session);
    void conclude(const SharedSession& session, const ProxyOutcome& outcome);
    int threadsForOneMore() const;

    MainQueue& m_queue;
    const std::filesystem::path m_proxyDirectory;
    const ProxyExportOpener m_openExport;
    std::shared_ptr<UnfinishedProxies> m_unfinished; ///< shared with the workers
    std::map<std::string, FileUrl> m_proxyCache;
    std::map<std::string, SharedSession> m_running;                  ///< by key, until their outcome is known
    std::map<std::filesystem::path, SharedSession> m_activeSessions; ///< by source, while they export
    QThreadPool m_files;                                             ///< keys and folders
    QThreadPool m_exports;                                           ///< threads that stand back behind all others
};

}

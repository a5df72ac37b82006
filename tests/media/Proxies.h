// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/ProxyGenerator.h"
#include "media/movie/MovieError.h"
#include "support/TemporaryFolder.h"

#include <condition_variable>
#include <gtest/gtest.h>
#include <memory>
#include <mutex>

namespace zumeta::test {

/// Exports that write "proxy of <name>" instead of a movie, unless told otherwise.
class WrittenExports {
public:
    ProxyExportOpener opener();
    int opened() const { return *m_opened; }

    std::function<void()> opening;                      ///< before the export is opened; may throw
    std::function<void(const FileUrl& output)> writing; ///< in place of writing
    std::vector<double> fractions;                      ///< told before writing

private:
    std::shared_ptr<std::atomic<int>> m_opened = std::make_shared<std::atomic<int>>(0);
};

/// Holds workers until it is opened.
class ExportGate {
public:
    ~ExportGate() { open(); }
    void wait();
    void open();
    int waiting() const;

private:
    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_isOpen = false;
    int m_waiting = 0;
};

/// Lets the main thread's events come for up to ten seconds, until the condition holds.
bool eventually(const std::function<bool()>& condition);

/// A request under way.
class PendingRequest {
public:
    PendingRequest(ProxyMaker& maker, const FileUrl& source, ProxyMaker::Progress progress = {},
                   ProxyConfig config = ProxyConfig::defaultConfig());
    bool hasEnded() const { return m_outcome->has_value(); }
    /// Waits for it.
    ProxyOutcome outcome() const;

private:
    std::shared_ptr<std::optional<ProxyOutcome>> m_outcome = std::make_shared<std::optional<ProxyOutcome>>();
};

/// A folder for the proxies and one for sources, with requests to their end.
class ProxyFolder : public testing::Test {
protected:
    static void fill(const FileUrl& file, const std::string& content);
    static std::string contentOf(const FileUrl& file);
    /// Regular files in the folder and those within it, by name; locks do not count.
    static std::vector<std::string> filesIn(const std::filesystem::path& path);

    FileUrl write(const std::string& name, const std::string& content) const;
    std::filesystem::path proxies() const { return folder.file("Proxies"); }
    std::filesystem::path unfinished() const { return folder.file("ProxiesInProgress"); }
    /// Where the proxy of a source is made.
    FileUrl proxyOf(const FileUrl& source) const;
    static ProxyOutcome request(ProxyMaker& maker, const FileUrl& source, ProxyMaker::Progress progress = {},
                                ProxyConfig config = ProxyConfig::defaultConfig());

    TemporaryFolder folder;
    EventLoopQueue queue;
    WrittenExports exports;
};

}

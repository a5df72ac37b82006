// SPDX-License-Identifier: GPL-3.0-or-later
#include "Proxies.h"

#include "platform/FileKey.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <algorithm>
#include <fstream>

namespace zumeta::test {

ProxyExportOpener WrittenExports::opener()
{
    return [this, opened = m_opened](const FileUrl& source, int, std::stop_token) -> ProxyExport {
        ++*opened;
        if (opening)
            opening();
        return [this, source](const FileUrl& output, const std::function<void(double)>& progress) {
            for (const double fraction : fractions)
                progress(fraction);
            if (writing)
                return writing(output);
            std::ofstream(output.path()) << "proxy of " << source.lastPathComponent();
        };
    };
}

void ExportGate::wait()
{
    std::unique_lock lock(m_mutex);
    ++m_waiting;
    m_changed.wait(lock, [this] { return m_isOpen; });
    --m_waiting;
}

void ExportGate::open()
{
    const std::lock_guard lock(m_mutex);
    m_isOpen = true;
    m_changed.notify_all();
}

int ExportGate::waiting() const
{
    const std::lock_guard lock(m_mutex);
    return m_waiting;
}

bool eventually(const std::function<bool()>& condition)
{
    constexpr qint64 kLimit = 10'000;
    constexpr int kSlice = 5;
    QElapsedTimer passed;
    passed.start();
    while (!condition() && passed.elapsed() < kLimit)
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, kSlice);
    return condition();
}

namespace {

Task<> follow(ProxyMaker& maker, FileUrl source, ProxyConfig config, ProxyMaker::Progress progress,
              std::shared_ptr<std::optional<ProxyOutcome>> outcome)
{
    *outcome = co_await maker.generateProxy(source, config, std::move(progress));
}

}

PendingRequest::PendingRequest(ProxyMaker& maker, const FileUrl& source, ProxyMaker::Progress progress,
                               ProxyConfig config)
{
    follow(maker, source, std::move(config), std::move(progress), m_outcome);
}

ProxyOutcome PendingRequest::outcome() const
{
    if (!eventually([this] { return hasEnded(); }))
        throw std::runtime_error("the request has not ended");
    return **m_outcome;
}

void ProxyFolder::fill(const FileUrl& file, const std::string& content)
{
    std::filesystem::create_directories(file.path().parent_path());
    std::ofstream(file.path(), std::ios::binary) << content;
}

std::string ProxyFolder::contentOf(const FileUrl& file)
{
    std::ifstream stream(file.path(), std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::vector<std::string> ProxyFolder::filesIn(const std::filesystem::path& path)
{
    std::vector<std::string> names;
    std::error_code error; // what is looked at may be cleared at the same time
    auto entry = std::filesystem::recursive_directory_iterator(path, error);
    for (; !error && entry != std::filesystem::recursive_directory_iterator(); entry.increment(error)) {
        std::error_code ignored;
        if (entry->is_regular_file(ignored) && entry->path().filename() != "lock")
            names.push_back(entry->path().filename().native());
    }
    std::sort(names.begin(), names.end());
    return names;
}

FileUrl ProxyFolder::write(const std::string& name, const std::string& content) const
{
    const FileUrl file = folder.url(name);
    fill(file, content);
    return file;
}

FileUrl ProxyFolder::proxyOf(const FileUrl& source) const
{
    return FileUrl(proxies() / (fileKey(source).toStdString() + ".mp4"));
}

ProxyOutcome ProxyFolder::request(ProxyMaker& maker, const FileUrl& source, ProxyMaker::Progress progress,
                                  ProxyConfig config)
{
    return PendingRequest(maker, source, std::move(progress), std::move(config)).outcome();
}

}

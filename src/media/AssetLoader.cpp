// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/AssetLoader.h"

#include <QCoroFuture>
#include <QtConcurrentRun>

namespace zumeta {

namespace {

AssetOutcome loadNow(const ThreadedAssetLoader::Load& load, const FileUrl& url)
{
    try {
        return load(url);
    } catch (const MovieError& error) {
        return error;
    } catch (const std::exception& error) {
        return MovieError(MovieError::Kind::cannotOpen, error.what());
    }
}

}

ThreadedAssetLoader::ThreadedAssetLoader(Load load)
    : m_load(std::move(load))
{}

Task<AssetOutcome> ThreadedAssetLoader::load(FileUrl url)
{
    // The future is named first: awaiting the call itself destroys its captures twice under GCC 12.
    const QFuture<AssetOutcome> outcome = QtConcurrent::run(&m_threads, loadNow, m_load, std::move(url));
    co_return co_await outcome;
}

}

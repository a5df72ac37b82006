// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/AssetLoader.h"

#include <QCoroCore>
#include <QThread>
#include <gtest/gtest.h>

namespace zumeta {
namespace {

Task<AssetOutcome> loaded(AssetLoader& loader, FileUrl url)
{
    co_return co_await loader.load(url);
}

TEST(AssetLoader, LooksAtAFileOnAThreadOfItsOwnAndComesBack)
{
    QThread* workedOn = nullptr;
    ThreadedAssetLoader loader([&](const FileUrl& url) {
        workedOn = QThread::currentThread();
        MediaAsset asset;
        asset.url = url;
        return asset;
    });
    const FileUrl url("/pool/a.mp4");
    const AssetOutcome outcome = QCoro::waitFor(loaded(loader, url));
    ASSERT_TRUE(std::holds_alternative<MediaAsset>(outcome));
    EXPECT_EQ(std::get<MediaAsset>(outcome).url, url);
    EXPECT_NE(workedOn, QThread::currentThread());
}

TEST(AssetLoader, GivesAFailureAsAValue)
{
    ThreadedAssetLoader loader(
        [](const FileUrl&) -> MediaAsset { throw MovieError(MovieError::Kind::cannotOpen, "it is gone"); });
    const AssetOutcome outcome = QCoro::waitFor(loaded(loader, FileUrl("/pool/a.mp4")));
    ASSERT_TRUE(std::holds_alternative<MovieError>(outcome));
    EXPECT_STREQ(std::get<MovieError>(outcome).what(), "it is gone");
}

TEST(AssetLoader, GivesAFailureOfTheSystemAsAValueToo)
{
    ThreadedAssetLoader loader([](const FileUrl&) -> MediaAsset { throw std::bad_alloc(); });
    const AssetOutcome outcome = QCoro::waitFor(loaded(loader, FileUrl("/pool/a.mp4")));
    EXPECT_TRUE(std::holds_alternative<MovieError>(outcome));
}

TEST(AssetLoader, NamesTheFileThatIsNotThere)
{
    ThreadedAssetLoader loader;
    const AssetOutcome outcome = QCoro::waitFor(loaded(loader, FileUrl("/no/such/swim.mp4")));
    ASSERT_TRUE(std::holds_alternative<MovieError>(outcome));
    EXPECT_NE(std::string(std::get<MovieError>(outcome).what()).find("swim.mp4"), std::string::npos);
}

}
}

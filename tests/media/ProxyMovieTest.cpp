// SPDX-License-Identifier: GPL-3.0-or-later
// Proxies of real recordings.
#include "Proxies.h"
#include "Reading.h"
#include "platform/FileKey.h"
#include "support/FileSizeLimit.h"

#include <QProcess>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zumeta::test {

namespace {

using testing::IsEmpty;
using testing::SizeIs;

class ProxyMovies : public ProxyFolder {
protected:
    static std::filesystem::path recording()
    {
        FootageSpec spec = clip(x264("bframes=2:keyint=12"));
        spec.sound = SoundSpec{};
        return FootageMaker::make(spec);
    }
    /// Of minutes, so that things happen in the middle.
    static std::filesystem::path longRecording()
    {
        return FootageMaker::derive({"-stream_loop", "200", "-i", recording().native(), "-c", "copy"}, "mp4");
    }
};

}

TEST_F(ProxyMovies, ShowWhatTheirSourcesShow)
{
    const FileUrl source(recording());
    ProxyGenerator generator(queue, proxies());
    const ProxyOutcome outcome = request(generator, source);
    ASSERT_EQ(outcome, ProxyOutcome(proxyOf(source)));
    FrameReader reader(sourceOf(proxyOf(source).path()), 0, kLong);
    const std::vector<ReadSlot> slots = readAll(reader);
    ASSERT_THAT(slots, SizeIs(40));
    for (int i = 0; i < 40; ++i) {
        EXPECT_EQ(slots[size_t(i)].number, i);
        EXPECT_NEAR(slots[size_t(i)].time, i * 1001.0 / 30000, 1e-9);
    }
}

TEST_F(ProxyMovies, HaveTheSizeOfThePreset)
{
    FootageSpec spec = clip(x264("keyint=12"), 2);
    spec.width = 1440;
    spec.height = 810;
    const FileUrl source(FootageMaker::make(spec));
    ProxyGenerator generator(queue, proxies());
    ProxyConfig config = ProxyConfig::defaultConfig();
    config.size = 640; // which nothing reads
    ASSERT_EQ(request(generator, source, {}, config), ProxyOutcome(proxyOf(source)));
    const MediaAsset proxy = MediaAsset::load(proxyOf(source));
    EXPECT_EQ(proxy.video->naturalWidth, 1280);
    EXPECT_EQ(proxy.video->naturalHeight, 720);
}

TEST_F(ProxyMovies, AreNotMadeOfWhatIsNoVideo)
{
    ProxyGenerator generator(queue, proxies());
    const ProxyOutcome failure = ProxyError::exportSessionCreationFailed();
    EXPECT_EQ(request(generator, write("notes.mp4", "no video at all")), failure);
    EXPECT_EQ(request(generator, write("empty.mp4", "")), failure);
    const FileUrl sound(FootageMaker::derive({"-f", "lavfi", "-i", "sine=d=1", "-c:a", "aac"}, "m4a"));
    EXPECT_EQ(request(generator, sound), failure);
    EXPECT_THAT(filesIn(proxies()), IsEmpty());
}

TEST_F(ProxyMovies, AreNotMadeOfARecordingThatIsCutShort)
{
    FootageSpec spec = clip(x264("keyint=12"), 60);
    spec.container = {"-movflags", "+faststart"};
    const auto whole = FootageMaker::make(spec);
    const auto half = FootageMaker::truncated(whole, std::filesystem::file_size(whole) / 2);
    ProxyGenerator generator(queue, proxies());
    const ProxyOutcome outcome = request(generator, FileUrl(half));
    ASSERT_TRUE(std::holds_alternative<ProxyError>(outcome));
    EXPECT_EQ(std::get<ProxyError>(outcome).kind, ProxyError::Kind::exportFailed);
    EXPECT_THAT(filesIn(proxies()), IsEmpty());
    EXPECT_THAT(filesIn(unfinished()), IsEmpty());
}

TEST_F(ProxyMovies, AreNotMadeOfARecordingThatIsCutWhileItIsRead)
{
    const FileUrl source = folder.url("swim.mp4");
    std::filesystem::copy_file(longRecording(), source.path());
    ProxyGenerator generator(queue, proxies());
    const ProxyOutcome outcome = request(generator, source, [&](double fraction) {
        if (fraction > 0)
            std::filesystem::resize_file(source.path(), 20'000);
    });
    ASSERT_TRUE(std::holds_alternative<ProxyError>(outcome));
    EXPECT_THAT(filesIn(proxies()), IsEmpty());
}

TEST_F(ProxyMovies, FailWithTheSystemsWordsOnAFullDisk)
{
    ProxyGenerator generator(queue, proxies());
    const FileUrl source(recording());
    {
        const FileSizeLimit limit(30'000);
        const ProxyOutcome outcome = request(generator, source);
        EXPECT_EQ(outcome, ProxyOutcome(ProxyError::exportFailed(QStringLiteral("File too large"))));
    }
    EXPECT_THAT(filesIn(proxies()), IsEmpty());
    EXPECT_THAT(filesIn(unfinished()), IsEmpty());
    EXPECT_EQ(request(generator, source), ProxyOutcome(proxyOf(source)));
}

TEST_F(ProxyMovies, OfAKilledProcessPassForNoProxyAndAreClearedAtTheNextStart)
{
    const auto source = longRecording();
    QProcess process;
    process.start(QStringLiteral(MAKE_PROXY), {QString::fromStdString(source), QString::fromStdString(proxies())});
    ASSERT_TRUE(process.waitForStarted());
    const std::string name = proxyOf(FileUrl(source)).lastPathComponent();
    const auto halfWritten = [&] {
        for (const auto& entry : std::filesystem::directory_iterator(unfinished())) {
            std::error_code ignored;
            if (std::filesystem::file_size(entry.path() / name, ignored) > 200'000 && !ignored)
                return true;
        }
        return false;
    };
    ASSERT_TRUE(eventually([&] { return std::filesystem::exists(unfinished()) && halfWritten(); }));
    ASSERT_EQ(process.state(), QProcess::Running);
    process.kill();
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitStatus(), QProcess::CrashExit);
    EXPECT_THAT(filesIn(proxies()), IsEmpty());
    EXPECT_THAT(filesIn(unfinished()), SizeIs(1));
    const ProxyGenerator generator(queue, proxies());
    EXPECT_TRUE(eventually([&] { return filesIn(unfinished()).empty(); }));
    EXPECT_THAT(generator.proxyCache(), IsEmpty());
}

TEST_F(ProxyMovies, StopWithinAMomentWhenTheirGeneratorGoes)
{
    const auto source = longRecording();
    auto generator = std::make_unique<ProxyGenerator>(queue, proxies());
    double progress = 0;
    const PendingRequest pending(*generator, FileUrl(source), [&](double fraction) { progress = fraction; });
    ASSERT_TRUE(eventually([&] { return progress > 0; }));
    generator.reset();
    EXPECT_EQ(pending.outcome(), ProxyOutcome(ProxyError::exportCancelled()));
    EXPECT_THAT(filesIn(proxies()), IsEmpty());
    EXPECT_THAT(filesIn(unfinished()), IsEmpty());
}

}

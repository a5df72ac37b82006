// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/ProxyGenerator.h"
#include "Proxies.h"
#include "platform/FileKey.h"
#include "support/VirtualTime.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zumeta::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Generators : public ProxyFolder {};

}

TEST_F(Generators, MakeAProxyNamedByTheSourcesKey)
{
    const FileUrl source = write("swim.mp4", "a recording");
    ProxyGenerator generator(queue, proxies(), exports.opener());
    const ProxyOutcome outcome = request(generator, source);
    EXPECT_EQ(outcome, ProxyOutcome(proxyOf(source)));
    EXPECT_EQ(contentOf(proxyOf(source)), "proxy of swim.mp4");
    EXPECT_EQ(generator.proxyCache().at(fileKey(source).toStdString()), proxyOf(source));
}

TEST_F(Generators, MakeTheirFolderWithThoseOnTheWay)
{
    const ProxyGenerator generator(queue, folder.file("data/ZumetaApp/Proxies"), exports.opener());
    EXPECT_TRUE(std::filesystem::is_directory(folder.file("data/ZumetaApp/Proxies")));
}

TEST_F(Generators, WorkInTheUsersOwnApplicationData)
{
    EXPECT_TRUE(ProxyGenerator::defaultProxyDirectory().native().ends_with("/ZumetaApp/Proxies"));
}

TEST_F(Generators, FindAProxyTheSecondTimeAndTellNoProgress)
{
    const FileUrl source = write("swim.mp4", "a recording");
    ProxyGenerator generator(queue, proxies(), exports.opener());
    request(generator, source);
    int told = 0;
    EXPECT_EQ(request(generator, source, [&](double) { ++told; }), ProxyOutcome(proxyOf(source)));
    EXPECT_EQ(exports.opened(), 1);
    EXPECT_EQ(told, 0);
}

TEST_F(Generators, FindAProxyAgainAfterARestart)
{
    const FileUrl source = write("swim.mp4", "a recording");
    {
        ProxyGenerator before(queue, proxies(), exports.opener());
        request(before, source);
    }
    ProxyGenerator generator(queue, proxies(), exports.opener());
    ASSERT_TRUE(eventually([&] { return !generator.proxyCache().empty(); }));
    EXPECT_EQ(generator.proxyCache().at(fileKey(source).toStdString()), proxyOf(source));
    EXPECT_EQ(request(generator, source), ProxyOutcome(proxyOf(source)));
    EXPECT_EQ(exports.opened(), 1);
}

TEST_F(Generators, FindAProxyBeforeTheirFolderIsLookedThrough)
{
    const FileUrl source = write("swim.mp4", "a recording");
    write("Proxies/" + fileKey(source).toStdString() + ".mp4", "made before");
    ProxyGenerator generator(queue, proxies(), exports.opener());
    EXPECT_EQ(request(generator, source), ProxyOutcome(proxyOf(source)));
    EXPECT_EQ(exports.opened(), 0);
}

TEST_F(Generators, KnowTheSameFileUnderAnotherNameAndInAnotherPlace)
{
    const FileUrl source = write("swim.mp4", "a recording");
    const FileUrl copy = write("elsewhere/GX010042.MP4", "a recording");
    ProxyGenerator generator(queue, proxies(), exports.opener());
    request(generator, source);
    EXPECT_EQ(request(generator, copy), ProxyOutcome(proxyOf(source)));
    EXPECT_EQ(exports.opened(), 1);
}

TEST_F(Generators, TakeFilesOfOneHeadAndLengthForOne)
{
    const std::string head(1 << 20, 'h');
    const FileUrl source = write("a.mp4", head + "ends like this");
    const FileUrl other = write("b.mp4", head + "ends like that");
    ProxyGenerator generator(queue, proxies(), exports.opener());
    request(generator, source);
    EXPECT_EQ(request(generator, other), ProxyOutcome(proxyOf(source)));
    EXPECT_EQ(exports.opened(), 1);
}

TEST_F(Generators, TellShortFilesApartByTheirLastByte)
{
    const FileUrl source = write("a.mp4", "a recording");
    const FileUrl other = write("b.mp4", "a recordinG");
    ProxyGenerator generator(queue, proxies(), exports.opener());
    request(generator, source);
    EXPECT_EQ(request(generator, other), ProxyOutcome(proxyOf(other)));
    EXPECT_EQ(exports.opened(), 2);
}

TEST_F(Generators, EnterWhateverLiesInTheirFolderUnderItsNameWithoutTheExtension)
{
    write("Proxies/notes.txt", "stray");
    write("Proxies/deeper/abc.mov", "");
    ProxyGenerator generator(queue, proxies(), exports.opener());
    ASSERT_TRUE(eventually([&] { return generator.proxyCache().size() == 3; }));
    EXPECT_EQ(generator.proxyCache().at("notes"), FileUrl(proxies() / "notes.txt"));
    EXPECT_EQ(generator.proxyCache().at("abc"), FileUrl(proxies() / "deeper/abc.mov"));
    EXPECT_EQ(generator.proxyCache().at("deeper"), FileUrl(proxies() / "deeper"));
}

TEST_F(Generators, FindAProxyInAFolderWithinTheirs)
{
    const FileUrl source = write("swim.mp4", "a recording");
    const FileUrl moved = write("Proxies/old/" + fileKey(source).toStdString() + ".mp4", "made before");
    ProxyGenerator generator(queue, proxies(), exports.opener());
    ASSERT_TRUE(eventually([&] { return !generator.proxyCache().empty(); }));
    EXPECT_EQ(request(generator, source), ProxyOutcome(moved));
    EXPECT_EQ(exports.opened(), 0);
}

TEST_F(Generators, MakeAProxyAgainThatWasDeletedBehindTheirBack)
{
    const FileUrl source = write("swim.mp4", "a recording");
    ProxyGenerator generator(queue, proxies(), exports.opener());
    request(generator, source);
    std::filesystem::remove(proxyOf(source).path());
    EXPECT_EQ(request(generator, source), ProxyOutcome(proxyOf(source)));
    EXPECT_TRUE(std::filesystem::exists(proxyOf(source).path()));
    EXPECT_EQ(exports.opened(), 2);
}

TEST_F(Generators, MakeTheirFolderAgainWhenItWasDeletedBehindTheirBack)
{
    const FileUrl source = write("swim.mp4", "a recording");
    ProxyGenerator generator(queue, proxies(), exports.opener());
    std::filesystem::remove_all(proxies());
    EXPECT_EQ(request(generator, source), ProxyOutcome(proxyOf(source)));
}

TEST_F(Generators, FailForASourceThatIsNotThere)
{
    ProxyGenerator generator(queue, proxies(), exports.opener());
    const ProxyOutcome outcome = request(generator, folder.url("missing.mp4"));
    ASSERT_TRUE(std::holds_alternative<ProxyError>(outcome));
    EXPECT_EQ(std::get<ProxyError>(outcome).kind, ProxyError::Kind::fileKeyFailed);
    EXPECT_THAT(std::get<ProxyError>(outcome).description.toStdString(), testing::HasSubstr("No such file"));
    EXPECT_EQ(exports.opened(), 0);
}

TEST_F(Generators, FailForASourceThatNoExportCanBeOpenedFor)
{
    exports.opening = [] { throw MovieError(MovieError::Kind::noVideoTrack, "no video track"); };
    ProxyGenerator generator(queue, proxies(), exports.opener());
    EXPECT_EQ(request(generator, write("sound.m4a", "sound")), ProxyOutcome(ProxyError::exportSessionCreationFailed()));
    EXPECT_THAT(generator.proxyCache(), IsEmpty());
}

TEST_F(Generators, FailForAPresetThatNobodyKnows)
{
    ProxyGenerator generator(queue, proxies(), exports.opener());
    ProxyConfig config = ProxyConfig::defaultConfig();
    config.presetName = QStringLiteral("AVAssetExportPreset4x3");
    const FileUrl source = write("swim.mp4", "a recording");
    EXPECT_EQ(request(generator, source, {}, config), ProxyOutcome(ProxyError::exportSessionCreationFailed()));
    EXPECT_EQ(exports.opened(), 0);
}

TEST_F(Generators, TakeAProxyForWhatItIsWhateverPresetItWasMadeWith)
{
    ProxyGenerator generator(queue, proxies(), exports.opener());
    const FileUrl source = write("swim.mp4", "a recording");
    request(generator, source);
    ProxyConfig config = ProxyConfig::defaultConfig();
    config.presetName = QStringLiteral("AVAssetExportPreset4x3");
    EXPECT_EQ(request(generator, source, {}, config), ProxyOutcome(proxyOf(source)));
}

TEST_F(Generators, GiveTheProxyTheConfiguredExtension)
{
    ProxyGenerator generator(queue, proxies(), exports.opener());
    ProxyConfig config = ProxyConfig::defaultConfig();
    config.fileExtension = QStringLiteral("m4v");
    const FileUrl source = write("swim.mp4", "a recording");
    EXPECT_EQ(request(generator, source, {}, config),
              ProxyOutcome(FileUrl(proxies() / (fileKey(source).toStdString() + ".m4v"))));
}

TEST_F(Generators, GiveTheExportsOwnWordsForItsFailure)
{
    exports.writing = [](const FileUrl&) { throw MovieError(MovieError::Kind::cannotWrite, "the disk is gone"); };
    ProxyGenerator generator(queue, proxies(), exports.opener());
    const FileUrl source = write("swim.mp4", "a recording");
    EXPECT_EQ(request(generator, source), ProxyOutcome(ProxyError::exportFailed(QStringLiteral("the disk is gone"))));
    EXPECT_THAT(generator.activeSessions(), IsEmpty());
}

TEST_F(Generators, HaveWordsForAFailureWithoutAny)
{
    exports.writing = [](const FileUrl&) { throw MovieError(MovieError::Kind::cannotWrite, ""); };
    ProxyGenerator generator(queue, proxies(), exports.opener());
    EXPECT_EQ(request(generator, write("swim.mp4", "a recording")),
              ProxyOutcome(ProxyError::exportFailed(QStringLiteral("Export failed"))));
}

TEST_F(Generators, LeaveNothingOfAFailedExportAndTryAgainAtTheNextRequest)
{
    exports.writing = [](const FileUrl& output) {
        ProxyFolder::fill(output, "half a proxy");
        throw MovieError(MovieError::Kind::cannotWrite, "the disk is full");
    };
    const FileUrl source = write("swim.mp4", "a recording");
    ProxyGenerator generator(queue, proxies(), exports.opener());
    request(generator, source);
    EXPECT_THAT(filesIn(proxies()), IsEmpty());
    EXPECT_THAT(filesIn(unfinished()), IsEmpty());
    exports.writing = {};
    EXPECT_EQ(request(generator, source), ProxyOutcome(proxyOf(source)));
}

TEST_F(Generators, MakeNoProxyOfASourceThatWasReplacedMeanwhile)
{
    const FileUrl source = write("swim.mp4", "a recording");
    exports.writing = [&](const FileUrl& output) {
        ProxyFolder::fill(output, "proxy of something");
        ProxyFolder::fill(source, "another recording");
    };
    ProxyGenerator generator(queue, proxies(), exports.opener());
    const ProxyOutcome outcome = request(generator, source);
    ASSERT_TRUE(std::holds_alternative<ProxyError>(outcome));
    EXPECT_EQ(std::get<ProxyError>(outcome).kind, ProxyError::Kind::exportFailed);
    EXPECT_THAT(filesIn(proxies()), IsEmpty());
}

TEST_F(Generators, WriteBesideTheirFolderAndNotIntoIt)
{
    std::vector<std::string> inProxies = {"not looked yet"};
    std::filesystem::path place;
    exports.writing = [&](const FileUrl& output) {
        ProxyFolder::fill(output, "half a proxy");
        inProxies = filesIn(proxies());
        place = output.path();
    };
    ProxyGenerator generator(queue, proxies(), exports.opener());
    request(generator, write("swim.mp4", "a recording"));
    EXPECT_THAT(inProxies, IsEmpty());
    EXPECT_TRUE(place.native().starts_with(unfinished().native() + "/")) << place;
    EXPECT_FALSE(std::filesystem::exists(place));
}

TEST_F(Generators, ClearWhatEndedProcessesLeft)
{
    write("ProxiesInProgress/abcdef/lock", "");
    write("ProxiesInProgress/abcdef/key.mp4", "half a proxy");
    write("ProxiesInProgress/unlocked/key.mp4", "half a proxy");
    const ProxyGenerator generator(queue, proxies(), exports.opener());
    EXPECT_TRUE(eventually([&] { return filesIn(unfinished()).empty(); }));
}

TEST_F(Generators, LeaveAloneWhatAnotherOneIsWriting)
{
    ExportGate gate;
    exports.writing = [&](const FileUrl& output) {
        ProxyFolder::fill(output, "half a proxy");
        gate.wait();
    };
    ProxyGenerator other(queue, proxies(), exports.opener());
    PendingRequest pending(other, write("swim.mp4", "a recording"));
    ASSERT_TRUE(eventually([&] { return gate.waiting() == 1; }));
    write("ProxiesInProgress/abcdef/key.mp4", "half a proxy");
    const ProxyGenerator generator(queue, proxies(), exports.opener());
    ASSERT_TRUE(eventually([&] { return !std::filesystem::exists(unfinished() / "abcdef"); }));
    EXPECT_THAT(filesIn(unfinished()), testing::SizeIs(1));
    gate.open();
    EXPECT_TRUE(std::holds_alternative<FileUrl>(pending.outcome()));
}

}

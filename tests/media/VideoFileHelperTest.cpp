// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/VideoFileHelper.h"
#include "platform/Log.h"

#include <algorithm>
#include <gmock/gmock.h>

namespace zumeta {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<FileUrl> urls(const std::vector<std::string>& names)
{
    std::vector<FileUrl> result;
    result.reserve(names.size());
    for (const std::string& name : names)
        result.emplace_back(std::filesystem::path(name.starts_with('/') ? name : "/swim/" + name));
    return result;
}

std::vector<std::string> names(const std::vector<FileUrl>& list)
{
    std::vector<std::string> result;
    result.reserve(list.size());
    for (const FileUrl& url : list)
        result.push_back(url.lastPathComponent());
    return result;
}

std::vector<std::string> sorted(const std::vector<std::string>& list)
{
    return names(VideoFileHelper::sortedVideoURLs(urls(list)));
}

}

TEST(VideoFileHelper, TheExtensionsThatCountAsVideo)
{
    EXPECT_THAT(VideoFileHelper::supportedExtensions(), ElementsAre("avi", "m4v", "mkv", "mov", "mp4"));
}

TEST(VideoFileHelper, UpperCaseSortsBeforeLowerCase)
{
    EXPECT_THAT(sorted({"a.mov", "C.mp4", "B.MOV"}), ElementsAre("B.MOV", "C.mp4", "a.mov"));
}

TEST(VideoFileHelper, ChapterFilesOfCamerasComeInTheirOrder)
{
    EXPECT_THAT(sorted({"GP020001.MP4", "GOPR0001.MP4", "GP010001.MP4"}),
                ElementsAre("GOPR0001.MP4", "GP010001.MP4", "GP020001.MP4"));
    EXPECT_THAT(sorted({"GX020123.MP4", "GX010123.MP4"}), ElementsAre("GX010123.MP4", "GX020123.MP4"));
}

TEST(VideoFileHelper, NumbersAreNotReadAsNumbers)
{
    EXPECT_THAT(sorted({"clip2.mp4", "clip10.mp4"}), ElementsAre("clip10.mp4", "clip2.mp4"));
}

TEST(VideoFileHelper, OnlySupportedExtensionsStayWhateverTheirCase)
{
    EXPECT_THAT(sorted({"clip.MKV", "clip.webm", "clip", ".mp4", "clip.", "clip.mp4.txt", "b.Avi", "c.m4V"}),
                ElementsAre("b.Avi", "c.m4V", "clip.MKV"));
    EXPECT_THAT(sorted({}), IsEmpty());
}

TEST(VideoFileHelper, EqualNamesKeepTheOrderGiven)
{
    const auto list = urls({"/z/clip.mp4", "/a/clip.mp4", "/m/a.mp4", "/b/clip.mp4"});
    EXPECT_THAT(VideoFileHelper::sortedVideoURLs(list), ElementsAre(list[2], list[0], list[1], list[3]));
}

TEST(VideoFileHelper, CanonicallyEqualNamesAreEqual)
{
    // Once as one letter with its dots, once as a letter and combining dots.
    const auto list = urls({"/1/u\xcc\x88.mp4", "/2/\xc3\xbc.mp4", "/3/u\xcc\x88.mp4"});
    EXPECT_EQ(VideoFileHelper::sortedVideoURLs(list), list);
    // Composed it is U+00FC and comes after "v"; by its bytes as written it would come before.
    EXPECT_THAT(sorted({"u\xcc\x88.mp4", "v.mp4"}), ElementsAre("v.mp4", "u\xcc\x88.mp4"));
}

TEST(VideoFileHelper, CharactersPastTheFirstPlaneComeLast)
{
    // In UTF-16 the swimmer's surrogates would sort before U+FF21.
    EXPECT_THAT(sorted({"\xf0\x9f\x8f\x8a.mp4", "\xef\xbc\xa1.mp4"}),
                ElementsAre("\xef\xbc\xa1.mp4", "\xf0\x9f\x8f\x8a.mp4"));
}

TEST(VideoFileHelper, NamesThatAreNotUtf8HaveOneOrderWhateverTheInput)
{
    std::vector<std::string> list{"a.mp4",     "a\xf0\x9f\x8f\x8a.mp4", "a\x80.mp4", "a\xc3.mp4",
                                  "a\xff.mp4", "a\xff\xff.mp4"};
    const std::vector<std::string> expected = list;
    std::sort(list.begin(), list.end());
    do {
        ASSERT_EQ(sorted(list), expected);
    } while (std::next_permutation(list.begin(), list.end()));
}

TEST(VideoFileHelper, ForeignBytesInAllPlacesOfANameAreHandled)
{
    for (const char* name : {"\xff.mp4", "\xe2\x82.mp4", "a\xed\xa0\x80.mp4", "\xc0\xaf.mp4", "\xf4\x90\x80\x80.mp4",
                             "\xff\xff.mp4", "\xe2.mp4"})
        EXPECT_THAT(sorted({name, "a.mp4"}), ::testing::UnorderedElementsAre(name, "a.mp4"));
}

TEST(VideoFileHelper, SortingByNameAloneFiltersNothing)
{
    EXPECT_THAT(names(VideoFileHelper::sortedByName(urls({"b.txt", "a", "C.mp4"}))),
                ElementsAre("C.mp4", "a", "b.txt"));
}

TEST(VideoFileHelper, TheComparatorIsAStrictOrder)
{
    const FileNameOrder before;
    EXPECT_TRUE(before(FileUrl("/z/a"), FileUrl("/a/b")));
    EXPECT_FALSE(before(FileUrl("/a/b"), FileUrl("/z/a")));
    EXPECT_FALSE(before(FileUrl("/a/x"), FileUrl("/b/x")));
    EXPECT_TRUE(before(FileUrl("/a"), FileUrl("/ab")));
}

class DroppedVideos : public ::testing::Test {
protected:
    std::vector<std::string> drop(const std::vector<DroppedItem>& items)
    {
        const LogCapture capture([this](const QString& line) { lines.push_back(line.toStdString()); });
        return names(VideoFileHelper::loadDroppedVideoURLs(items));
    }
    std::vector<std::string> lines;
};

TEST_F(DroppedVideos, AreFilteredAndOrderedLikeAnySelection)
{
    EXPECT_THAT(drop({QByteArray("file:///b.mp4"), QByteArray("file:///x%20y/notes.txt"), QByteArray("file:///A.MOV")}),
                ElementsAre("A.MOV", "b.mp4"));
    EXPECT_THAT(lines, IsEmpty());
}

TEST_F(DroppedVideos, NoItemsAndAFolderGiveNothing)
{
    EXPECT_THAT(drop({}), IsEmpty());
    EXPECT_THAT(drop({QByteArray("file:///home/swim/")}), IsEmpty());
    EXPECT_THAT(lines, IsEmpty());
}

TEST_F(DroppedVideos, AFailureInTheMiddleIsLoggedAndTheOthersAreThere)
{
    EXPECT_THAT(
        drop({QByteArray("file:///b.mp4"), DropFailure{QStringLiteral("no answer")}, QByteArray("file:///a.mp4")}),
        ElementsAre("a.mp4", "b.mp4"));
    EXPECT_THAT(lines, ElementsAre("Drop error for provider: no answer"));
}

TEST_F(DroppedVideos, OtherKindsAndBytesThatAreNoFileUrlAreSkippedSilently)
{
    EXPECT_THAT(drop({DropOfAnotherKind(), QByteArray("https://example.org/a.mp4"), QByteArray("/a.mp4"), QByteArray(),
                      QByteArray("file:///caf%E9.mp4")}),
                ElementsAre("caf\xe9.mp4"));
    EXPECT_THAT(lines, IsEmpty());
}

}

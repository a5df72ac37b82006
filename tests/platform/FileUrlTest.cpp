// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/FileUrl.h"

#include <gtest/gtest.h>

namespace zumeta {
namespace {

FileUrl parsed(const char* text)
{
    const auto url = FileUrl::fromAbsoluteString(text);
    EXPECT_TRUE(url.has_value()) << text;
    return url.value_or(FileUrl());
}

}

TEST(FileUrl, EveryByteThatANameMayHoldSurvivesTheRoundTripThroughText)
{
    std::string name = "/folder/";
    for (int byte = 1; byte < 256; ++byte)
        name.push_back(char(byte));
    const FileUrl url{std::filesystem::path(name)};
    const QByteArray text = url.absoluteString();
    for (const char c : text)
        EXPECT_TRUE(c > ' ' && c < 0x7f) << int(c);
    EXPECT_EQ(parsed(text.constData()).path().native(), name);
}

TEST(FileUrl, EscapesWhatAPathMayNotHoldAndLeavesTheRest)
{
    EXPECT_EQ(FileUrl("/a b/100%/q?#[x].mp4").absoluteString(), "file:///a%20b/100%25/q%3F%23%5Bx%5D.mp4");
    EXPECT_EQ(FileUrl("/Schw\xc3\xbcmmen/\xff.mov").absoluteString(), "file:///Schw%C3%BCmmen/%FF.mov");
    EXPECT_EQ(FileUrl("/a-b_c.d~e!f$g&h'i(j)k*l+m,n=o:p@q").absoluteString(),
              "file:///a-b_c.d~e!f$g&h'i(j)k*l+m,n=o:p@q");
}

TEST(FileUrl, ReadsTheFormsThatMeanThisMachine)
{
    EXPECT_EQ(parsed("file:///a/b.mp4").path(), "/a/b.mp4");
    EXPECT_EQ(parsed("file://localhost/a/b.mp4").path(), "/a/b.mp4");
    EXPECT_EQ(parsed("file://LOCALHOST/a").path(), "/a");
    EXPECT_EQ(parsed("FILE:///a").path(), "/a");
    EXPECT_EQ(parsed("file:/a/b.mp4").path(), "/a/b.mp4");
    EXPECT_EQ(parsed("file:///%e4%2F%5a").path().native(), "/\xe4/Z");
    EXPECT_EQ(parsed("file:///Schw\xc3\xbcmmen").path().native(), "/Schw\xc3\xbcmmen");
}

TEST(FileUrl, RefusesWhatIsNoFileOfThisMachine)
{
    for (const char* text :
         {"", "/a", "a", "file", "file:", "file:a", "http://x/a.mp4", "file://server/a", "file://a", "file:///a%",
          "file:///a%4", "file:///a%4g", "file:///a%00b", "file:///a?b", "file:///a#b", " file:///a"})
        EXPECT_FALSE(FileUrl::fromAbsoluteString(text).has_value()) << text;
    EXPECT_FALSE(FileUrl::fromAbsoluteString(QByteArray("file:///a\0b", 11)).has_value());
}

TEST(FileUrl, TheEmptyPathHasATextOfItsOwnAndReadsBack)
{
    EXPECT_EQ(FileUrl().absoluteString(), "file://");
    EXPECT_EQ(parsed("file://"), FileUrl());
    EXPECT_EQ(FileUrl().lastPathComponent(), "");
    EXPECT_EQ(FileUrl().lowerCaseExtension(), "");
}

TEST(FileUrl, ARelativePathIsTakenFromTheWorkingFolder)
{
    const FileUrl url("clip.mp4");
    EXPECT_EQ(url.path(), std::filesystem::current_path() / "clip.mp4");
    EXPECT_EQ(parsed(url.absoluteString().constData()), url);
}

TEST(FileUrl, SpellingsOfOnePlaceDiffer)
{
    EXPECT_FALSE(FileUrl("/a/b") == FileUrl("/a//b"));
    EXPECT_FALSE(FileUrl("/a/b") == FileUrl("/a/b/"));
    EXPECT_EQ(FileUrl("/a/b"), FileUrl("/a/b"));
    EXPECT_EQ(parsed("file:////server/b").path().native(), "//server/b");
}

TEST(FileUrl, TheLastPathComponentIgnoresSlashesAtTheEnd)
{
    EXPECT_EQ(FileUrl("/a/clip.MP4").lastPathComponent(), "clip.MP4");
    EXPECT_EQ(FileUrl("/a/folder.mp4//").lastPathComponent(), "folder.mp4");
    EXPECT_EQ(FileUrl("/").lastPathComponent(), "/");
    EXPECT_EQ(FileUrl("/a/..").lastPathComponent(), "..");
}

TEST(FileUrl, TheExtensionIsWhatFollowsTheLastDotInLowerCase)
{
    EXPECT_EQ(FileUrl("/a/clip.MKV").lowerCaseExtension(), "mkv");
    EXPECT_EQ(FileUrl("/a/clip.tar.Mp4").lowerCaseExtension(), "mp4");
    EXPECT_EQ(FileUrl("/a/folder.mp4/").lowerCaseExtension(), "mp4");
    EXPECT_EQ(FileUrl("/a.mp4/clip").lowerCaseExtension(), "");
    for (const char* name : {"/a/.mp4", "/a/clip", "/a/clip.", "/a/clip.mp4.", "/a/..", "/a/."})
        EXPECT_EQ(FileUrl(name).lowerCaseExtension(), "") << name;
}

TEST(FileUrl, TheNameForPeopleReplacesBytesThatAreNotText)
{
    EXPECT_EQ(FileUrl("/a/Schw\xc3\xbcmmen.mp4").displayName(), QStringLiteral(u"Schw\u00fcmmen.mp4"));
    EXPECT_EQ(FileUrl("/a/x\xffy.mp4").displayName(), QStringLiteral(u"x\ufffdy.mp4"));
}

}

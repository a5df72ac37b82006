// SPDX-License-Identifier: GPL-3.0-or-later
#include "ProjectStates.h"
#include "model/ProjectDocument.h"
#include "model/ProjectFileError.h"
#include "support/FileSandbox.h"

#include <gtest/gtest.h>
#include <limits>

namespace zumeta {
namespace {

using Kind = ProjectFileError::Kind;
using test::FileSandbox;
using test::fullProjectState;

void expectFailure(Kind kind, const std::string& text, const std::function<void()>& action)
{
    try {
        action();
        FAIL() << "nothing was thrown";
    } catch (const ProjectFileError& error) {
        EXPECT_EQ(error.kind(), kind);
        EXPECT_EQ(std::string(error.what()), text);
    }
}

}

TEST(ProjectFile, IsReadBackEqualAndHoldsTheEncodedBytesAlone)
{
    const FileSandbox sandbox;
    const FileUrl url = sandbox.url("swim.zumetaproj");
    writeProjectFile(url, fullProjectState());
    EXPECT_EQ(readFileBytes(url, 100'000), fullProjectState().encode());
    EXPECT_EQ(readProjectFile(url), fullProjectState());
}

TEST(ProjectFile, ANameThatIsNotUtf8IsKept)
{
    const FileSandbox sandbox;
    const FileUrl url = sandbox.url("d\xe9j\xe0/vu\xff.zumetaproj");
    std::filesystem::create_directory(url.path().parent_path());
    writeProjectFile(url, fullProjectState());
    EXPECT_TRUE(std::filesystem::exists(url.path()));
    EXPECT_EQ(readProjectFile(url), fullProjectState());
}

TEST(ProjectFile, TwoSavesOfOneProjectHaveEqualBytes)
{
    const FileSandbox sandbox;
    writeProjectFile(sandbox.url("1"), fullProjectState());
    writeProjectFile(sandbox.url("2"), readProjectFile(sandbox.url("1")));
    EXPECT_EQ(readFileBytes(sandbox.url("1"), 100'000), readFileBytes(sandbox.url("2"), 100'000));
}

TEST(ProjectFile, AStateThatCannotBeWrittenLeavesTheOldFile)
{
    const FileSandbox sandbox;
    const FileUrl url = sandbox.write("swim.zumetaproj", "old");
    ProjectState state = fullProjectState();
    state.projectConfig.aboveZoom = std::numeric_limits<double>::infinity();
    expectFailure(Kind::notWritable, "swim.zumetaproj: projectConfig.aboveZoom: not a finite number",
                  [&] { writeProjectFile(url, state); });
    EXPECT_EQ(readFileBytes(url, 10), "old");
    expectFailure(Kind::notWritable, "new.zumetaproj: projectConfig.aboveZoom: not a finite number",
                  [&] { writeProjectFile(sandbox.url("new.zumetaproj"), state); });
    EXPECT_FALSE(std::filesystem::exists(sandbox.url("new.zumetaproj").path()));
}

TEST(ProjectFile, WhatTheFileSystemRefusesIsOneLineWithTheName)
{
    const FileSandbox sandbox;
    expectFailure(Kind::fileNotReadable, "none.zumetaproj: No such file or directory",
                  [&] { readProjectFile(sandbox.url("none.zumetaproj")); });
    std::filesystem::create_directory(sandbox.url("a\nb\xff").path());
    expectFailure(Kind::fileNotReadable, "a?b\xef\xbf\xbd: Is a directory",
                  [&] { readProjectFile(sandbox.url("a\nb\xff")); });
    expectFailure(Kind::fileNotWritten, "swim: No such file or directory",
                  [&] { writeProjectFile(sandbox.url("none/swim"), fullProjectState()); });
}

TEST(ProjectFile, ADecodingErrorNamesTheFileTheKeyAndTheReason)
{
    const FileSandbox sandbox;
    const FileUrl url = sandbox.write("swim.zumetaproj", "{\"version\" : 1.5}");
    expectFailure(Kind::invalidValue, "swim.zumetaproj: version: not an integer", [&] { readProjectFile(url); });
    expectFailure(Kind::notJson, "empty: not valid JSON in line 1: it ends too early",
                  [&] { readProjectFile(sandbox.write("empty", "")); });
}

TEST(ProjectFile, AFileMuchTooLargeIsNotReadIntoMemory)
{
    const FileSandbox sandbox;
    const FileUrl url = sandbox.write("movie.mp4", "");
    std::filesystem::resize_file(url.path(), uintmax_t(1) << 40);
    expectFailure(Kind::fileNotReadable, "movie.mp4: File too large", [&] { readProjectFile(url); });
}

}

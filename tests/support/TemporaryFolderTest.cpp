// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/TemporaryFolder.h"
#include "support/ChildProcess.h"

#include <fstream>
#include <gtest/gtest.h>

namespace zumeta::test {

TEST(TemporaryFolder, GoesAwayWithReadOnlyFoldersInIt)
{
    std::filesystem::path path;
    {
        const TemporaryFolder folder;
        path = folder.path();
        std::filesystem::create_directory(folder.file("inner"));
        std::ofstream(folder.file("inner") / "file") << "text";
        std::filesystem::permissions(folder.file("inner"), std::filesystem::perms::owner_read);
        EXPECT_EQ(folder.names(), std::vector<std::string>{"inner"});
    }
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST(ChildProcess, GivesExitCodeAndBothOutputs)
{
    const ProcessResult result =
        runProcess({"sh", {"-c", "echo out; echo err >&2; exit 3"}, std::chrono::seconds(20), {}, {}});
    EXPECT_EQ(result.exitCode, 3);
    EXPECT_EQ(result.out, "out\n");
    EXPECT_EQ(result.err, "err\n");
    EXPECT_FALSE(result.timedOut);
}

TEST(ChildProcess, PassesInputInPieces)
{
    int left = 50;
    const auto input = [&]() { return left-- > 0 ? QByteArray(100'000, 'x') : QByteArray(); };
    EXPECT_EQ(runOrThrow({"wc", {"-c"}, std::chrono::seconds(20), input, {}}).trimmed(), "5000000");
}

TEST(ChildProcess, IsKilledWhenItsTimeIsOver)
{
    const ProcessResult result = runProcess({"sleep", {"100"}, std::chrono::seconds(1), {}, {}});
    EXPECT_TRUE(result.timedOut);
    EXPECT_EQ(result.exitCode, -1);
}

TEST(ChildProcess, ThatFailsIsToldWithItsOwnWords)
{
    try {
        runOrThrow({"sh", {"-c", "echo because >&2; exit 1"}, std::chrono::seconds(20), {}, {}});
        FAIL();
    } catch (const std::runtime_error& error) {
        EXPECT_NE(std::string(error.what()).find("because"), std::string::npos);
    }
    EXPECT_THROW(runOrThrow({"no-such-command", {}, std::chrono::seconds(20), {}, {}}), std::runtime_error);
}

}

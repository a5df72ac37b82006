// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/FileKey.h"
#include "support/FileSandbox.h"

#include <gtest/gtest.h>

namespace zumeta {

// The expected digits come from another program's SHA-256 over the head and the length.

TEST(FileKey, AShortFileIsHashedWholeWithItsLength)
{
    const test::FileSandbox sandbox;
    EXPECT_EQ(fileKey(sandbox.write("abc", "abc")), "baba775df93bdbf9d34cd8eb1cfe68727c19de118e74f374100e75baeea41d90");
    EXPECT_EQ(fileKey(sandbox.write("empty", "")), "af5570f5a1810b7af78caf4bc70a660f0df51e42baf91d4de5b2328de0e83dfc");
}

TEST(FileKey, OnlyTheFirstMebibyteAndTheLengthOfALongFileCount)
{
    const test::FileSandbox sandbox;
    const QByteArray head(1'048'576, 'a');
    EXPECT_EQ(fileKey(sandbox.write("head", head)), "b848aeda9deafa28cdb973a3c6673a6f852244bbf7d016b2b2b0c93e4d2d14f5");
    EXPECT_EQ(fileKey(sandbox.write("long", head + QByteArray(10, 'b'))),
              "cd26867b128eb28b82e03891d66fa7951e33c9e157886eb8e30d34bb8a924712");
    EXPECT_EQ(fileKey(sandbox.write("other", head + QByteArray(10, 'c'))), fileKey(sandbox.url("long")));
    EXPECT_NE(fileKey(sandbox.write("longer", head + QByteArray(11, 'b'))), fileKey(sandbox.url("long")));
}

TEST(FileKey, NameAndPlaceDoNotCount)
{
    const test::FileSandbox sandbox;
    EXPECT_EQ(fileKey(sandbox.write("a/one.mp4", "same")), fileKey(sandbox.write("b/\xff.mov", "same")));
}

TEST(FileKey, AFileThatCannotBeReadThrows)
{
    const test::FileSandbox sandbox;
    EXPECT_THROW(fileKey(sandbox.url("none")), std::system_error);
    EXPECT_THROW(fileKey(FileUrl(sandbox.path())), std::system_error);
}

}

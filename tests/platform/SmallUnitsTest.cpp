// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/BundleInfo.h"
#include "platform/Volume.h"
#include "platform/WallClock.h"
#include "support/FileSandbox.h"

#include <gtest/gtest.h>
#include <sys/statvfs.h>

namespace zumeta {

TEST(BundleInfo, TheBuildTellsTheVersionThatItWasConfiguredWith)
{
    EXPECT_EQ(BundleInfo::main().shortVersion, QStringLiteral(CONFIGURED_VERSION));
    EXPECT_EQ(BundleInfo::main().buildNumber, QStringLiteral(CONFIGURED_BUILD_NUMBER));
}

TEST(BundleInfo, AnEmptyValueIsAnAbsentKey)
{
    const BundleInfo info = BundleInfo::fromValues(QString(), QStringLiteral("12"));
    EXPECT_FALSE(info.shortVersion.has_value());
    EXPECT_EQ(info.buildNumber, QStringLiteral("12"));
    const BundleInfo deployed =
        BundleInfo::fromValues({}, {}, {{QStringLiteral("A"), {}}, {QStringLiteral("B"), QStringLiteral("b")}});
    EXPECT_EQ(deployed.settings.keys(), QStringList(QStringLiteral("B")));
}

TEST(Volume, TellsTheSpaceThatIsFreeForThisUser)
{
    const test::FileSandbox sandbox;
    struct statvfs status = {};
    ASSERT_EQ(::statvfs(sandbox.path().c_str(), &status), 0);
    const VolumeCapacity capacity = SystemVolume().capacityOfFolder(FileUrl(sandbox.path()));
    ASSERT_TRUE(capacity.available.has_value());
    // Others write to the same disk while this runs.
    constexpr double kSlack = 2e9;
    EXPECT_NEAR(double(*capacity.available), double(status.f_bavail) * double(status.f_frsize), kSlack);
    EXPECT_FALSE(capacity.availableForImportantUsage.has_value());
}

TEST(Volume, AFolderWhoseNameIsNotUtf8HasAVolumeToo)
{
    const test::FileSandbox sandbox;
    const FileUrl folder = sandbox.url("\xff\xfe");
    std::filesystem::create_directory(folder.path());
    EXPECT_GT(SystemVolume().capacityOfFolder(folder).available.value_or(0), 0);
}

TEST(Volume, AFileSystemWithoutBlocksTellsNothing)
{
    const VolumeCapacity capacity = SystemVolume().capacityOfFolder(FileUrl("/proc"));
    EXPECT_FALSE(capacity.available.has_value());
    EXPECT_FALSE(capacity.availableForImportantUsage.has_value());
}

TEST(Volume, AMissingFolderThrows)
{
    const test::FileSandbox sandbox;
    EXPECT_THROW(SystemVolume().capacityOfFolder(sandbox.url("none")), std::system_error);
}

TEST(WallClock, TheSystemsClockGivesTheSecondThatHasBegun)
{
    const auto before = std::chrono::system_clock::now();
    const std::chrono::sys_seconds now = SystemWallClock().now();
    EXPECT_GT(now, before - std::chrono::seconds(1));
    EXPECT_LE(now, std::chrono::system_clock::now());
}

}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/export/ExportError.h"
#include "render/export/ExportMetadata.h"
#include "render/export/ExportTimeline.h"
#include "render/export/StorageRequirement.h"
#include "support/TemporaryFolder.h"

#include <cmath>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <system_error>

namespace zumeta::test {

namespace {

ExportTimeline timeline(double offset, double above, double below, double trimStart = 0, double trimEnd = 0)
{
    ExportParameters params;
    params.manualSyncTimeBelow = offset;
    params.exportTrimStartSeconds = trimStart;
    params.exportTrimEndSeconds = trimEnd;
    return ExportTimeline::compute(params, above, below);
}

class FixedVolume final : public Volume {
public:
    explicit FixedVolume(VolumeCapacity capacity)
        : m_capacity(capacity)
    {}
    VolumeCapacity capacityOfFolder(const FileUrl& folder) const override
    {
        asked = folder;
        return m_capacity;
    }
    mutable FileUrl asked;

private:
    VolumeCapacity m_capacity;
};

class BrokenVolume final : public Volume {
public:
    VolumeCapacity capacityOfFolder(const FileUrl&) const override
    {
        throw std::system_error(ENOENT, std::generic_category());
    }
};

constexpr int64_t kLeastMargin = 268'435'456;

}

TEST(ExportTimeline, ATimingOffsetCountsAgainstTheSyncPoints)
{
    ExportParameters params;
    params.timingOffset = 150;
    EXPECT_DOUBLE_EQ(ExportTimeline::compute(params, 10, 20).offset, -1.5);
    params.manualSyncTimeBelow = 4;
    params.manualSyncTimeAbove = 1;
    EXPECT_DOUBLE_EQ(ExportTimeline::compute(params, 10, 20).offset, 1.5);
}

TEST(ExportTimeline, ALaterAboveVideoStartsTheOverlapAtItsBeginning)
{
    const ExportTimeline result = timeline(2, 10, 20);
    EXPECT_DOUBLE_EQ(result.exportDuration, 10);
    EXPECT_DOUBLE_EQ(result.belowStart, 2);
    EXPECT_DOUBLE_EQ(result.aboveStart, 0);
}

TEST(ExportTimeline, AnEarlierAboveVideoIsReadFromItsMiddle)
{
    const ExportTimeline result = timeline(-3, 10, 20);
    EXPECT_DOUBLE_EQ(result.exportDuration, 7);
    EXPECT_DOUBLE_EQ(result.belowStart, 0);
    EXPECT_DOUBLE_EQ(result.aboveStart, 3);
}

TEST(ExportTimeline, TrimsCutBothEndsAndAreClamped)
{
    const ExportTimeline result = timeline(2, 10, 20, 1, 2.5);
    EXPECT_DOUBLE_EQ(result.exportDuration, 6.5);
    EXPECT_DOUBLE_EQ(result.belowStart, 3);
    EXPECT_DOUBLE_EQ(result.aboveStart, 1);
    EXPECT_DOUBLE_EQ(timeline(0, 10, 10, -5, -5).exportDuration, 10);
}

TEST(ExportTimeline, WithNothingLeftIsAnError)
{
    for (const auto& make :
         {std::function([] { timeline(0, 10, 10, 10); }), std::function([] { timeline(0, 10, 10, 99); }),
          std::function([] { timeline(0, 10, 10, 0, 99); }), std::function([] { timeline(10, 10, 10); }),
          std::function([] { timeline(-10, 10, 10); }), std::function([] { timeline(0, 0, 10); })}) {
        try {
            make();
            ADD_FAILURE();
        } catch (const ExportError& error) {
            EXPECT_EQ(error.errorDescription().toStdString(), "Export failed: Export duration is zero or negative");
        }
    }
}

TEST(ExportTimeline, FrameTimesAreWholeSixtyThousandths)
{
    EXPECT_EQ(exportFrameDuration(29.97F), (MediaTime{2002, 60000}));
    EXPECT_EQ(exportFrameDuration(float(30000.0 / 1001)), (MediaTime{2002, 60000}));
    EXPECT_EQ(exportFrameDuration(25), (MediaTime{2400, 60000}));
    EXPECT_EQ(exportFrameDuration(59.94F), (MediaTime{1001, 60000}));
    EXPECT_EQ(exportFrameDuration(24), (MediaTime{2500, 60000}));
    EXPECT_EQ(exportFrameDuration(120), (MediaTime{500, 60000}));
}

TEST(ExportTimeline, ARateThatSaysNothingIsThirty)
{
    for (const float rate :
         {0.0F, -1.0F, std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity()}) {
        EXPECT_EQ(exportFrameRate(rate), 30.0F);
        EXPECT_EQ(exportFrameDuration(exportFrameRate(rate)), (MediaTime{2000, 60000}));
    }
    EXPECT_EQ(exportFrameRate(50), 50.0F);
}

TEST(ExportTimeline, TheNumberOfFramesIsCutFromTheRateAsAFloat)
{
    EXPECT_EQ(exportTotalFrames(0.01, 30), 0);
    EXPECT_EQ(exportTotalFrames(10, 30), 300);
    EXPECT_EQ(exportTotalFrames(9.999, 30), 299);
    // The float of 30000 / 1001 lies a hair below it.
    EXPECT_EQ(exportTotalFrames(300 * 1001.0 / 30000, float(30000.0 / 1001)), 299);
    EXPECT_EQ(exportTotalFrames(1001.0 / 30000, float(30000.0 / 1001)), 0);
}

TEST(ProgressThrottle, LetsThroughEachWholePercentOnce)
{
    ProgressThrottle throttle;
    int reports = 0;
    for (int frame = 1; frame <= 1000; ++frame)
        reports += throttle.shouldReport(frame / 1000.0) ? 1 : 0;
    EXPECT_EQ(reports, 100);
    EXPECT_EQ(throttle.lastReportedProgress(), 1);
}

TEST(ProgressThrottle, LetsThroughEveryFrameOfAShortMovie)
{
    ProgressThrottle throttle;
    EXPECT_TRUE(throttle.shouldReport(1.0 / 3));
    EXPECT_TRUE(throttle.shouldReport(2.0 / 3));
    EXPECT_TRUE(throttle.shouldReport(1));
    EXPECT_TRUE(throttle.shouldReport(1));
}

TEST(StorageRequirement, AddsFivePercentAndAtLeast256MiB)
{
    const FixedVolume volume({int64_t(5'000'000'000), std::nullopt});
    const StorageRequirement requirement =
        storageRequirement(60, ExportResolutionType::hd1080, FileUrl("/nowhere/movie.mp4"), volume);
    EXPECT_EQ(requirement.estimatedBytes, 119'133'000);
    EXPECT_EQ(requirement.requiredBytes, 119'133'000 + kLeastMargin);
    EXPECT_EQ(requirement.availableBytes, 5'000'000'000);
    EXPECT_TRUE(requirement.isMet());
    EXPECT_EQ(volume.asked.path(), "/nowhere");
}

TEST(StorageRequirement, TakesAQuarterWhenThatIsMore)
{
    const FixedVolume volume({int64_t(2'000'000'000), std::nullopt});
    const StorageRequirement requirement =
        storageRequirement(1000, ExportResolutionType::hd1080, FileUrl("/nowhere/movie.mp4"), volume);
    EXPECT_EQ(requirement.estimatedBytes, 1'985'550'000);
    EXPECT_EQ(requirement.requiredBytes, INT64_C(1'985'550'000) + 496'387'500);
    EXPECT_FALSE(requirement.isMet());
}

TEST(StorageRequirement, RoundsTheEstimateUpAndTheMarginDownToAWholeByte)
{
    const FixedVolume volume({int64_t(0), std::nullopt});
    const auto of = [&](double seconds) {
        return storageRequirement(seconds, ExportResolutionType::hd1080, FileUrl("/nowhere/movie.mp4"), volume);
    };
    EXPECT_EQ(of(0.001).estimatedBytes, 1986); // of 1985.55
    EXPECT_EQ(of(1000.001).estimatedBytes, 1'985'551'986);
    EXPECT_EQ(of(1000.001).requiredBytes, INT64_C(1'985'551'986) + 496'387'996);
}

TEST(StorageRequirement, OfNoTimeIsTheMarginAlone)
{
    const FixedVolume volume({int64_t(0), std::nullopt});
    for (const double seconds : {0.0, -3.0, std::numeric_limits<double>::quiet_NaN()}) {
        const StorageRequirement requirement =
            storageRequirement(seconds, ExportResolutionType::uhd4k, FileUrl("/nowhere/movie.mp4"), volume);
        EXPECT_EQ(requirement.estimatedBytes, 0);
        EXPECT_EQ(requirement.requiredBytes, kLeastMargin);
        EXPECT_EQ(requirement.availableBytes, 0);
    }
}

TEST(StorageRequirement, CountsWhatTheSystemWouldMakeRoomForFirst)
{
    const FixedVolume volume({int64_t(100), int64_t(900)});
    EXPECT_EQ(storageRequirement(1, ExportResolutionType::hd720, FileUrl("/nowhere/movie.mp4"), volume).availableBytes,
              900);
}

TEST(StorageRequirement, AFileThatWillBeReplacedCountsAsFree)
{
    const TemporaryFolder folder;
    std::ofstream(folder.file("movie.mp4")) << std::string(12345, 'x');
    const FixedVolume volume({int64_t(1000), std::nullopt});
    EXPECT_EQ(storageRequirement(1, ExportResolutionType::hd720, folder.url("movie.mp4"), volume).availableBytes,
              13345);
    EXPECT_EQ(storageRequirement(1, ExportResolutionType::hd720, folder.url("new.mp4"), volume).availableBytes, 1000);
}

TEST(StorageRequirement, PassesTheVolumesErrorOn)
{
    EXPECT_THROW(storageRequirement(1, ExportResolutionType::hd720, FileUrl("/nowhere/movie.mp4"), BrokenVolume()),
                 std::system_error);
    EXPECT_THROW(
        storageRequirement(1, ExportResolutionType::hd720, FileUrl("/no/such/folder/movie.mp4"), SystemVolume()),
        std::system_error);
}

TEST(StorageRequirement, AVolumeThatTellsNothingCannotBeReadAndIsNotFull)
{
    try {
        storageRequirement(1, ExportResolutionType::hd720, FileUrl("/nowhere/movie.mp4"), FixedVolume({}));
        ADD_FAILURE() << "nothing was thrown";
    } catch (const std::system_error& error) {
        EXPECT_EQ(error.code(), std::errc::not_supported);
    }
}

TEST(ExportError, HasItsTexts)
{
    using Case = ExportError::Case;
    const auto text = [](Case reason, const char* payload = "") {
        return ExportError(reason, QString::fromLatin1(payload)).errorDescription().toStdString();
    };
    EXPECT_EQ(text(Case::exportSessionFailed, "why"), "Export failed: why");
    EXPECT_EQ(text(Case::assetWriterFailed, "why"), "Asset writer failed: why");
    EXPECT_EQ(text(Case::outputURLAlreadyExists), "Output file already exists");
    EXPECT_EQ(text(Case::exportCancelled), "Export was cancelled");
    EXPECT_EQ(text(Case::missingVideoTrack), "Missing video track in source");
    EXPECT_EQ(text(Case::unknown), "Unknown export error");
    EXPECT_EQ(text(Case::passedOn, "the system's own words"), "the system's own words");
    EXPECT_STREQ(ExportError(Case::exportSessionFailed, QStringLiteral("ü")).what(), "Export failed: ü");
}

TEST(ExportMetadata, StandsInOrderUnderItsStandardNames)
{
    const auto now = std::chrono::sys_days{std::chrono::year{2026} / 1 / 2} + std::chrono::seconds(3);
    const QUuid id = QUuid::fromString(QStringLiteral("0A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9"));
    const auto items = createExportMetadata({QStringLiteral("1.2"), QStringLiteral("3")}, id, now);
    const std::vector<std::pair<std::string, std::string>> expected = {
        {"com.apple.quicktime.software", "Zumeta 1.2 (3)"},
        {"com.apple.quicktime.make", "Zumeta"},
        {"com.apple.quicktime.model", "Zumeta Export"},
        {"com.apple.quicktime.creationdate", "2026-01-02T00:00:03Z"},
        {"com.apple.quicktime.comment", "Created with Zumeta; Export ID: zm_0a1b2c3d4e5f60718293a4b5c6d7e8f9"}};
    ASSERT_EQ(items.size(), expected.size());
    for (size_t i = 0; i < items.size(); ++i) {
        EXPECT_EQ(items[i].key, expected[i].first);
        EXPECT_EQ(items[i].value, expected[i].second);
    }
}

}

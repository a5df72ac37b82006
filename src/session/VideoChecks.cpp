// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/VideoChecks.h"

#include "platform/Log.h"
#include "session/FrameRateFamily.h"
#include "session/PictureShape.h"

#include <cmath>

namespace zumeta {

Task<std::optional<double>> getAspectRatio(AssetLoader& assets, FileUrl url)
{
    const AssetOutcome outcome = co_await assets.load(std::move(url));
    const MediaAsset* const asset = std::get_if<MediaAsset>(&outcome);
    if (!asset || !asset->video)
        co_return std::nullopt;
    co_return aspectRatio(*asset->video);
}

Task<std::optional<double>> getFrameRate(AssetLoader& assets, FileUrl url)
{
    const AssetOutcome outcome = co_await assets.load(std::move(url));
    const MediaAsset* const asset = std::get_if<MediaAsset>(&outcome);
    if (!asset || !asset->video)
        co_return std::nullopt;
    co_return double(asset->video->nominalFrameRate);
}

Task<bool> checkAspectRatioMatch(AssetLoader& assets, FileUrl url1, FileUrl url2)
{
    constexpr double kMismatchLimit = 0.1;
    const std::optional<double> ratio1 = co_await getAspectRatio(assets, std::move(url1));
    const std::optional<double> ratio2 = co_await getAspectRatio(assets, std::move(url2));
    if (!ratio1 || !ratio2)
        co_return true;
    const double difference = std::abs(*ratio1 - *ratio2);
    logLine(QStringLiteral("📊 Aspect Ratio Check: %1 and %2, difference %3").arg(*ratio1).arg(*ratio2).arg(difference));
    co_return difference < kMismatchLimit;
}

Task<bool> checkFrameRateFamilyMatch(AssetLoader& assets, FileUrl url1, FileUrl url2)
{
    const std::optional<double> rate1 = co_await getFrameRate(assets, std::move(url1));
    const std::optional<double> rate2 = co_await getFrameRate(assets, std::move(url2));
    if (!rate1 || !rate2)
        co_return true;
    const FrameRateFamily family1 = getFrameRateFamily(*rate1);
    const FrameRateFamily family2 = getFrameRateFamily(*rate2);
    if (family1 == FrameRateFamily::unknown || family2 == FrameRateFamily::unknown || family1 == family2)
        co_return true;
    logLine(QStringLiteral("⚠️ Frame Rate Family Mismatch: %1 (%2) and %3 (%4)")
                .arg(*rate1)
                .arg(rawValue(family1))
                .arg(*rate2)
                .arg(rawValue(family2)));
    co_return false;
}

}

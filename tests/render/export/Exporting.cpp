// SPDX-License-Identifier: GPL-3.0-or-later
#include "Exporting.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFutureWatcher>
#include <QTimer>

namespace zumeta::test {

namespace {

int numberAt(const RawPicture& picture, CodeStrip strip, const Placement& placement, Side side)
{
    const auto code = readBarCode(picture, strip, placement);
    return code && code->side == side ? code->number : -1;
}

}

ExportParameters compositeOf(const std::vector<std::filesystem::path>& above,
                             const std::vector<std::filesystem::path>& below)
{
    ExportParameters params;
    for (const std::filesystem::path& file : above)
        params.aboveVideoURLs.emplace_back(file);
    for (const std::filesystem::path& file : below)
        params.belowVideoURLs.emplace_back(file);
    params.aboveZoom = 22;
    params.waterlineHeight = 300 / 1.22;
    params.blendAmount = 15;
    params.resolution = ExportResolutionType::hd720;
    return params;
}

ReferenceSettings referenceOf(const ExportParameters& params)
{
    ReferenceSettings settings;
    settings.width = facts(params.resolution).width;
    settings.height = facts(params.resolution).height;
    settings.aspectWidth = params.projectAspectRatio.width;
    settings.aspectHeight = params.projectAspectRatio.height;
    settings.waterlineHeight = params.waterlineHeight;
    settings.aboveZoom = params.aboveZoom;
    settings.aboveOffset = params.aboveOffset;
    settings.aboveHorizontalOffset = params.aboveHorizontalOffset;
    settings.blendAmount = params.blendAmount;
    return settings;
}

std::string ExportReport::error() const
{
    return outcome ? outcome->errorDescription().toStdString() : std::string();
}

ExportReport runExport(const ExportParameters& params, const std::filesystem::path& output,
                       const std::function<void(ExportService&, double)>& watch, ExportEnvironment environment)
{
    ExportReport report;
    ExportService service(std::move(environment));
    QEventLoop loop;
    QFutureWatcher<ExportOutcome> watcher;
    QObject::connect(&watcher, &QFutureWatcherBase::finished, &loop, &QEventLoop::quit);
    QTimer limit;
    QObject::connect(&limit, &QTimer::timeout, &loop, [&] {
        report.inTime = false;
        service.cancel();
    });
    limit.start(std::chrono::seconds(110));
    QTimer turns;
    QObject::connect(&turns, &QTimer::timeout, &loop, [&] { ++report.turnsOfTheEventLoop; });
    turns.start(std::chrono::milliseconds(5));
    watcher.setFuture(service.start(params, FileUrl(output), [&](double fraction) {
        report.progress.push_back(fraction);
        if (watch)
            watch(service, fraction);
    }));
    loop.exec();
    QCoreApplication::processEvents();
    report.outcome = watcher.result();
    return report;
}

PictureFormat exportedFormat(const ExportParameters& params)
{
    PictureFormat format;
    format.width = facts(params.resolution).width;
    format.height = facts(params.resolution).height;
    return format;
}

ShownFrames framesShownIn(const std::filesystem::path& movie, const ExportParameters& params,
                          const PictureFormat& aboveSource, const PictureFormat& belowSource)
{
    const ReferenceSettings settings = referenceOf(params);
    ShownFrames shown;
    MovieProbe::forEachFrame(movie, exportedFormat(params), {}, [&](int, const RawPicture& picture) {
        shown.above.push_back(numberAt(picture, CodeStrip::upper, abovePlacement(settings, aboveSource), Side::above));
        shown.below.push_back(numberAt(picture, CodeStrip::lower, belowPlacement(settings, belowSource), Side::below));
    });
    return shown;
}

std::vector<int> counting(int first, int count, int step)
{
    std::vector<int> numbers;
    for (int i = 0; i < count; ++i)
        numbers.push_back(first + i * step);
    return numbers;
}

}

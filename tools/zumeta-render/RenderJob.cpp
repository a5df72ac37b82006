// SPDX-License-Identifier: GPL-3.0-or-later
#include "zumeta-render/RenderJob.h"

#include "media/VideoFileHelper.h"
#include "media/VideoMetadataLoader.h"
#include "model/ProjectShape.h"
#include "platform/Bookmark.h"
#include "platform/ByteCount.h"
#include "platform/WallClock.h"
#include "render/export/ExportError.h"
#include "render/export/ExportTimeline.h"
#include "render/export/StorageRequirement.h"

#include <algorithm>
#include <cmath>
#include <filesystem>

namespace zumeta {

namespace {

/// The size of the first file's picture as it is meant to be seen. Nothing when that cannot be read.
std::optional<ProjectShape> shapeOf(const FileUrl& file, KnownAssets& assets)
{
    try {
        const MediaAsset asset = assets.load(file);
        if (!asset.video)
            return std::nullopt;
        const PreferredTransform& turn = asset.video->preferredTransform;
        const double angle = std::abs(std::atan2(turn.b, turn.a));
        constexpr double kQuarter = 0.78539816339744828; // of half a turn
        const bool upright = angle <= kQuarter || angle >= 3 * kQuarter;
        const double width = asset.video->naturalWidth;
        const double height = asset.video->naturalHeight;
        return upright ? projectShapeForAboveVideo(width, height) : projectShapeForAboveVideo(height, width);
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

std::optional<VideoAsset> metadataOf(const std::vector<FileUrl>& files, KnownAssets& assets)
{
    const MetadataOutcome outcome =
        VideoMetadataLoader::loadNow(files, [&assets](const FileUrl& url) { return assets.load(url); });
    const auto* const asset = std::get_if<VideoAsset>(&outcome);
    return asset ? std::optional(*asset) : std::nullopt;
}

void addBookmarks(VideoAsset& asset)
{
    std::vector<QByteArray> bookmarks;
    for (const FileUrl& file : asset.fileURLs) {
        try {
            bookmarks.push_back(makeBookmark(file));
        } catch (const BookmarkError& error) {
            throw RenderFailure(error.what());
        }
    }
    asset.bookmarkData = bookmarks.front();
    asset.bookmarkDataList = std::move(bookmarks);
}

ProjectState projectOf(const VideoCompositionConfig& config, AspectRatio aspect, VideoAsset above, VideoAsset below)
{
    ProjectState state = ProjectState::createdNow(SystemWallClock());
    addBookmarks(above);
    addBookmarks(below);
    state.aboveVideo = std::move(above);
    state.belowVideo = std::move(below);
    state.projectConfig = config;
    state.projectAspectRatio = aspect;
    state.step3BaseWaterlineHeight = config.waterlineHeight;
    state.step3BaseAboveOffset = config.aboveOffset;
    state.step3BaseAboveHorizontalOffset = config.aboveHorizontalOffset;
    state.step3RelativeWaterlineHeight = 0;
    state.step3RelativeAboveOffset = 0;
    state.step3RelativeAboveHorizontalOffset = 0;
    return state;
}

bool isSamePlace(const FileUrl& a, const FileUrl& b)
{
    std::error_code missing; // a file that is not there yet is told by its path
    return a.path().lexically_normal() == b.path().lexically_normal() ||
           std::filesystem::equivalent(a.path(), b.path(), missing);
}

void setValues(ExportParameters& params, const VideoCompositionConfig& config, CameraType camera)
{
    params.manualSyncTimeAbove = config.aboveStartTime;
    params.manualSyncTimeBelow = config.belowStartTime;
    params.waterlineHeight = config.waterlineHeight;
    params.aboveZoom = config.aboveZoom + baseZoom(camera);
    params.aboveOffset = config.aboveOffset;
    params.aboveHorizontalOffset = config.aboveHorizontalOffset;
    params.timingOffset = config.timingOffset;
    params.blendAmount = config.blendAmount;
    params.exportTrimStartSeconds = config.exportTrimStartSeconds;
    params.exportTrimEndSeconds = config.exportTrimEndSeconds;
}

}

void checkPlaces(const RenderRequest& request)
{
    if (request.project && isSamePlace(*request.project, request.output))
        throw RenderFailure("the movie would replace the project: " + request.output.lastPathComponent());
    if (!request.keep)
        return;
    const std::string name = request.keep->lastPathComponent();
    if (isSamePlace(*request.keep, request.output))
        throw RenderFailure("the project that is kept would replace the movie: " + name);
    for (const auto* files : {&request.aboveFiles, &request.belowFiles}) {
        if (std::any_of(files->begin(), files->end(),
                        [&](const FileUrl& file) { return isSamePlace(file, *request.keep); }))
            throw RenderFailure("the project that is kept would replace a recording: " + name);
    }
    // Told now, and not when the movie is finished.
    std::error_code missing;
    if (!std::filesystem::is_directory(request.keep->path().parent_path(), missing))
        throw RenderFailure(name + " cannot be written: its folder does not exist");
    if (std::filesystem::is_directory(request.keep->path(), missing))
        throw RenderFailure(name + " cannot be written: it is a folder");
}

RenderJob prepareRenderJob(const RenderRequest& request)
{
    checkPlaces(request);
    RenderJob job;
    job.params.aboveVideoURLs = VideoFileHelper::sortedByName(request.aboveFiles);
    job.params.belowVideoURLs = VideoFileHelper::sortedByName(request.belowFiles);
    setValues(job.params, request.config, request.camera);
    const ProjectShape shape = shapeOf(job.params.aboveVideoURLs.front(), *job.assets).value_or(ProjectShape{});
    job.params.projectAspectRatio = shape.projectAspectRatio;
    job.params.resolution = request.resolution.value_or(shape.selectedResolution);
    const std::optional<VideoAsset> above = metadataOf(job.params.aboveVideoURLs, *job.assets);
    const std::optional<VideoAsset> below = metadataOf(job.params.belowVideoURLs, *job.assets);
    if (above && below) {
        try {
            job.estimatedDuration =
                ExportTimeline::compute(job.params, above->duration, below->duration).exportDuration;
        } catch (const ExportError&) {
            // The export itself says that nothing is left of the movie.
        }
        if (request.keep)
            job.project = projectOf(request.config, job.params.projectAspectRatio, *above, *below);
    }
    return job;
}

ExportEnvironment environmentOf(const RenderJob& job)
{
    ExportEnvironment environment;
    environment.loadAsset = [assets = job.assets](const FileUrl& url, const std::stop_token& stop) {
        return assets->load(url, stop);
    };
    return environment;
}

void checkDiskSpace(const RenderJob& job, const FileUrl& output)
{
    StorageRequirement requirement;
    try {
        requirement = storageRequirement(job.estimatedDuration, job.params.resolution, output, SystemVolume());
    } catch (const std::exception&) {
        return;
    }
    if (requirement.isMet())
        return;
    throw RenderFailure(QStringLiteral("Exporting needs about %1 of free space. %2 is currently available. "
                                       "Free up storage and try again.")
                            .arg(byteCountText(requirement.requiredBytes), byteCountText(requirement.availableBytes))
                            .toStdString());
}

}

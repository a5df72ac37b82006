// SPDX-License-Identifier: GPL-3.0-or-later
#include "zumeta-render/RenderJob.h"

#include "media/VideoFileHelper.h"
#include "media/VideoMetadataLoader.h"
#include "model/ProjectDocument.h"
#include "model/ProjectFileError.h"
#include "model/ProjectShape.h"
#include "platform/Bookmark.h"
#include "platform/ByteCount.h"
#include "platform/Log.h"
#include "platform/WallClock.h"
#include "render/export/ExportError.h"
#include "render/export/ExportTimeline.h"
#include "render/export/StorageRequirement.h"

#include <algorithm>
#include <cmath>
#include <filesystem>

namespace zumeta {

namespace {

/// The files of one side of a project that can be found; the rest is left out, as the application does.
std::vector<FileUrl> resolveSide(const std::optional<VideoAsset>& asset, const FileUrl& project, const char* side)
{
    if (!asset)
        throw RenderFailure(std::string("the project has no ") + side + " video");
    std::vector<QByteArray> bookmarks = asset->bookmarkDataList.value_or(std::vector<QByteArray>());
    if (bookmarks.empty() && asset->bookmarkData)
        bookmarks.push_back(*asset->bookmarkData);
    const std::filesystem::path folder = std::filesystem::absolute(project.path()).parent_path();
    std::vector<FileUrl> found;
    for (const QByteArray& bookmark : bookmarks) {
        try {
            found.push_back(resolveBookmark(bookmark, {folder}).url);
        } catch (const BookmarkError& error) {
            logLine(QStringLiteral("❌ Failed to resolve bookmark: ") + QString::fromUtf8(error.what()));
        }
    }
    if (found.empty())
        throw RenderFailure(std::string("the ") + side +
                            " video of the project cannot be found: " + asset->fileName.toStdString());
    return found;
}

const MediaAsset& assetOf(const FileUrl& file, RenderJob& job)
{
    const auto known = job.assets.find(file.path());
    return known != job.assets.end() ? known->second
                                     : job.assets.emplace(file.path(), MediaAsset::load(file)).first->second;
}

/// The size of the first file's picture as it is meant to be seen. Nothing when that cannot be read.
std::optional<ProjectShape> shapeOf(const FileUrl& file, RenderJob& job)
{
    try {
        const MediaAsset& asset = assetOf(file, job);
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

std::optional<VideoAsset> metadataOf(const std::vector<FileUrl>& files, RenderJob& job)
{
    const MetadataOutcome outcome =
        VideoMetadataLoader::loadNow(files, [&job](const FileUrl& url) { return assetOf(url, job); });
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

/// What is written must not take the place of what is read, nor of each other. That the movie spares its recordings is
/// seen to by the export.
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

RenderJob prepareRenderJob(const RenderRequest& request)
{
    checkPlaces(request);
    RenderJob job;
    VideoCompositionConfig config = request.config;
    std::optional<AspectRatio> keptAspect;
    if (request.project) {
        try {
            const ProjectState state = readProjectFile(*request.project);
            config = state.projectConfig;
            keptAspect = state.projectAspectRatio;
            job.params.aboveVideoURLs = resolveSide(state.aboveVideo, *request.project, "above");
            job.params.belowVideoURLs = resolveSide(state.belowVideo, *request.project, "below");
        } catch (const ProjectFileError& error) {
            throw RenderFailure(error.what());
        }
    } else {
        job.params.aboveVideoURLs = VideoFileHelper::sortedByName(request.aboveFiles);
        job.params.belowVideoURLs = VideoFileHelper::sortedByName(request.belowFiles);
    }
    setValues(job.params, config, request.camera);
    const ProjectShape shape = shapeOf(job.params.aboveVideoURLs.front(), job).value_or(ProjectShape{});
    job.params.projectAspectRatio = keptAspect.value_or(shape.projectAspectRatio);
    job.params.resolution = request.resolution.value_or(shape.selectedResolution);
    const std::optional<VideoAsset> above = metadataOf(job.params.aboveVideoURLs, job);
    const std::optional<VideoAsset> below = metadataOf(job.params.belowVideoURLs, job);
    if (above && below) {
        try {
            job.estimatedDuration =
                ExportTimeline::compute(job.params, above->duration, below->duration).exportDuration;
        } catch (const ExportError&) {
            // The export itself says that nothing is left of the movie.
        }
        if (request.keep)
            job.project = projectOf(config, job.params.projectAspectRatio, *above, *below);
    }
    return job;
}

ExportEnvironment environmentOf(const RenderJob& job)
{
    ExportEnvironment environment;
    environment.loadAsset = [assets = job.assets](const FileUrl& url, const std::stop_token& stop) {
        const auto known = assets.find(url.path());
        return known != assets.end() ? known->second : MediaAsset::load(url, stop);
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

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/MediaAsset.h"
#include "platform/BundleInfo.h"
#include "platform/FileUrl.h"
#include "platform/Volume.h"
#include "platform/WallClock.h"
#include "render/MarkImage.h"
#include "render/export/Exporter.h"

#include <QFuture>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>

namespace zumeta {

/// What an export takes from its surroundings.
struct ExportEnvironment {
    BundleInfo bundle = BundleInfo::main();
    std::shared_ptr<const WallClock> clock = std::make_shared<SystemWallClock>();
    /// Draws the mark for a frame of this size; without it, or when it gives nothing, there is no mark.
    std::function<std::shared_ptr<const MarkImage>(int width, int height)> drawMark;
    /// How sources are looked at. Whoever has looked at them already can spare the export the time. Any thread.
    std::function<MediaAsset(const FileUrl&, const std::stop_token&)> loadAsset = MediaAsset::load;
    /// A preset of the encoder in place of the house's settings, to compare them.
    std::string encoderPreset;
    /// Asked for free space on a thread of its own.
    std::shared_ptr<const Volume> volume = std::make_shared<SystemVolume>();
};

/// Turns two sets of source files into one MP4 file. One object serves one export. Its calls belong to the main
/// thread; the work runs on a thread of its own and goes on when the object is dropped.
class ExportService final : public Exporter {
public:
    explicit ExportService(ExportEnvironment environment = {});
    ~ExportService() override;

    Task<std::optional<StorageRequirement>> storageRequirement(double exportDuration, ExportResolutionType resolution,
                                                               FileUrl outputURL) override;
    Task<ExportOutcome> exportComposite(ExportParameters params, FileUrl outputURL,
                                        std::function<void(double)> progressHandler) override;
    void cancel() override;
    bool isCancelled() const override;
    /// Blocks until every export of this process has ended and tidied up: for the end of the program, after cancel().
    static void waitUntilAllHaveEnded();

    /// exportComposite for those who wait on a future. `progressHandler` gets fractions 0 to 1 through this thread's
    /// event loop, once for every whole percent and a last time with 1, posted before the future ends. The future is
    /// never cancelled: cancel() ends it with ExportError::exportCancelled.
    QFuture<ExportOutcome> start(const ExportParameters& params, const FileUrl& outputURL,
                                 std::function<void(double)> progressHandler);

private:
    class Run;
    ExportEnvironment m_environment;
    std::shared_ptr<Run> m_run;
};

}

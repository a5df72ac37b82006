// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "model/ExportSettings.h"
#include "model/VideoAsset.h"
#include "model/VideoCompositionConfig.h"

#include <QByteArray>
#include <QString>
#include <chrono>
#include <cstdint>
#include <optional>

namespace zumeta {
class WallClock;

/// One composite as it is kept in a project file.
struct ProjectState {
    int64_t version = 1;
    QString name = QStringLiteral("Untitled Project");
    /// Whole seconds, because a file holds no more: what is written is read back equal. Neither moves at saving.
    std::chrono::sys_seconds createdAt{};
    std::chrono::sys_seconds modifiedAt{};
    std::optional<VideoAsset> aboveVideo;
    std::optional<VideoAsset> belowVideo;
    VideoCompositionConfig projectConfig;
    ExportSettings exportSettings;
    std::optional<double> step3BaseWaterlineHeight;
    std::optional<double> step3BaseAboveOffset;
    std::optional<double> step3BaseAboveHorizontalOffset;
    /// The config's value minus its base at saving: from them a missing base is rebuilt.
    std::optional<double> step3RelativeWaterlineHeight;
    std::optional<double> step3RelativeAboveOffset;
    std::optional<double> step3RelativeAboveHorizontalOffset;
    AspectRatio projectAspectRatio;

    /// A new project. The clock is read once, so that both dates are equal.
    static ProjectState createdNow(const WallClock& clock);

    /// The bytes of a project file. Throws ProjectFileError (notWritable) for what the format cannot hold.
    QByteArray encode() const;
    /// Throws ProjectFileError, which names the key and the reason.
    static ProjectState decode(const QByteArray& bytes);

    friend bool operator==(const ProjectState&, const ProjectState&) = default;
};

}

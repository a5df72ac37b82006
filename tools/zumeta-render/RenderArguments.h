// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "model/CameraType.h"
#include "model/ExportSettings.h"
#include "model/VideoCompositionConfig.h"
#include "platform/FileUrl.h"

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace zumeta {

/// What the command line asks for. Either a project or two lists of files.
struct RenderRequest {
    std::optional<FileUrl> project;
    std::vector<FileUrl> aboveFiles;
    std::vector<FileUrl> belowFiles;
    FileUrl output;
    VideoCompositionConfig config; ///< of the form with files; holds the sync points
    std::optional<ExportResolutionType> resolution;
    CameraType camera = CameraType::gopro;
    std::optional<FileUrl> keep;
    bool quiet = false;
};

struct HelpWanted {};
struct WrongUsage {
    std::string reason;
};

/// The arguments without the program's name, as the system hands them over.
std::variant<RenderRequest, HelpWanted, WrongUsage> parseRenderArguments(const std::vector<std::string>& arguments);

extern const char* const kRenderUsage;

}

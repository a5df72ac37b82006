// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/JsonFields.h"
#include "model/ProjectState.h"

namespace zumeta {

namespace {

using Field = JsonField;

VideoAsset assetFrom(const Field& field)
{
    VideoAsset asset;
    asset.id = field.required("id").uuid();
    asset.fileURLs = field.required("fileURLs").listOf(&Field::fileUrl);
    asset.fileName = field.required("fileName").text();
    asset.fileSize = field.required("fileSize").integer();
    asset.duration = field.required("duration").number();
    asset.width = field.required("width").integer();
    asset.height = field.required("height").integer();
    asset.frameRate = field.required("frameRate").number();
    asset.bookmarkData = field.optional("bookmarkData", &Field::base64);
    if (const auto list = field.find("bookmarkDataList"))
        asset.bookmarkDataList = list->listOf(&Field::base64);
    asset.proxyURL = field.optional("proxyURL", &Field::fileUrl);
    return asset;
}

/// The tolerant one: what is missing keeps its default.
VideoCompositionConfig configFrom(const Field& field)
{
    VideoCompositionConfig config;
    const auto take = [&field](const char* key, double& value) {
        value = field.optional(key, &Field::number).value_or(value);
    };
    take("waterlineHeight", config.waterlineHeight);
    take("aboveZoom", config.aboveZoom);
    take("aboveOffset", config.aboveOffset);
    take("aboveHorizontalOffset", config.aboveHorizontalOffset);
    take("timingOffset", config.timingOffset);
    take("blendAmount", config.blendAmount);
    take("belowStartTime", config.belowStartTime);
    take("aboveStartTime", config.aboveStartTime);
    config.isSynced = field.optional("isSynced", &Field::boolean).value_or(config.isSynced);
    take("exportTrimStartSeconds", config.exportTrimStartSeconds);
    take("exportTrimEndSeconds", config.exportTrimEndSeconds);
    return config;
}

template <class Choice> Choice knownChoice(const Field& field, std::optional<Choice> (*fromRawValue)(const QString&))
{
    const std::optional<Choice> choice = fromRawValue(field.text());
    if (!choice)
        field.failInvalid("not one of the known values");
    return *choice;
}

ExportSettings settingsFrom(const Field& field)
{
    ExportSettings settings;
    settings.resolution = knownChoice(field.required("resolution"), exportResolutionFromRawValue);
    settings.codec = knownChoice(field.required("codec"), videoCodecFromRawValue);
    settings.quality = field.required("quality").number();
    return settings;
}

AspectRatio aspectRatioFrom(const Field& field)
{
    const std::vector<double> sides = field.listOf(&Field::number);
    if (sides.size() != 2)
        field.failInvalid("expected two numbers, width and height");
    return {sides[0], sides[1]};
}

}

ProjectState ProjectState::decode(const QByteArray& bytes)
{
    const JsonValue value = parseJson(bytes);
    const Field top(value, {});
    ProjectState state;
    state.version = top.required("version").integer();
    state.name = top.required("name").text();
    state.createdAt = top.required("createdAt").date();
    state.modifiedAt = top.required("modifiedAt").date();
    if (const auto above = top.find("aboveVideo"))
        state.aboveVideo = assetFrom(*above);
    if (const auto below = top.find("belowVideo"))
        state.belowVideo = assetFrom(*below);
    state.projectConfig = configFrom(top.required("projectConfig"));
    state.exportSettings = settingsFrom(top.required("exportSettings"));
    state.step3BaseWaterlineHeight = top.optional("step3BaseWaterlineHeight", &Field::number);
    state.step3BaseAboveOffset = top.optional("step3BaseAboveOffset", &Field::number);
    state.step3BaseAboveHorizontalOffset = top.optional("step3BaseAboveHorizontalOffset", &Field::number);
    state.step3RelativeWaterlineHeight = top.optional("step3RelativeWaterlineHeight", &Field::number);
    state.step3RelativeAboveOffset = top.optional("step3RelativeAboveOffset", &Field::number);
    state.step3RelativeAboveHorizontalOffset = top.optional("step3RelativeAboveHorizontalOffset", &Field::number);
    state.projectAspectRatio = aspectRatioFrom(top.required("projectAspectRatio"));
    return state;
}

}

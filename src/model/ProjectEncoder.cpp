// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/Json.h"
#include "model/ProjectFileError.h"
#include "model/ProjectFileText.h"
#include "model/ProjectState.h"

#include <cmath>

namespace zumeta {

namespace {

/// An object being filled. It knows its path, so that a value that JSON cannot hold is named.
class ObjectBuilder {
public:
    explicit ObjectBuilder(std::string path = {})
        : m_path(std::move(path))
    {}

    JsonValue take() { return {std::move(m_object)}; }
    ObjectBuilder child(const char* key) const { return ObjectBuilder(keyPathTo(m_path, key)); }

    void add(const char* key, JsonValue value) { m_object.push_back({key, std::move(value)}); }
    void add(const char* key, bool value) { add(key, JsonValue{value}); }
    void add(const char* key, int64_t value) { add(key, JsonValue{JsonNumber::of(value)}); }
    void add(const char* key, double value) { add(key, number(value, keyPathTo(m_path, key))); }
    void add(const char* key, const QString& value) { add(key, JsonValue{value.toStdString()}); }
    void add(const char* key, std::chrono::sys_seconds value)
    {
        std::optional<std::string> text = textFromDate(value);
        if (!text)
            throw notWritable(keyPathTo(m_path, key), "a date outside the years 0000 to 9999");
        add(key, JsonValue{*std::move(text)});
    }
    void add(const char* key, const QUuid& value) { add(key, JsonValue{textFromUuid(value)}); }
    void add(const char* key, const FileUrl& value) { add(key, JsonValue{value.absoluteString().toStdString()}); }
    void add(const char* key, const QByteArray& value) { add(key, JsonValue{value.toBase64().toStdString()}); }
    void add(const char* key, const AspectRatio& value)
    {
        const std::string path = keyPathTo(m_path, key);
        add(key, JsonValue{JsonValue::Array{number(value.width, keyPathTo(path, 0)),
                                            number(value.height, keyPathTo(path, 1))}});
    }
    void add(const char* key, const std::vector<FileUrl>& values)
    {
        JsonValue::Array array;
        for (const FileUrl& value : values)
            array.push_back({value.absoluteString().toStdString()});
        add(key, JsonValue{std::move(array)});
    }
    void add(const char* key, const std::vector<QByteArray>& values)
    {
        JsonValue::Array array;
        for (const QByteArray& value : values)
            array.push_back({value.toBase64().toStdString()});
        add(key, JsonValue{std::move(array)});
    }
    /// What is absent has no key.
    template <class Value> void add(const char* key, const std::optional<Value>& value)
    {
        if (value)
            add(key, *value);
    }

private:
    static ProjectFileError notWritable(const std::string& path, const char* reason)
    {
        return {ProjectFileError::Kind::notWritable, path, reason};
    }
    static JsonValue number(double value, const std::string& path)
    {
        if (!std::isfinite(value))
            throw notWritable(path, "not a finite number");
        return {JsonNumber::of(value)};
    }

    std::string m_path;
    JsonValue::Object m_object;
};

JsonValue jsonOf(const VideoAsset& asset, ObjectBuilder object)
{
    object.add("id", asset.id);
    object.add("fileURLs", asset.fileURLs);
    object.add("fileName", asset.fileName);
    object.add("fileSize", asset.fileSize);
    object.add("duration", asset.duration);
    object.add("width", asset.width);
    object.add("height", asset.height);
    object.add("frameRate", asset.frameRate);
    object.add("bookmarkData", asset.bookmarkData);
    object.add("bookmarkDataList", asset.bookmarkDataList);
    object.add("proxyURL", asset.proxyURL);
    return object.take();
}

JsonValue jsonOf(const VideoCompositionConfig& config, ObjectBuilder object)
{
    object.add("waterlineHeight", config.waterlineHeight);
    object.add("aboveZoom", config.aboveZoom);
    object.add("aboveOffset", config.aboveOffset);
    object.add("aboveHorizontalOffset", config.aboveHorizontalOffset);
    object.add("timingOffset", config.timingOffset);
    object.add("blendAmount", config.blendAmount);
    object.add("belowStartTime", config.belowStartTime);
    object.add("aboveStartTime", config.aboveStartTime);
    object.add("isSynced", config.isSynced);
    object.add("exportTrimStartSeconds", config.exportTrimStartSeconds);
    object.add("exportTrimEndSeconds", config.exportTrimEndSeconds);
    return object.take();
}

JsonValue jsonOf(const ExportSettings& settings, ObjectBuilder object)
{
    object.add("resolution", rawValue(settings.resolution));
    object.add("codec", rawValue(settings.codec));
    object.add("quality", settings.quality);
    return object.take();
}

}

QByteArray ProjectState::encode() const
{
    ObjectBuilder top;
    top.add("version", version);
    top.add("name", name);
    top.add("createdAt", createdAt);
    top.add("modifiedAt", modifiedAt);
    if (aboveVideo)
        top.add("aboveVideo", jsonOf(*aboveVideo, top.child("aboveVideo")));
    if (belowVideo)
        top.add("belowVideo", jsonOf(*belowVideo, top.child("belowVideo")));
    top.add("projectConfig", jsonOf(projectConfig, top.child("projectConfig")));
    top.add("exportSettings", jsonOf(exportSettings, top.child("exportSettings")));
    top.add("step3BaseWaterlineHeight", step3BaseWaterlineHeight);
    top.add("step3BaseAboveOffset", step3BaseAboveOffset);
    top.add("step3BaseAboveHorizontalOffset", step3BaseAboveHorizontalOffset);
    top.add("step3RelativeWaterlineHeight", step3RelativeWaterlineHeight);
    top.add("step3RelativeAboveOffset", step3RelativeAboveOffset);
    top.add("step3RelativeAboveHorizontalOffset", step3RelativeAboveHorizontalOffset);
    top.add("projectAspectRatio", projectAspectRatio);
    return jsonText(top.take());
}

}

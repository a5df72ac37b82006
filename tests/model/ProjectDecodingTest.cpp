// SPDX-License-Identifier: GPL-3.0-or-later
#include "ProjectStates.h"
#include "model/ProjectDocument.h"
#include "model/ProjectFileError.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <gtest/gtest.h>

namespace zumeta {
namespace {

using Kind = ProjectFileError::Kind;
using test::fullProjectState;

/// The full project's file with the text of one value replaced, wherever that text stands alone.
QByteArray fileWith(const QByteArray& before, const QByteArray& after)
{
    QByteArray bytes = fullProjectState().encode();
    EXPECT_EQ(bytes.count(before), 1) << before.toStdString();
    return bytes.replace(before, after);
}

/// The full project's file without a key; the path has at most two steps.
QByteArray fileWithout(const QStringList& path, const QJsonValue& instead = QJsonValue::Undefined)
{
    QJsonObject top = QJsonDocument::fromJson(fullProjectState().encode()).object();
    EXPECT_TRUE(top.contains(path.front()));
    QJsonObject inner = top.value(path.front()).toObject();
    QJsonObject& object = path.size() == 1 ? top : inner;
    EXPECT_TRUE(object.contains(path.back())) << path.back().toStdString();
    object.remove(path.back());
    if (!instead.isUndefined())
        object.insert(path.back(), instead);
    if (path.size() == 2)
        top.insert(path.front(), inner);
    return QJsonDocument(top).toJson();
}

struct Refusal {
    Kind kind;
    std::string text;
};

std::optional<Refusal> refusalOf(const QByteArray& bytes)
{
    try {
        ProjectState::decode(bytes);
    } catch (const ProjectFileError& error) {
        const std::string text = error.what();
        EXPECT_TRUE(text.starts_with(error.keyPath()));
        EXPECT_EQ(text.find('\n'), std::string::npos);
        return Refusal{error.kind(), text};
    }
    return std::nullopt;
}

void expectRefusal(const QByteArray& bytes, Kind kind, const std::string& text)
{
    const auto refusal = refusalOf(bytes);
    ASSERT_TRUE(refusal.has_value()) << text;
    EXPECT_EQ(refusal->kind, kind) << text;
    EXPECT_EQ(refusal->text, text);
}

}

TEST(ProjectDecoding, EveryRequiredKeyIsMissedByNameWhetherAbsentOrNull)
{
    QStringList required{QStringLiteral("version"),
                         QStringLiteral("name"),
                         QStringLiteral("createdAt"),
                         QStringLiteral("modifiedAt"),
                         QStringLiteral("projectConfig"),
                         QStringLiteral("exportSettings"),
                         QStringLiteral("projectAspectRatio"),
                         QStringLiteral("exportSettings.resolution"),
                         QStringLiteral("exportSettings.codec"),
                         QStringLiteral("exportSettings.quality")};
    for (const char* key : {"id", "fileURLs", "fileName", "fileSize", "duration", "width", "height", "frameRate"}) {
        required << QStringLiteral("aboveVideo.") + QLatin1String(key);
        required << QStringLiteral("belowVideo.") + QLatin1String(key);
    }
    for (const QString& path : required) {
        const std::string text = path.toStdString() + ": a required key is missing";
        expectRefusal(fileWithout(path.split(QLatin1Char('.'))), Kind::missingKey, text);
        expectRefusal(fileWithout(path.split(QLatin1Char('.')), QJsonValue::Null), Kind::missingKey, text);
    }
}

TEST(ProjectDecoding, EveryOptionalKeyMayBeAbsentOrNull)
{
    const std::vector<std::pair<QString, std::function<void(ProjectState&)>>> optional{
        {QStringLiteral("aboveVideo"), [](ProjectState& s) { s.aboveVideo.reset(); }},
        {QStringLiteral("belowVideo"), [](ProjectState& s) { s.belowVideo.reset(); }},
        {QStringLiteral("aboveVideo.bookmarkData"), [](ProjectState& s) { s.aboveVideo->bookmarkData.reset(); }},
        {QStringLiteral("aboveVideo.bookmarkDataList"),
         [](ProjectState& s) { s.aboveVideo->bookmarkDataList.reset(); }},
        {QStringLiteral("aboveVideo.proxyURL"), [](ProjectState& s) { s.aboveVideo->proxyURL.reset(); }},
        {QStringLiteral("step3BaseWaterlineHeight"), [](ProjectState& s) { s.step3BaseWaterlineHeight.reset(); }},
        {QStringLiteral("step3BaseAboveOffset"), [](ProjectState& s) { s.step3BaseAboveOffset.reset(); }},
        {QStringLiteral("step3BaseAboveHorizontalOffset"),
         [](ProjectState& s) { s.step3BaseAboveHorizontalOffset.reset(); }},
        {QStringLiteral("step3RelativeWaterlineHeight"),
         [](ProjectState& s) { s.step3RelativeWaterlineHeight.reset(); }},
        {QStringLiteral("step3RelativeAboveOffset"), [](ProjectState& s) { s.step3RelativeAboveOffset.reset(); }},
        {QStringLiteral("step3RelativeAboveHorizontalOffset"),
         [](ProjectState& s) { s.step3RelativeAboveHorizontalOffset.reset(); }},
    };
    for (const auto& [path, reset] : optional) {
        ProjectState expected = fullProjectState();
        reset(expected);
        EXPECT_EQ(ProjectState::decode(fileWithout(path.split(QLatin1Char('.')))), expected) << path.toStdString();
        EXPECT_EQ(ProjectState::decode(fileWithout(path.split(QLatin1Char('.')), QJsonValue::Null)), expected)
            << path.toStdString();
        EXPECT_FALSE(expected.encode().contains("null"));
    }
}

TEST(ProjectDecoding, TheConfigAloneIsTolerantAndFallsBackKeyByKey)
{
    ProjectState expected = fullProjectState();
    expected.projectConfig = VideoCompositionConfig::defaultConfig();
    const QByteArray empty = fileWithout({QStringLiteral("projectConfig")}, QJsonObject());
    EXPECT_EQ(ProjectState::decode(empty), expected);
    EXPECT_EQ(ProjectState::decode(empty).projectConfig.blendAmount, 15);

    const QJsonObject whole =
        QJsonDocument::fromJson(fullProjectState().encode()).object().value(QLatin1String("projectConfig")).toObject();
    ASSERT_EQ(whole.size(), 11);
    for (const QString& key : whole.keys()) {
        const QByteArray without = fileWithout({QStringLiteral("projectConfig"), key});
        const QByteArray null = fileWithout({QStringLiteral("projectConfig"), key}, QJsonValue::Null);
        EXPECT_EQ(ProjectState::decode(without), ProjectState::decode(null)) << key.toStdString();
        EXPECT_FALSE(ProjectState::decode(without) == fullProjectState()) << key.toStdString();
        expectRefusal(fileWithout({QStringLiteral("projectConfig"), key}, QStringLiteral("1")), Kind::wrongType,
                      "projectConfig." + key.toStdString() + ": expected " +
                          (key == QLatin1String("isSynced") ? "a boolean" : "a number") + ", found a string");
    }
}

TEST(ProjectDecoding, EveryKeyRefusesAnotherType)
{
    const auto refuses = [](const char* path, const QJsonValue& value, const char* reason) {
        expectRefusal(fileWithout(QString::fromLatin1(path).split(QLatin1Char('.')), value), Kind::wrongType,
                      std::string(path) + ": " + reason);
    };
    refuses("version", QStringLiteral("1"), "expected an integer, found a string");
    refuses("version", true, "expected an integer, found a boolean");
    refuses("name", 1, "expected a string, found a number");
    refuses("createdAt", 0, "expected a string, found a number");
    refuses("modifiedAt", QJsonObject(), "expected a string, found an object");
    refuses("aboveVideo", QJsonArray(), "expected an object, found a list");
    refuses("belowVideo", false, "expected an object, found a boolean");
    refuses("projectConfig", QJsonArray(), "expected an object, found a list");
    refuses("projectConfig.aboveZoom", true, "expected a number, found a boolean");
    refuses("projectConfig.isSynced", 1, "expected a boolean, found a number");
    refuses("projectConfig.isSynced", 0, "expected a boolean, found a number");
    refuses("exportSettings", QStringLiteral("4K"), "expected an object, found a string");
    refuses("exportSettings.resolution", 720, "expected a string, found a number");
    refuses("exportSettings.codec", true, "expected a string, found a boolean");
    refuses("exportSettings.quality", QStringLiteral("0.8"), "expected a number, found a string");
    refuses("step3BaseAboveOffset", QJsonArray{1}, "expected a number, found a list");
    refuses("projectAspectRatio", 1.5, "expected a list, found a number");
    refuses("projectAspectRatio", QJsonObject{{QStringLiteral("width"), 4}}, "expected a list, found an object");
    refuses("aboveVideo.id", 1, "expected a string, found a number");
    refuses("aboveVideo.fileURLs", QStringLiteral("file:///a"), "expected a list, found a string");
    refuses("aboveVideo.fileName", QJsonArray(), "expected a string, found a list");
    refuses("aboveVideo.fileSize", QStringLiteral("7"), "expected an integer, found a string");
    refuses("aboveVideo.duration", false, "expected a number, found a boolean");
    refuses("aboveVideo.width", true, "expected an integer, found a boolean");
    refuses("aboveVideo.height", QJsonObject(), "expected an integer, found an object");
    refuses("aboveVideo.frameRate", QStringLiteral("30"), "expected a number, found a string");
    refuses("aboveVideo.bookmarkData", 1, "expected a string, found a number");
    refuses("aboveVideo.bookmarkDataList", QStringLiteral("YQ=="), "expected a list, found a string");
    refuses("aboveVideo.proxyURL", 1, "expected a string, found a number");
    expectRefusal("[]", Kind::wrongType, "expected an object, found a list");
    expectRefusal("null", Kind::wrongType, "expected an object, found null");
}

TEST(ProjectDecoding, AnElementOfAListIsNamedByItsNumber)
{
    expectRefusal(fileWith(R"("\/\/4=")", "null"), Kind::wrongType,
                  "aboveVideo.bookmarkDataList[1]: expected a string, found null");
    expectRefusal(fileWith(R"("\/\/4=")", "\"//4\""), Kind::invalidValue, "aboveVideo.bookmarkDataList[1]: not base64");
    expectRefusal(fileWith(R"("file:\/\/\/media\/card\/GX010123.MP4")", "\"/media/card/GX010123.MP4\""),
                  Kind::invalidValue, "aboveVideo.fileURLs[0]: not a file URL");
    expectRefusal(fileWith("    4,\n    3\n", "4, \"3\""), Kind::wrongType,
                  "projectAspectRatio[1]: expected a number, found a string");
}

TEST(ProjectDecoding, ValuesOfTheRightTypeAndTheWrongFormAreRefusedWithTheReason)
{
    const auto refuses = [](const char* path, const QJsonValue& value, const char* reason) {
        expectRefusal(fileWithout(QString::fromLatin1(path).split(QLatin1Char('.')), value), Kind::invalidValue,
                      std::string(path) + ": " + reason);
    };
    refuses("version", 1.5, "not an integer");
    refuses("createdAt", QStringLiteral("2026-07-14T09:30:00.000Z"), "not a date of the form 2026-07-14T09:30:00Z");
    refuses("modifiedAt", QStringLiteral("2026-02-30T09:30:00Z"), "not a date of the form 2026-07-14T09:30:00Z");
    refuses("aboveVideo.id", QStringLiteral("{1B4E28BA-2FA1-11D2-883F-0016D3CCA427}"), "not a UUID");
    refuses("aboveVideo.bookmarkData", QStringLiteral("YQ"), "not base64");
    refuses("aboveVideo.proxyURL", QStringLiteral("http://example.org/a.mp4"), "not a file URL");
    refuses("aboveVideo.width", 0.5, "not an integer");
    refuses("exportSettings.resolution", QStringLiteral("8K"), "not one of the known values");
    refuses("exportSettings.codec", QStringLiteral("AV1"), "not one of the known values");
    refuses("projectAspectRatio", QJsonArray{}, "expected two numbers, width and height");
    refuses("projectAspectRatio", QJsonArray{16}, "expected two numbers, width and height");
    refuses("projectAspectRatio", QJsonArray{16, 9, 1}, "expected two numbers, width and height");
}

TEST(ProjectDecoding, NumbersPastTheirRangeAreRefusedByName)
{
    expectRefusal(fileWith("\"aboveZoom\" : 12", "\"aboveZoom\" : 1e400"), Kind::invalidValue,
                  "projectConfig.aboveZoom: a number out of range");
    expectRefusal(fileWith("61.394666666666666", "-2e308"), Kind::invalidValue,
                  "aboveVideo.duration: a number out of range");
    expectRefusal(fileWith("9007199254740993", "9223372036854775808"), Kind::invalidValue,
                  "aboveVideo.fileSize: an integer out of range");
    expectRefusal(fileWith("\"version\" : 1", "\"version\" : 1e19"), Kind::invalidValue,
                  "version: an integer out of range");
}

TEST(ProjectDecoding, AnIntegerIsReadInEveryWayOfWritingItAndExactly)
{
    EXPECT_EQ(ProjectState::decode(fileWith("\"width\" : 1920", "\"width\" : 1920.0")).aboveVideo->width, 1920);
    EXPECT_EQ(ProjectState::decode(fileWith("\"width\" : 1920", "\"width\" : 1.92e3")).aboveVideo->width, 1920);
    for (const char* size : {"9223372036854775807", "9007199254740993", "-9223372036854775808"})
        EXPECT_EQ(ProjectState::decode(fileWith("9007199254740993", size)).aboveVideo->fileSize,
                  QByteArray(size).toLongLong());
}

TEST(ProjectDecoding, AnyVersionIsReadAndKept)
{
    const ProjectState state = ProjectState::decode(fileWith("\"version\" : 1", "\"version\" : 99"));
    EXPECT_EQ(state.version, 99);
    EXPECT_TRUE(state.encode().contains("\"version\" : 99"));
    EXPECT_EQ(ProjectState::decode(fileWith("\"version\" : 1", "\"version\" : -3")).version, -3);
}

TEST(ProjectDecoding, UnknownKeysAreIgnoredWhateverTheyHoldAndGoneFromTheNextSave)
{
    QByteArray bytes = fileWith("\"version\" : 1", R"("version" : 1, "later" : {"a": [1e999, null, "\u0000"]})");
    bytes.replace("\"aboveZoom\"", R"("zoomLater" : [], "aboveZoom")");
    bytes.replace("\"codec\"", R"("codecLater" : 1e-999, "codec")");
    bytes.replace("\"bookmarkData\"", R"("cameraLater" : true, "bookmarkData")");
    EXPECT_EQ(ProjectState::decode(bytes), fullProjectState());
    EXPECT_EQ(ProjectState::decode(bytes).encode(), fullProjectState().encode());
}

TEST(ProjectDecoding, OrderSpacingAndEscapesDoNotMatter)
{
    // QJsonDocument writes another spacing, no escaped slashes, and the keys as they come.
    const QByteArray compact = QJsonDocument::fromJson(fullProjectState().encode()).toJson(QJsonDocument::Compact);
    EXPECT_FALSE(compact.contains("\\/"));
    EXPECT_EQ(ProjectState::decode(compact), fullProjectState());
    EXPECT_EQ(ProjectState::decode("\xef\xbb\xbf\n" + compact + "\r\n"), fullProjectState());
}

TEST(ProjectDecoding, TextThatIsNotJsonIsRefusedWithItsPlace)
{
    QByteArray bytes = fullProjectState().encode();
    const qsizetype cut = bytes.indexOf("\"quality\"");
    const auto refusal = refusalOf(bytes.left(cut));
    ASSERT_TRUE(refusal.has_value());
    EXPECT_EQ(refusal->kind, Kind::notJson);
    EXPECT_NE(refusal->text.find("exportSettings"), std::string::npos);
    expectRefusal("", Kind::notJson, "not valid JSON in line 1: it ends too early");
}

TEST(ProjectDecoding, EveryCutOffFileIsRefused)
{
    const QByteArray bytes = fullProjectState().encode();
    for (qsizetype length = 0; length < bytes.size(); ++length)
        ASSERT_TRUE(refusalOf(bytes.left(length)).has_value()) << length;
}

TEST(ProjectDocument, IsAFileWithItsOwnExtension)
{
    EXPECT_STREQ(ProjectDocument::kFileExtension, "zumetaproj");
}

TEST(ProjectDocument, AbsentContentsAreACorruptFile)
{
    try {
        ProjectDocument::fromContents(std::nullopt);
        FAIL() << "nothing was thrown";
    } catch (const ProjectFileError& error) {
        EXPECT_EQ(error.kind(), Kind::fileReadCorruptFile);
    }
}

TEST(ProjectDocument, ContentsAreDecodedAndEncodedAndFailuresPassedOn)
{
    const ProjectDocument document{fullProjectState()};
    EXPECT_EQ(ProjectDocument::fromContents(document.fileContents()), document);
    EXPECT_THROW(ProjectDocument::fromContents(QByteArray()), ProjectFileError);
    ProjectDocument broken = document;
    broken.projectState.projectConfig.aboveZoom = 0.0 / 0.0;
    EXPECT_THROW(broken.fileContents(), ProjectFileError);
}

}

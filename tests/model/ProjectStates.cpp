// SPDX-License-Identifier: GPL-3.0-or-later
#include "ProjectStates.h"

#include <bit>
#include <cmath>
#include <limits>

namespace zumeta::test {

namespace {

using namespace std::chrono;

class Random {
public:
    explicit Random(std::mt19937_64& engine)
        : m_engine(engine)
    {}

    uint64_t below(uint64_t limit) { return m_engine() % limit; }
    bool coin() { return below(2) == 0; }

    double number()
    {
        if (below(3) == 0)
            return double(int64_t(below(2'000'001)) - 1'000'000) / double(1 + below(1000));
        double value = std::numeric_limits<double>::infinity();
        while (!std::isfinite(value))
            value = std::bit_cast<double>(uint64_t(m_engine()));
        return value;
    }
    int64_t integer() { return coin() ? int64_t(m_engine()) : int64_t(below(5000)); }

    QByteArray bytes()
    {
        QByteArray result;
        for (uint64_t left = below(40); left > 0; --left)
            result.append(char(below(256)));
        return result;
    }

    QString text()
    {
        std::u32string points;
        for (uint64_t left = below(20); left > 0; --left) {
            const auto point = char32_t(coin() ? below(0x80) : below(0x110000));
            if (point < 0xd800 || point > 0xdfff)
                points.push_back(point);
        }
        return QString::fromStdU32String(points);
    }

    FileUrl url()
    {
        std::string path;
        for (const char c : bytes())
            path.push_back(c == '\0' ? '/' : c);
        return FileUrl(path.empty() ? std::filesystem::path() : std::filesystem::path('/' + path));
    }

    template <class Make> auto maybe(Make make) -> std::optional<decltype(make())>
    {
        return coin() ? std::optional(make()) : std::nullopt;
    }
    template <class Make> auto several(Make make) -> std::vector<decltype(make())>
    {
        std::vector<decltype(make())> values;
        for (uint64_t left = below(4); left > 0; --left)
            values.push_back(make());
        return values;
    }

private:
    std::mt19937_64& m_engine;
};

VideoAsset randomAsset(Random& random)
{
    const auto bytes = [&] { return random.bytes(); };
    const auto url = [&] { return random.url(); };
    VideoAsset asset;
    asset.id = QUuid::fromRfc4122(
        QByteArray::fromHex(QByteArray::number(quint64(random.integer()), 16).rightJustified(32, 'a')));
    asset.fileURLs = random.several(url);
    asset.fileName = random.text();
    asset.fileSize = random.integer();
    asset.duration = random.number();
    asset.width = random.integer();
    asset.height = random.integer();
    asset.frameRate = random.number();
    asset.bookmarkData = random.maybe(bytes);
    asset.bookmarkDataList = random.maybe([&] { return random.several(bytes); });
    asset.proxyURL = random.maybe(url);
    return asset;
}

}

ProjectState fullProjectState()
{
    ProjectState state;
    state.createdAt = sys_days(2026y / July / 14) + 9h + 30min;
    state.modifiedAt = sys_days(2026y / July / 14) + 9h + 30min + 1s;
    VideoAsset above;
    above.id = QUuid::fromString(QLatin1String("1b4e28ba-2fa1-11d2-883f-0016d3cca427"));
    above.fileURLs = {FileUrl("/media/card/GX010123.MP4"), FileUrl("/media/card/caf\xe9 2.mp4")};
    above.fileName = QStringLiteral(u"GX010123.MP4 (+1 chapters) \u00fc\n");
    above.fileSize = INT64_C(9007199254740993);
    above.duration = 61.394666666666666;
    above.width = 1920;
    above.height = 1080;
    above.frameRate = 59.94005966186523;
    above.bookmarkData = QByteArray("first");
    above.bookmarkDataList = {"first", "\xff\xfe"};
    above.proxyURL = FileUrl("/home/swim/proxy.mp4");
    state.aboveVideo = above;
    VideoAsset below;
    below.fileName = QStringLiteral("below");
    below.bookmarkDataList = std::vector<QByteArray>();
    state.belowVideo = below;
    state.projectConfig = {281.5, 12, -3, 4.25, 150, 20, 7.5, 8.5, true, 1, 2};
    state.exportSettings = {ExportResolutionType::uhd4k, VideoCodec::hevc, 0.5};
    state.step3BaseWaterlineHeight = 280;
    state.step3BaseAboveOffset = -2.5;
    state.step3BaseAboveHorizontalOffset = 0.1;
    state.step3RelativeWaterlineHeight = 1.5;
    state.step3RelativeAboveOffset = -0.5;
    state.step3RelativeAboveHorizontalOffset = 4.15;
    state.projectAspectRatio = {4, 3};
    return state;
}

ProjectState randomProjectState(std::mt19937_64& engine)
{
    Random random(engine);
    const auto number = [&] { return random.number(); };
    constexpr int64_t kSecondsOfFourDigitYears = 315'569'520'000;
    const sys_seconds start = sys_days(0y / January / 1);
    ProjectState state;
    state.version = random.integer();
    state.name = random.text();
    state.createdAt = start + seconds(int64_t(random.below(kSecondsOfFourDigitYears)));
    state.modifiedAt = start + seconds(int64_t(random.below(kSecondsOfFourDigitYears)));
    state.aboveVideo = random.maybe([&] { return randomAsset(random); });
    state.belowVideo = random.maybe([&] { return randomAsset(random); });
    state.projectConfig = {number(), number(), number(),      number(), number(), number(),
                           number(), number(), random.coin(), number(), number()};
    state.exportSettings = {ExportResolutionType(random.below(5)), VideoCodec(random.below(2)), number()};
    state.step3BaseWaterlineHeight = random.maybe(number);
    state.step3BaseAboveOffset = random.maybe(number);
    state.step3BaseAboveHorizontalOffset = random.maybe(number);
    state.step3RelativeWaterlineHeight = random.maybe(number);
    state.step3RelativeAboveOffset = random.maybe(number);
    state.step3RelativeAboveHorizontalOffset = random.maybe(number);
    state.projectAspectRatio = {number(), number()};
    return state;
}

}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/ReferenceComposition.h"

#include "support/Colour.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace zumeta::test {

namespace {

/// The points of the composite that one kind of sample stands for, in pixels from the top left. Chroma is sited left:
/// on every second column of luma, half way between two rows.
struct Sites {
    int columns = 0;
    int rows = 0;
    int spacing = 1; ///< pixels of the composite from one to the next
    double x(int column) const { return column * spacing + 0.5; }
    double y(int row) const { return (row + 0.5) * spacing; }
};

/// Mitchell and Netravali's family with B = 0, C = 0.5.
double catmullRom(double distance)
{
    const double x = std::abs(distance);
    if (x < 1)
        return 1.5 * x * x * x - 2.5 * x * x + 1;
    if (x < 2)
        return -0.5 * x * x * x + 2.5 * x * x - 4 * x + 2;
    return 0;
}

struct Tap {
    int sample = 0;
    double weight = 0;
};

/// What the samples of one row or column contribute at `position`, counted in samples from the first one's site.
std::vector<Tap> tapsAt(double position, double stretch, int sampleCount)
{
    std::vector<Tap> taps;
    double sum = 0;
    for (int k = int(std::ceil(position - 2 * stretch)); k <= int(std::floor(position + 2 * stretch)); ++k) {
        const double weight = catmullRom((k - position) / stretch);
        taps.push_back({std::clamp(k, 0, sampleCount - 1), weight});
        sum += weight;
    }
    for (Tap& tap : taps)
        tap.weight /= sum;
    return taps;
}

/// How the samples of a plane lie in the composite along one axis.
struct Axis {
    double origin = 0; ///< of the picture in the composite, pixels
    double scale = 1;  ///< pixels of the composite for one luma sample of the source
    double step = 1;   ///< luma samples from one sample of this plane to the next
    double site = 0.5; ///< where the first sample stands, in luma samples from the picture's edge
    int samples = 0;

    std::vector<Tap> taps(double at, int spacing) const
    {
        const double position = ((at - origin) / scale - site) / step;
        return tapsAt(position, std::max(1.0, spacing / (scale * step)), samples);
    }
};

double siteOf(ChromaSiting siting, bool subsampled, bool horizontal)
{
    if (!subsampled)
        return 0.5;
    const bool onTheFirst = horizontal ? siting != ChromaSiting::centre : siting == ChromaSiting::topLeft;
    return onTheFirst ? 0.5 : 1.0;
}

std::vector<double> resample(const RawPicture& source, int plane, const Placement& placement, const Sites& sites)
{
    const PictureFormat& format = source.format();
    const bool chroma = plane != 0;
    const bool halfColumns = chroma && format.chromaShiftX == 1;
    const bool halfRows = chroma && format.chromaShiftY == 1;
    // Luma taken at the place of a chroma sample is still luma: it is read at luma's own spacing.
    const int spacing = chroma ? sites.spacing : 1;
    const Axis across{placement.left, placement.width / format.width, halfColumns ? 2.0 : 1.0,
                      siteOf(format.siting, halfColumns, true), source.planeWidth(plane)};
    const Axis down{placement.top, placement.height / format.height, halfRows ? 2.0 : 1.0,
                    siteOf(format.siting, halfRows, false), source.planeHeight(plane)};

    const int sourceRows = source.planeHeight(plane);
    std::vector<double> narrowed(size_t(sites.columns) * size_t(sourceRows));
    for (int column = 0; column < sites.columns; ++column) {
        const std::vector<Tap> taps = across.taps(sites.x(column), spacing);
        for (int row = 0; row < sourceRows; ++row) {
            double sum = 0;
            for (const Tap& tap : taps)
                sum += tap.weight * source.sample(plane, tap.sample, row);
            narrowed[size_t(row) * size_t(sites.columns) + size_t(column)] = sum;
        }
    }
    std::vector<double> result(size_t(sites.columns) * size_t(sites.rows));
    for (int row = 0; row < sites.rows; ++row) {
        double* const out = result.data() + size_t(row) * size_t(sites.columns);
        for (const Tap& tap : down.taps(sites.y(row), spacing)) {
            const double* const in = narrowed.data() + size_t(tap.sample) * size_t(sites.columns);
            for (int column = 0; column < sites.columns; ++column)
                out[column] += tap.weight * in[column];
        }
    }
    for (double& code : result)
        code = valueOf(code, plane, format.range, format.bitDepth);
    return result;
}

/// One side at every site.
struct Layer {
    Layer(const RawPicture& source, const Placement& where, const Sites& sites)
        : placement(where)
        , matrix(source.format().matrix)
        , y(resample(source, 0, where, sites))
        , cb(resample(source, 1, where, sites))
        , cr(resample(source, 2, where, sites))
    {}

    Rgb at(size_t index) const { return toRgb({y[index], cb[index], cr[index]}, matrix); }
    bool covers(double x, double yDown) const
    {
        return x >= placement.left && x < placement.left + placement.width && yDown >= placement.top &&
               yDown < placement.top + placement.height;
    }

    Placement placement;
    ColourMatrix matrix;
    std::vector<double> y;
    std::vector<double> cb;
    std::vector<double> cr;
};

double opacity(const ReferenceBand& band, double yUp)
{
    if (yUp >= band.top)
        return 1;
    if (yUp <= band.bottom)
        return 0;
    return (yUp - band.bottom) / (band.top - band.bottom);
}

Rgb mix(const Rgb& below, const Rgb& above, double share)
{
    return {below.r + share * (above.r - below.r), below.g + share * (above.g - below.g),
            below.b + share * (above.b - below.b)};
}

void composePlanes(RawPicture& result, std::initializer_list<int> planes, const ReferenceSettings& settings,
                   const RawPicture* above, const RawPicture& below)
{
    const int spacing = *planes.begin() == 0 ? 1 : 2;
    const Sites sites{settings.width / spacing, settings.height / spacing, spacing};
    const Layer belowLayer(below, belowPlacement(settings, below.format()), sites);
    std::optional<Layer> aboveLayer;
    if (above != nullptr)
        aboveLayer.emplace(*above, abovePlacement(settings, above->format()), sites);
    const ReferenceBand band = bandOf(settings);
    for (int row = 0; row < sites.rows; ++row) {
        for (int column = 0; column < sites.columns; ++column) {
            const size_t index = size_t(row) * size_t(sites.columns) + size_t(column);
            Rgb colour = belowLayer.at(index);
            if (aboveLayer && aboveLayer->covers(sites.x(column), sites.y(row)))
                colour = mix(colour, aboveLayer->at(index), opacity(band, settings.height - sites.y(row)));
            const Ycc coded = toYcc(colour, ColourMatrix::bt709);
            for (const int plane : planes) {
                const double value = plane == 0 ? coded.y : plane == 1 ? coded.cb : coded.cr;
                const double code = codeOf(value, plane, ColourRange::limited, 8);
                result.setSample(plane, column, row, std::clamp(int(std::lround(code)), 0, 255));
            }
        }
    }
}

/// Fills a target that is centred on the composite, keeps the picture's shape, moves it by a shift (y upward).
Placement fill(const ReferenceSettings& settings, const PictureFormat& source, double zoom, double shiftX,
               double shiftY)
{
    const double w = source.squaredWidth();
    const double h = source.height;
    const double a = std::max(zoom * settings.width / w, zoom * settings.height / h);
    const double x = shiftX + (settings.width - a * w) * 0.5;
    const double yUp = shiftY + (settings.height - a * h) * 0.5;
    return {x, settings.height - (yUp + a * h), a * w, a * h};
}

double contentHeight(const ReferenceSettings& settings)
{
    return settings.width * (settings.aspectHeight / settings.aspectWidth);
}

double zoomOf(const ReferenceSettings& settings)
{
    return (settings.aboveZoom + 100) / 100;
}

}

Placement abovePlacement(const ReferenceSettings& settings, const PictureFormat& source)
{
    const double k = contentHeight(settings) / 600;
    return fill(settings, source, zoomOf(settings), k * settings.aboveHorizontalOffset, k * settings.aboveOffset);
}

Placement belowPlacement(const ReferenceSettings& settings, const PictureFormat& source)
{
    return fill(settings, source, 1, 0, 0);
}

ReferenceBand bandOf(const ReferenceSettings& settings)
{
    const double k = contentHeight(settings) / 600;
    const double waterY =
        zoomOf(settings) * k * settings.waterlineHeight + (settings.height - contentHeight(settings)) * 0.5;
    const double half = zoomOf(settings) * k * settings.blendAmount * 0.5;
    return {waterY - half, waterY + half};
}

RawPicture referenceComposite(const ReferenceSettings& settings, const RawPicture* above, const RawPicture& below)
{
    if (below.format().transfer != TransferFunction::sdr ||
        (above != nullptr && above->format().transfer != TransferFunction::sdr))
        throw std::invalid_argument("the reference does not map tones");
    PictureFormat format;
    format.width = settings.width;
    format.height = settings.height;
    RawPicture result(format);
    composePlanes(result, {0}, settings, above, below);
    composePlanes(result, {1, 2}, settings, above, below);
    return result;
}

}

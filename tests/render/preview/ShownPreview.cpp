// SPDX-License-Identifier: GPL-3.0-or-later
#include "ShownPreview.h"

#include "support/ReferenceComposition.h"

#include <QCoreApplication>
#include <QDeadlineTimer>

namespace zumeta::test {

namespace {

constexpr std::chrono::seconds kPatience{20};

/// Brightness alone: all that a code is read from.
RawPicture brightnessOf(const QImage& image)
{
    PictureFormat format;
    format.width = image.width();
    format.height = image.height();
    format.range = ColourRange::full;
    RawPicture picture(format);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            picture.setSample(0, x, y, qGray(image.pixel(x, y)));
    }
    return picture;
}

void load(MoviePlayer& player, Side side)
{
    player.replaceCurrentItem(PlayerItem(FileUrl(FootageMaker::make(ShownPreview::recording(side)))));
}

}

FootageSpec ShownPreview::recording(Side side)
{
    FootageSpec spec;
    spec.side = side;
    spec.width = kWidth;
    spec.height = kHeight;
    spec.frames = 90;
    return spec;
}

ShownPreview::ShownPreview()
{
    QObject::connect(&window, &QQuickWindow::frameSwapped, [this] { ++swaps; });
    QObject::connect(&surface, &CompositePlayerNSView::pictureShown, [this](quint64 number) {
        ++picturesShown;
        m_newestShown = number;
    });
    window.setColor(Qt::magenta); // no recording and no backdrop has it
    window.resize(kWidth, kHeight);
    surface.setSize({kWidth, kHeight});
    surface.setClock(m_clock);
    surface.setAboveZoom(22);
    surface.setWaterlineHeight(300 / 1.22);
    load(above, Side::above);
    load(below, Side::below);
    surface.updatePlayers(&above, &below);
    window.show();
}

ShownPreview::~ShownPreview()
{
    surface.updatePlayers(nullptr, nullptr);
}

void ShownPreview::seek(int frame)
{
    for (MoviePlayer* const player : {&above, &below})
        player->seek(MediaTime::nearest(frame / 30.0, kSeekTimescale), SeekTolerance::zero);
}

void ShownPreview::updatePlayers(bool hasAbove, bool hasBelow)
{
    surface.updatePlayers(hasAbove ? &above : nullptr, hasBelow ? &below : nullptr);
}

bool ShownPreview::waitUntil(const std::function<bool()>& holds)
{
    const QDeadlineTimer deadline(kPatience);
    while (!holds()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    }
    return true;
}

void ShownPreview::letPass(std::chrono::milliseconds span)
{
    const QDeadlineTimer deadline(span);
    waitUntil([&] { return deadline.hasExpired(); });
}

bool ShownPreview::settle()
{
    const auto isExact = [this](MoviePlayer& player) {
        const std::optional<ShownPicture> shown = player.shownPicture(m_clock.now());
        return shown && shown->isExact;
    };
    constexpr std::chrono::milliseconds kQuiet{200}; // a player's last news may still be on their way
    uint64_t asked = 0;
    QDeadlineTimer quiet(kQuiet);
    return waitUntil([&] {
        const bool isThere = isExact(above) && isExact(below) && m_newestShown == surface.picturesAskedFor();
        if (!isThere || std::exchange(asked, surface.picturesAskedFor()) != surface.picturesAskedFor())
            quiet = QDeadlineTimer(kQuiet);
        return quiet.hasExpired();
    });
}

QImage ShownPreview::grab()
{
    return window.grabWindow().convertToFormat(QImage::Format_RGB32);
}

ShownCodes ShownPreview::codesIn(const QImage& image)
{
    ReferenceSettings settings;
    settings.width = image.width();
    settings.height = image.height();
    settings.waterlineHeight = 300 / 1.22;
    const RawPicture picture = brightnessOf(image);
    const auto numberOf = [&](Side side, CodeStrip strip, const Placement& placement) -> std::optional<int> {
        const std::optional<BarCode> code = readBarCode(picture, strip, placement);
        return code && code->side == side ? std::optional(code->number) : std::nullopt;
    };
    return {numberOf(Side::above, CodeStrip::upper, abovePlacement(settings, pictureFormat(recording(Side::above)))),
            numberOf(Side::below, CodeStrip::lower, belowPlacement(settings, pictureFormat(recording(Side::below))))};
}

bool ShownPreview::waitForCodes(const ShownCodes& codes)
{
    return waitUntil([&] { return this->codes() == codes; });
}

}

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/playback/MoviePlayer.h"
#include "render/preview/CompositePlayerNSView.h"
#include "support/BarCode.h"
#include "support/FootageMaker.h"

#include <QImage>
#include <QQuickWindow>
#include <optional>

namespace zumeta::test {

/// What stands at the two places of the composite where a side's code can be read.
struct ShownCodes {
    std::optional<int> above;
    std::optional<int> below;
    friend bool operator==(const ShownCodes&, const ShownCodes&) = default;
};

/// The preview in a window, with real players on real recordings, in real time.
class ShownPreview {
public:
    static constexpr int kWidth = 320;
    static constexpr int kHeight = 180;

    /// Both sides loaded, as large as the window, which shows them half and half at a GoPro's zoom.
    ShownPreview();
    ~ShownPreview();

    /// A recording of the window's size with the side's codes, 30 frames a second.
    static FootageSpec recording(Side side);

    void seek(int frame);
    void updatePlayers(bool hasAbove, bool hasBelow);
    /// Lets the event loop turn until that holds; false when it takes longer than anything should.
    bool waitUntil(const std::function<bool()>& holds);
    /// Until both players have what they were sent to, and the picture of that is on the screen.
    bool settle();
    /// The event loop turns for so long, for what must not happen in it.
    void letPass(std::chrono::milliseconds span);

    QImage grab();
    ShownCodes codes() { return codesIn(grab()); }
    static ShownCodes codesIn(const QImage& image);
    bool waitForCodes(const ShownCodes& codes);

    QQuickWindow window;
    CompositePlayerNSView surface{window.contentItem()};
    int swaps = 0;
    int picturesShown = 0;

private:
    quint64 m_newestShown = 0;
    MonotonicClock m_clock;
    EventLoopQueue m_queue;
    PlaybackClock m_playbackClock{m_clock, m_queue};

public:
    MoviePlayer above{m_playbackClock, m_queue, nullptr};
    MoviePlayer below{m_playbackClock, m_queue, nullptr};
};

}

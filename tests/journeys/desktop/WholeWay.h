// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "journeys/desktop/DesktopJourney.h"
#include "support/FootageMaker.h"

namespace zumeta::test {

/// The whole application with real recordings, from the start screen to the movie. Nothing but the pointer and the
/// keyboard moves it; the session is only read.
struct WholeWay : DesktopJourney {
    TemporaryFolder folder;

    CompositorViewModel& session() { return app().session(); }
    bool hasFocus(const char* name) { return item(name) && item(name)->hasActiveFocus(); }

    /// Three seconds in two files, as a camera splits and names them; frames 0 to 89.
    std::vector<std::filesystem::path> aboveChapters();
    /// Three seconds in one file; frames 1000 to 1089. Its bytes are its own: no copy elsewhere is taken for it.
    std::filesystem::path belowFile(const char* name = "GX010077.MP4");

    /// Waits until it is there and stands still.
    void waitForStill(const char* name);
    /// With the pointer, once it stands still.
    void clickNamed(const char* name);
    /// With the button down, in steps as of a hand.
    void dragPointer(QPoint from, QPoint to);
    /// A place in an item, on the screen.
    QPoint placeIn(const char* name, double x, double y);
    /// On the trimmer at this time, so far below its top.
    QPoint onTrimmer(double time, double y = 22);
    /// On the picture: width from the left, height from the bottom, 0 to 1.
    QPoint onPicture(double x, double height);

    /// Letter by letter.
    void typeText(const QString& text);
    /// In the desktop's dialog: the path, or several in quotation marks, and Return.
    void typeIntoDialog(const QString& names);
    void typeFile(const std::filesystem::path& path) { typeIntoDialog(QString::fromStdString(path.native())); }
    /// By Tab, as far as it takes.
    void tabTo(const char* name);
    void tabAndPress(const char* name);
    /// Until the video of the step can be scrubbed.
    void waitForVideo();
    bool waitForStep(int step);
    bool waitForToast();

    /// The movie's frames against what the session says of itself: as many as the range has, in order, and both sides
    /// as far apart as the locks and the timing put them. The first frames may differ by the tolerance: what a pointer
    /// sets lies between two frames.
    void expectMovie(const std::filesystem::path& movie, double toleranceInFrames = 1, QSize size = {1280, 720});
};

}

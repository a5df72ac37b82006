// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "shell/ZumetaApp.h"
#include "support/TemporaryFolder.h"

#include <QImage>
#include <QQuickItem>
#include <functional>
#include <gmock/gmock.h>

class QFileDialog;

namespace zumeta::test {

/// The application for a user who has just been given this machine: the language is English, and nothing is stored but
/// that the guide for newcomers was seen.
class WindowJourney : public testing::Test {
protected:
    WindowJourney();
    ~WindowJourney() override;

    /// Before open(): the user has not seen the guide.
    static void beNewcomer();
    /// The desktop's file dialog, while one is open.
    static QFileDialog* fileDialog();
    /// Types this into the dialog that is open or opens now, and takes it.
    void chooseFile(const std::filesystem::path& path);
    /// Waits for the dialog and closes it without a choice.
    void dismissFileDialog();
    /// Passes the start screen.
    void confirmCamera() { app().session().setCameraSelectionConfirmed(true); }
    /// Loads a made recording of 3 s at 30 frames a second, 16:9 and small, whose frames carry numbers: those of the
    /// above side from 0, those of the below side from 1000. Waits until the load is through.
    void loadVideo(zumeta::Side side);
    /// The same with a file of the test's own.
    void load(zumeta::Side side, const std::filesystem::path& file);
    /// Loads these files, the chapters of one recording, and waits until the load is through with all that it does.
    void loadFiles(zumeta::Side side, const std::vector<FileUrl>& files);
    /// Both videos, locked at a second and picked at the middle, and then this step (1 to 4) with its panel.
    void openStep(int step, QSize size = {1400, 900});
    /// Opens the window at this size. Again after close(): what was stored is there.
    void open(QSize size = {1400, 900});
    void close();
    /// What open() opens.
    virtual std::unique_ptr<ZumetaApp> makeApp() { return std::make_unique<ZumetaApp>(); }
    ZumetaApp& app() { return *m_app; }
    /// That of the application, unless a test has its own.
    virtual QQuickWindow& window() { return *m_app->window(); }

    /// The first visible item with this object name; null when there is none.
    QQuickItem* item(const char* objectName);
    /// The first visible item that shows exactly this text.
    QQuickItem* itemWithText(const QString& text);
    /// Presses and releases the left button in the item's middle.
    void click(QQuickItem* item);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {});
    /// Runs the event loop until it holds; false when it does not within so many milliseconds.
    bool waitFor(const std::function<bool()>& condition, int milliseconds = 5000);
    /// What the window shows once nothing moves any more.
    QImage picture();
    void movePointer(QPoint place);
    /// Presses at one place of the window, goes to another in so many moves and releases there.
    void drag(QPoint from, QPoint to, int moves = 8);
    /// The item's middle, in the window.
    QPoint middleOf(const QQuickItem* item);
    /// Compares it with tests/journeys/window/pictures/NAME.png. What was shown is left beside the build, so that a
    /// picture that was meant to change can be looked at and taken over.
    void expectPicture(const char* name) { expectPicture(name, nullptr); }
    /// The same with one item alone, and what stands over it.
    void expectPicture(const char* name, QQuickItem* item);
    /// The same with a picture that was taken of what does not stand still.
    void expectPicture(const char* name, const QImage& shown);

private:
    TemporaryFolder m_home;
    std::unique_ptr<ZumetaApp> m_app;
};

}

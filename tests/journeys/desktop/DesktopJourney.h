// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "journeys/window/WindowJourney.h"

#include <QProcess>

namespace zumeta::test {

/// The application on a screen of its own, moved by the screen's one pointer and one keyboard: what is sent goes the
/// whole way through the X server. Each test has not quite three minutes; then the program ends, whatever it waits for.
class DesktopJourney : public WindowJourney {
protected:
    DesktopJourney();
    ~DesktopJourney() override;

    /// Opens the window and waits until the keyboard is its own.
    void openOnDesktop(QSize size = {1200, 800});
    /// The item's middle on the screen.
    QPoint onScreen(const QQuickItem* item);
    void movePointerTo(QPoint place);
    void pressButton();
    void releaseButton();
    /// With the pointer, which goes there.
    void clickItem(QQuickItem* item);
    /// As the screen's keyboard names them: "Tab", "Return", "ctrl+z".
    void pressKeys(const QStringList& keys);
    /// The whole screen, as whoever sits before it sees it.
    QImage screenshot() const;

    /// Another program, whose window at this place offers the files to be dragged away.
    void startDragSource(QPoint place, const std::vector<std::filesystem::path>& files);
    /// From the source's window to this place of the screen, in steps as of a hand.
    void dragFilesTo(QPoint place);
    /// "copied" or "refused"; empty when the source says nothing.
    QByteArray endOfDrag();

private:
    QProcess m_dragSource;
    QPoint m_dragSourcePlace;
};

}

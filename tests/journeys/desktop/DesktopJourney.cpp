// SPDX-License-Identifier: GPL-3.0-or-later
#include "journeys/desktop/DesktopJourney.h"

#include "journeys/desktop/OwnScreen.h"
#include "journeys/desktop/RealInput.h"

#include <QScreen>
#include <QTest>
#include <unistd.h>

namespace zumeta::test {

namespace {

constexpr unsigned kSecondsOfATest = 170;

/// What was sent comes through the display server.
void settle()
{
    QTest::qWait(realinput::latency());
}

}

DesktopJourney::DesktopJourney()
{
    alarm(kSecondsOfATest);
}

DesktopJourney::~DesktopJourney()
{
    if (m_dragSource.state() != QProcess::NotRunning)
        stop(m_dragSource);
    alarm(0);
}

void DesktopJourney::openOnDesktop(QSize size)
{
    realinput::parkPointer();
    settle();
    open(size);
    ASSERT_TRUE(waitFor([&] { return window().isActive() && window().size() == size; }));
    // The window manager may still be moving it.
    QPoint place;
    ASSERT_TRUE(waitFor([&] {
        QTest::qWait(100);
        return std::exchange(place, window().mapToGlobal(QPoint())) == window().mapToGlobal(QPoint());
    }));
}

QPoint DesktopJourney::onScreen(const QQuickItem* item)
{
    return window().mapToGlobal(middleOf(item));
}

void DesktopJourney::movePointerTo(QPoint place)
{
    realinput::movePointer(place);
    settle();
}

void DesktopJourney::pressButton()
{
    realinput::pressButton();
    settle();
}

void DesktopJourney::releaseButton()
{
    realinput::releaseButton();
    settle();
}

void DesktopJourney::clickItem(QQuickItem* item)
{
    ASSERT_TRUE(item);
    movePointerTo(onScreen(item));
    pressButton();
    releaseButton();
}

void DesktopJourney::pressKeys(const QStringList& keys)
{
    for (const QString& key : keys) {
        realinput::pressKey(key);
        settle();
    }
}

QImage DesktopJourney::screenshot() const
{
    return QGuiApplication::primaryScreen()->grabWindow(0).toImage();
}

void DesktopJourney::startDragSource(QPoint place, const std::vector<std::filesystem::path>& files)
{
    QStringList words{QString::number(place.x()), QString::number(place.y())};
    for (const std::filesystem::path& file : files)
        words << QString::fromStdString(file.native());
    m_dragSourcePlace = place + QPoint(60, 30);
    ASSERT_TRUE(startBound(m_dragSource, QStringLiteral(DRAG_SOURCE), words));
    ASSERT_TRUE(waitFor([&] { return m_dragSource.readAllStandardOutput().contains("ready"); }));
}

void DesktopJourney::dragFilesTo(QPoint place)
{
    constexpr int kSteps = 12;
    movePointerTo(m_dragSourcePlace);
    pressButton();
    for (int step = 1; step <= kSteps; ++step)
        movePointerTo(m_dragSourcePlace + (place - m_dragSourcePlace) * step / kSteps);
    movePointerTo(place + QPoint(2, 1));
    QTest::qWait(200); // both sides agree on what a release would do
    releaseButton();
}

QByteArray DesktopJourney::endOfDrag()
{
    QByteArray said;
    waitFor([&] {
        said += m_dragSource.readAllStandardOutput();
        return said.endsWith('\n');
    });
    return said.trimmed();
}

}

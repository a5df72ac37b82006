// SPDX-License-Identifier: GPL-3.0-or-later
#include "journeys/desktop/DesktopJourney.h"

#include "journeys/desktop/OwnScreen.h"
#include "support/ChildProcess.h"

#include <QScreen>
#include <QTest>
#include <unistd.h>

namespace zumeta::test {

namespace {

constexpr unsigned kSecondsOfATest = 60;

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
    movePointerTo({1599, 999}); // where it points at nothing
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

void DesktopJourney::send(const QStringList& words)
{
    ProcessRequest request{"xdotool", {}, std::chrono::seconds(10), {}, {}};
    for (const QString& word : words)
        request.arguments.push_back(word.toStdString());
    runOrThrow(request);
    QTest::qWait(20); // it comes through the X server
}

void DesktopJourney::movePointerTo(QPoint place)
{
    send({QStringLiteral("mousemove"), QString::number(place.x()), QString::number(place.y())});
}

void DesktopJourney::pressButton()
{
    send({QStringLiteral("mousedown"), QStringLiteral("1")});
}

void DesktopJourney::releaseButton()
{
    send({QStringLiteral("mouseup"), QStringLiteral("1")});
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
    for (const QString& key : keys)
        send({QStringLiteral("key"), key});
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
    if (m_dragSource.state() != QProcess::NotRunning)
        stop(m_dragSource);
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

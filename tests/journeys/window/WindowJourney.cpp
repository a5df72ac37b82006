// SPDX-License-Identifier: GPL-3.0-or-later
#include "journeys/window/WindowJourney.h"

#include "support/FootageMaker.h"

#include "platform/Log.h"
#include "surfaces/theme/SurfaceContext.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QLineEdit>
#include <QQmlEngine>
#include <QTest>
#include <cmath>
#include <utility>

namespace zumeta::test {

namespace {

/// Every item that can be seen, parents first.
void collectVisible(QQuickItem* item, std::vector<QQuickItem*>& found)
{
    if (!item->isVisible() || item->opacity() == 0)
        return;
    found.push_back(item);
    for (QQuickItem* const child : item->childItems())
        collectVisible(child, found);
}

/// The share of pixels that differ by more than smoothing of edges does.
double differingShare(const QImage& a, const QImage& b)
{
    constexpr int kNoticed = 24; // of 255, in any channel
    int64_t differing = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb left = a.pixel(x, y);
            const QRgb right = b.pixel(x, y);
            if (std::abs(qRed(left) - qRed(right)) > kNoticed || std::abs(qGreen(left) - qGreen(right)) > kNoticed ||
                std::abs(qBlue(left) - qBlue(right)) > kNoticed)
                ++differing;
        }
    }
    return double(differing) / (double(a.width()) * a.height());
}

}

WindowJourney::WindowJourney()
{
    for (const char* const folder : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"}) {
        const std::filesystem::path path = m_home.file(folder);
        std::filesystem::create_directory(path);
        std::filesystem::permissions(path, std::filesystem::perms::owner_all);
        qputenv(folder, QByteArray::fromStdString(path.native()));
    }
}

WindowJourney::~WindowJourney() = default;

void WindowJourney::open(QSize size)
{
    m_app = std::make_unique<ZumetaApp>();
    ASSERT_TRUE(m_app->window());
    window().resize(size);
    window().show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window()));
    window().requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
}

void WindowJourney::close()
{
    m_app.reset();
}

QQuickItem* WindowJourney::item(const char* objectName)
{
    std::vector<QQuickItem*> items;
    collectVisible(window().contentItem(), items);
    const auto found = std::ranges::find(items, QString::fromLatin1(objectName), &QQuickItem::objectName);
    return found == items.end() ? nullptr : *found;
}

QQuickItem* WindowJourney::itemWithText(const QString& text)
{
    std::vector<QQuickItem*> items;
    collectVisible(window().contentItem(), items);
    const auto shows = [&](const QQuickItem* item) {
        return item->inherits("QQuickText") && item->property("text").toString() == text;
    };
    const auto found = std::ranges::find_if(items, shows);
    return found == items.end() ? nullptr : *found;
}

void WindowJourney::click(QQuickItem* item)
{
    ASSERT_TRUE(item);
    const auto middleOf = [](const QQuickItem* target) {
        return target->mapToScene(QPointF(target->width() / 2, target->height() / 2));
    };
    // What has just appeared is laid out in the next frames.
    QPointF middle;
    const auto stands = [&] { return std::exchange(middle, middleOf(item)) == middleOf(item); };
    ASSERT_TRUE(QTest::qWaitFor(
        [&] {
            QTest::qWait(40);
            return stands();
        },
        2000));
    QTest::mouseMove(&window(), middle.toPoint());
    QTest::mouseClick(&window(), Qt::LeftButton, {}, middle.toPoint());
}

void WindowJourney::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(&window(), key, modifiers);
}

bool WindowJourney::waitFor(const std::function<bool()>& condition, int milliseconds)
{
    return QTest::qWaitFor(condition, milliseconds);
}

QImage WindowJourney::picture()
{
    SurfaceContext::of(*qmlEngine(&window())).motion().setReduced(true); // what pulses would never come to rest
    QImage last;
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < 5000) {
        QImage shown = window().grabWindow().convertToFormat(QImage::Format_RGB32);
        if (shown == last)
            break;
        last = std::move(shown);
        QTest::qWait(150);
    }
    return last;
}

QFileDialog* WindowJourney::fileDialog()
{
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
        auto* const dialog = qobject_cast<QFileDialog*>(widget);
        if (dialog && dialog->isVisible())
            return dialog;
    }
    return nullptr;
}

void WindowJourney::chooseFile(const std::filesystem::path& path)
{
    ASSERT_TRUE(waitFor([] { return fileDialog() != nullptr; }));
    auto* const name = fileDialog()->findChild<QLineEdit*>();
    ASSERT_TRUE(name);
    name->selectAll();
    QTest::keyClicks(name, QString::fromStdString(path.native()));
    QTest::keyClick(name, Qt::Key_Return);
    ASSERT_TRUE(waitFor([] { return fileDialog() == nullptr; }));
    window().requestActivate(); // as a desktop does
}

void WindowJourney::dismissFileDialog()
{
    ASSERT_TRUE(waitFor([] { return fileDialog() != nullptr; }));
    fileDialog()->reject();
    ASSERT_TRUE(waitFor([] { return fileDialog() == nullptr; }));
    window().requestActivate();
}

void WindowJourney::loadVideo(zumeta::Side side)
{
    const bool isAbove = side == zumeta::Side::above;
    FootageSpec spec;
    spec.side = isAbove ? Side::above : Side::below;
    spec.frames = 90;
    spec.firstNumber = isAbove ? 0 : 1000;
    loadFiles(side, {FileUrl(FootageMaker::make(spec).native())});
}

void WindowJourney::load(zumeta::Side side, const std::filesystem::path& file)
{
    loadFiles(side, {FileUrl(file.native())});
}

void WindowJourney::loadFiles(zumeta::Side side, const std::vector<FileUrl>& files)
{
    const bool isAbove = side == zumeta::Side::above;
    CompositorViewModel& session = app().session();
    // The last thing that a load does is to forget where the video before it began; what is done before that is lost.
    // Its length is told in a turn of its own, and until then there is no place to seek to.
    double VideoCompositionConfig::*const startTime =
        isAbove ? &VideoCompositionConfig::aboveStartTime : &VideoCompositionConfig::belowStartTime;
    VideoCompositionConfig config = session.projectConfig();
    config.*startTime = 1;
    session.setProjectConfig(config);
    isAbove ? session.loadAboveVideo(files) : session.loadBelowVideo(files);
    VideoPlayerService& service = isAbove ? session.abovePlayerService() : session.belowPlayerService();
    ASSERT_TRUE(QTest::qWaitFor(
        [&] {
            const bool isShown = session.currentVideoURL() == files.front();
            return session.projectConfig().*startTime == 0 && service.player().hasCurrentItem() &&
                   (isShown ? session.duration() : service.duration()) > 0;
        },
        15000));
}

void WindowJourney::openStep(int step, QSize size)
{
    if (!m_app)
        open(size);
    confirmCamera();
    CompositorViewModel& session = app().session();
    loadVideo(zumeta::Side::above);
    session.seek(1, true);
    session.toggleAboveLock();
    session.onPickWaterline(0.5);
    ASSERT_TRUE(waitFor([&] { return session.alignmentPointAbove().has_value(); }));
    if (step == 1)
        return;
    session.setCurrentStep(CompositorViewModel::WorkflowStep::step2);
    loadVideo(zumeta::Side::below);
    session.seek(1, true);
    session.toggleBelowLock();
    session.onPickWaterline(0.5);
    ASSERT_TRUE(waitFor([&] { return session.alignmentPointBelow().has_value(); }));
    for (int next = 3; next <= step; ++next)
        session.setCurrentStep(CompositorViewModel::WorkflowStep(next));
    ASSERT_TRUE(waitFor([&] { return int(session.currentStep()) == step; }));
}

void WindowJourney::movePointer(QPoint place)
{
    QTest::mouseMove(&window(), place);
}

void WindowJourney::drag(QPoint from, QPoint to, int moves)
{
    QTest::mousePress(&window(), Qt::LeftButton, {}, from);
    for (int i = 1; i <= moves; ++i)
        QTest::mouseMove(&window(), from + (to - from) * i / moves);
    QTest::mouseRelease(&window(), Qt::LeftButton, {}, to);
}

QPoint WindowJourney::middleOf(const QQuickItem* item)
{
    return item->mapToScene(QPointF(item->width() / 2, item->height() / 2)).toPoint();
}

void WindowJourney::expectPicture(const char* name, QQuickItem* item)
{
    // How far the proxies are depends on the machine.
    const auto proxiesAreMade = [&] { return !this->item("aboveProxyBadge") && !this->item("belowProxyBadge"); };
    ASSERT_TRUE(item || waitFor(proxiesAreMade, 30000));
    QImage shown = picture();
    if (item) {
        const QRectF place = item->mapRectToScene(QRectF(0, 0, item->width(), item->height()));
        const double ratio = window().effectiveDevicePixelRatio();
        shown = shown.copy(QRectF(place.topLeft() * ratio, place.size() * ratio).toAlignedRect() & shown.rect());
    }
    expectPicture(name, shown);
}

void WindowJourney::expectPicture(const char* name, const QImage& shown)
{
    constexpr double kTolerance = 0.003; // of the pixels: letters may be smoothed a little otherwise elsewhere
    const QString file = QLatin1String(name) + QStringLiteral(".png");
    QDir().mkpath(QStringLiteral(SHOWN_FOLDER));
    ASSERT_TRUE(shown.save(QStringLiteral(SHOWN_FOLDER "/") + file));
    const QImage expected(QStringLiteral(PICTURES_FOLDER "/") + file);
    ASSERT_FALSE(expected.isNull()) << "there is no picture " << name << " yet; what is shown lies in " SHOWN_FOLDER;
    ASSERT_EQ(shown.size(), expected.size()) << name;
    EXPECT_LE(differingShare(shown, expected), kTolerance) << name << "; what is shown lies in " SHOWN_FOLDER;
}

}

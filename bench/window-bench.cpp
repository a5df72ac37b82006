// SPDX-License-Identifier: GPL-3.0-or-later
// Measures the whole application in its window, in one of three ways; see usage().
#include "NotingPlayer.h"
#include "PlayingReport.h"
#include "render/preview/CompositePlayerNSView.h"
#include "shell/RendererChoice.h"
#include "shell/ZumetaApp.h"

#include <QApplication>
#include <QEventLoop>
#include <QMouseEvent>
#include <QQuickItem>
#include <QTimer>
#include <cstdio>
#include <cstring>

using namespace zumeta;
using namespace zumeta::bench;

namespace {

constexpr QSize kWindow{1400, 900};
constexpr double kRestBefore = 15; ///< seconds after the last input
constexpr double kRestMeasured = 20;

/// Owns the player that it passes everything on to.
class OwnedNotingPlayer final : public NotingPlayer {
public:
    explicit OwnedNotingPlayer(std::unique_ptr<Player> player)
        : NotingPlayer(*player)
        , m_owned(std::move(player))
    {}

private:
    std::unique_ptr<Player> m_owned;
};

/// The event loop as the application runs it, for so many seconds; nothing wakes it in between.
void run(double seconds)
{
    QEventLoop loop;
    QTimer::singleShot(int(seconds * 1e3), Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}

/// The same until it holds; false when it does not within so many seconds.
bool waitFor(const std::function<bool()>& condition, double seconds)
{
    QEventLoop loop;
    QTimer look;
    look.setTimerType(Qt::PreciseTimer);
    const double end = wallSeconds() + seconds;
    QObject::connect(&look, &QTimer::timeout, &loop, [&] {
        if (condition() || wallSeconds() > end)
            loop.quit();
    });
    look.start(1);
    loop.exec();
    return condition();
}

QQuickItem* visibleItem(QQuickItem* item, const QString& objectName)
{
    if (!item->isVisible())
        return nullptr;
    if (item->objectName() == objectName)
        return item;
    for (QQuickItem* const child : item->childItems()) {
        if (QQuickItem* const found = visibleItem(child, objectName))
            return found;
    }
    return nullptr;
}

void click(QQuickWindow& window, const QQuickItem& item)
{
    const QPointF place = item.mapToScene(QPointF(item.width() / 2, item.height() / 2));
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        const Qt::MouseButtons held = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
        QMouseEvent event(type, place, window.mapToGlobal(place), Qt::LeftButton, held, Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &event);
    }
}

/// One process is one start: the milliseconds from when it was started, by the clock of whoever started it.
int measureStart(int& argc, char** argv, double startedAt)
{
    const QApplication application(argc, argv);
    chooseSceneGraph();
    ZumetaApp app;
    QQuickWindow& window = *app.window();
    int frames = 0;
    QObject::connect(&window, &QQuickWindow::frameSwapped, &window, [&] { ++frames; });
    window.resize(kWindow);
    window.show();
    if (!waitFor([&] { return frames > 0; }, 20))
        return 1;
    const double shownAt = wallSeconds();
    QQuickItem* const start = visibleItem(window.contentItem(), QStringLiteral("startButton"));
    if (!start)
        return 1;
    click(window, *start);
    if (!waitFor([&] { return app.session().isCameraSelectionConfirmed(); }, 5))
        return 1;
    std::printf("%.1f %.1f\n", (shownAt - startedAt) * 1e3, (wallSeconds() - startedAt) * 1e3);
    return 0;
}

bool load(CompositorViewModel& session, Side side, const char* file)
{
    const FileUrl url{std::filesystem::path(file)};
    side == Side::above ? session.loadAboveVideo({url}) : session.loadBelowVideo({url});
    VideoPlayerService& service = side == Side::above ? session.abovePlayerService() : session.belowPlayerService();
    return waitFor([&] { return service.player().hasCurrentItem() && service.duration() > 0; }, 60);
}

bool setUpSide(CompositorViewModel& session, Side side, const char* file)
{
    const bool isAbove = side == Side::above;
    session.setCurrentStep(isAbove ? PublishedFields::WorkflowStep::step1 : PublishedFields::WorkflowStep::step2);
    if (!load(session, side, file))
        return false;
    session.seek(0.5, true);
    isAbove ? session.toggleAboveLock() : session.toggleBelowLock();
    session.onPickWaterline(0.5);
    return waitFor(
        [&] { return (isAbove ? session.alignmentPointAbove() : session.alignmentPointBelow()).has_value(); }, 10);
}

bool proxiesAreMade(const CompositorViewModel& session)
{
    return session.aboveProxyStatus() == ProxyStatus::completed() &&
           session.belowProxyStatus() == ProxyStatus::completed();
}

void measureRest(const char* screen)
{
    run(kRestBefore);
    const double cpu = cpuSeconds();
    const double wall = wallSeconds();
    run(kRestMeasured);
    std::printf("| %s | %.2f %% |\n", screen, 100 * (cpuSeconds() - cpu) / (wallSeconds() - wall));
    std::fflush(stdout);
}

/// Every screen in turn, 15 s after the last change.
int measureRests(int& argc, char** argv, const char* above, const char* below)
{
    const QApplication application(argc, argv);
    chooseSceneGraph();
    ZumetaApp app;
    QQuickWindow& window = *app.window();
    CompositorViewModel& session = app.session();
    window.resize(kWindow);
    window.show();
    window.requestActivate();
    std::printf("| screen | CPU of one core |\n|---|---|\n");
    measureRest("start");
    session.setCameraSelectionConfirmed(true);
    measureRest("Step 1, empty");
    if (!setUpSide(session, Side::above, above))
        return 1;
    measureRest("Step 1, picked");
    if (!setUpSide(session, Side::below, below) || !waitFor([&] { return proxiesAreMade(session); }, 600))
        return 1;
    measureRest("Step 2, picked");
    session.setCurrentStep(PublishedFields::WorkflowStep::step3);
    measureRest("Step 3");
    session.setCurrentStep(PublishedFields::WorkflowStep::step4);
    session.addTrimMarkerAtCurrentTime();
    measureRest("Step 4");
    session.setShowExportSheet(true);
    measureRest("export sheet");
    return 0;
}

/// The composite of both proxies, for so many seconds.
int measurePlaying(int& argc, char** argv, const char* above, const char* below, double seconds)
{
    const QApplication application(argc, argv);
    chooseSceneGraph();
    std::vector<NotingPlayer*> players; // above, below: the order in which the session asks for them
    ZumetaApp app([&](std::unique_ptr<Player> player) {
        auto noting = std::make_unique<OwnedNotingPlayer>(std::move(player));
        players.push_back(noting.get());
        return noting;
    });
    QQuickWindow& window = *app.window();
    CompositorViewModel& session = app.session();
    window.resize(kWindow);
    window.show();
    session.setCameraSelectionConfirmed(true);
    if (!setUpSide(session, Side::above, above) || !setUpSide(session, Side::below, below) ||
        !waitFor([&] { return proxiesAreMade(session); }, 600))
        return 1;
    session.setCurrentStep(PublishedFields::WorkflowStep::step3);
    auto* const surface = window.findChild<CompositePlayerNSView*>();
    if (!surface)
        return 1;
    const Player& belowPlayer = session.belowPlayerService().player();
    PlayingReport playing;
    QObject::connect(surface, &CompositePlayerNSView::pictureShown,
                     [&](quint64 number) { playing.shown(number, belowPlayer.currentTime().seconds()); });
    session.play();
    run(2); // decoders and caches are under way
    playing.begin(belowPlayer.currentTime().seconds());
    players.at(1)->given = [&](const ShownPicture& picture) {
        playing.asked(surface->picturesAskedFor() + 1, picture.presentationTime.seconds());
    };
    run(seconds);
    playing.print(belowPlayer.currentTime().seconds(), session.belowPlayerService().loadedFrameDuration().seconds());
    return 0;
}

int usage()
{
    std::fprintf(stderr,
                 "usage: window-bench start SECONDS       milliseconds to the first picture and to the answer of\n"
                 "                                       Start, from this moment of the monotonic clock\n"
                 "       window-bench rest ABOVE BELOW    what each screen costs while nothing happens\n"
                 "       window-bench play ABOVE BELOW SECONDS\n");
    return 2;
}

}

int main(int argc, char** argv)
{
    const std::vector<const char*> words(argv + 1, argv + argc);
    if (words.size() == 2 && std::strcmp(words[0], "start") == 0)
        return measureStart(argc, argv, std::atof(words[1]));
    if (words.size() == 3 && std::strcmp(words[0], "rest") == 0)
        return measureRests(argc, argv, words[1], words[2]);
    if (words.size() == 4 && std::strcmp(words[0], "play") == 0)
        return measurePlaying(argc, argv, words[1], words[2], std::atof(words[3]));
    return usage();
}

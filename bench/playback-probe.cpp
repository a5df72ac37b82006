// SPDX-License-Identifier: GPL-3.0-or-later
// Plays recordings without a window and prints what was measured as one line of JSON. Run by script/bench playback.
//
// playback-probe seek TARGETS FILE [FILE]      ms from the call until every new picture is there, TARGETS in seconds
// playback-probe drag FROM TO SECONDS FILE     pictures a second while the target moves, sought 60 times a second
// playback-probe step AT COUNT FILE            ms for each step of a frame, forward and backward
// playback-probe play RATE SECONDS FPS FILE [FILE]   frames that were due and shown, CPU
// playback-probe pause SECONDS FILE [FILE]     CPU while standing
// playback-probe scrub SECONDS FILE FILE       resident memory over time
#include "media/playback/MoviePlayer.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTimer>
#include <chrono>
#include <cstdio>
#include <random>
#include <set>
#include <stdexcept>
#include <sys/resource.h>

namespace zumeta {
namespace {

constexpr double kDisplayInterval = 1.0 / 60; ///< seconds

double cpuSeconds()
{
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& time) { return double(time.tv_sec) + double(time.tv_usec) * 1e-6; };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

double residentMebibytes()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').value(1).toDouble() * 4096 / 1024 / 1024;
}

/// Players of the named files, standing at 0 with their first picture.
class Stage {
public:
    explicit Stage(const QStringList& files)
    {
        for (const QString& file : files) {
            players.push_back(std::make_unique<MoviePlayer>(clock, queue, nullptr));
            players.back()->setPictureObserver([this] { look(); });
            players.back()->replaceCurrentItem(MediaComposition(MediaAsset::load(FileUrl(file.toStdString()))));
        }
        awaitExact();
    }

    void seek(double seconds)
    {
        for (const auto& player : players)
            player->seek(MediaTime::nearest(seconds, kSeekTimescale), SeekTolerance::zero);
    }
    bool isExact() const
    {
        for (const auto& player : players) {
            const auto shown = player->shownPicture(clock.now());
            if (!shown || !shown->isExact)
                return false;
        }
        return true;
    }
    void awaitExact()
    {
        if (isExact())
            return;
        QTimer patience;
        QObject::connect(&patience, &QTimer::timeout, [this] { m_loop.exit(1); });
        patience.start(20'000);
        m_waits = true;
        if (m_loop.exec() != 0)
            throw std::runtime_error("no picture within 20 s");
        m_waits = false;
    }
    /// Runs the event loop for a while, calling `sample` at the display's pace.
    void run(double seconds, const std::function<void(double elapsed)>& sample)
    {
        const double begin = clock.now();
        QTimer display;
        display.setTimerType(Qt::PreciseTimer);
        QEventLoop loop;
        double next = begin;
        QObject::connect(&display, &QTimer::timeout, [&] {
            const double now = clock.now();
            if (now - begin >= seconds) {
                loop.quit();
                return;
            }
            if (now < next)
                return;
            next += kDisplayInterval;
            sample(now - begin);
        });
        display.start(4);
        loop.exec();
    }
    void idle(double seconds)
    {
        QEventLoop loop;
        QTimer::singleShot(int(seconds * 1000), &loop, &QEventLoop::quit);
        loop.exec();
    }

    MonotonicClock monotonic;
    EventLoopQueue queue;
    PlaybackClock clock{monotonic, queue};
    std::vector<std::unique_ptr<MoviePlayer>> players;

private:
    void look()
    {
        if (m_waits && isExact())
            m_loop.quit();
    }

    QEventLoop m_loop;
    bool m_waits = false;
};

QJsonObject seek(const QStringList& words)
{
    Stage stage(words.mid(1));
    QJsonArray milliseconds;
    const double cpu = cpuSeconds();
    for (const QString& target : words[0].split(u',')) {
        const double begin = stage.clock.now();
        stage.seek(target.toDouble());
        stage.awaitExact();
        milliseconds.append((stage.clock.now() - begin) * 1000);
        stage.idle(0.02); // a turn of its own for each, and what is read ahead meanwhile is the player's to use
    }
    return {{QStringLiteral("ms"), milliseconds},
            {QStringLiteral("cpuPerSeek"), (cpuSeconds() - cpu) * 1000 / double(milliseconds.size())}};
}

QJsonObject drag(const QStringList& words)
{
    const double from = words[0].toDouble();
    const double to = words[1].toDouble();
    const double seconds = words[2].toDouble();
    Stage stage(words.mid(3));
    stage.seek(from);
    stage.awaitExact();
    std::optional<MediaTime> last;
    int changes = 0;
    double longest = 0;
    double lastChange = 0;
    double error = 0;
    int samples = 0;
    stage.run(seconds, [&](double elapsed) {
        const double target = from + (to - from) * elapsed / seconds;
        stage.seek(target);
        const auto shown = stage.players[0]->shownPicture(stage.clock.now());
        if (!shown)
            return;
        ++samples;
        error += std::abs(shown->presentationTime.seconds() - target);
        if (last && shown->presentationTime != *last) {
            ++changes;
            longest = std::max(longest, elapsed - lastChange);
            lastChange = elapsed;
        }
        last = shown->presentationTime;
    });
    return {{QStringLiteral("picturesPerSecond"), changes / seconds},
            {QStringLiteral("longestGapMs"), longest * 1000},
            {QStringLiteral("meanErrorSeconds"), error / std::max(samples, 1)}};
}

QJsonObject step(const QStringList& words)
{
    Stage stage(words.mid(2));
    MoviePlayer& player = *stage.players[0];
    const MediaAsset asset = MediaAsset::load(FileUrl(words[2].toStdString()));
    const MediaTime frame = asset.video->minFrameDuration;
    stage.seek(words[0].toDouble());
    stage.awaitExact();
    stage.idle(1); // what a player reads around the place where it stands
    QJsonArray milliseconds;
    std::mt19937 random(5);
    for (int i = 0; i < words[1].toInt(); ++i) {
        // A walk that keeps near its start, as a person's does who looks for a frame.
        const bool forward = (i / 4 + int(random() % 2)) % 2 == 0;
        const double begin = stage.clock.now();
        const MediaTime now = player.currentTime();
        player.seek(forward ? now + frame : now - frame, SeekTolerance::zero);
        stage.awaitExact();
        milliseconds.append((stage.clock.now() - begin) * 1000);
        stage.idle(0.01);
    }
    return {{QStringLiteral("ms"), milliseconds}};
}

QJsonObject play(const QStringList& words)
{
    const double rate = words[0].toDouble();
    const double seconds = words[1].toDouble();
    const double fps = words[2].toDouble();
    Stage stage(words.mid(3));
    if (rate < 0) {
        const double end = MediaAsset::load(FileUrl(words[3].toStdString())).duration.seconds();
        stage.seek(std::min(end - 0.1, seconds * -rate + 1.5));
        stage.awaitExact();
    }
    stage.idle(1); // from a stand, as a person starts to play
    std::vector<std::set<int64_t>> shownFrames(stage.players.size());
    std::vector<std::set<int64_t>> dueFrames(stage.players.size());
    double greatestError = 0;
    const double cpu = cpuSeconds();
    for (const auto& player : stage.players)
        player->setRate(rate);
    stage.run(seconds, [&](double) {
        const double now = stage.clock.now();
        for (size_t i = 0; i < stage.players.size(); ++i) {
            const double time = stage.players[i]->currentTime().seconds();
            dueFrames[i].insert(int64_t(std::floor(time * fps + 0.01)));
            if (const auto shown = stage.players[i]->shownPicture(now)) {
                shownFrames[i].insert(std::llround(shown->presentationTime.seconds() * fps));
                greatestError = std::max(greatestError, std::abs(time - shown->presentationTime.seconds()));
            }
        }
    });
    const double used = cpuSeconds() - cpu;
    double due = 0;
    double shown = 0;
    for (size_t i = 0; i < stage.players.size(); ++i) {
        due += double(dueFrames[i].size());
        shown += double(std::count_if(dueFrames[i].begin(), dueFrames[i].end(),
                                      [&](int64_t frame) { return shownFrames[i].contains(frame); }));
    }
    return {{QStringLiteral("due"), due},
            {QStringLiteral("shown"), shown},
            {QStringLiteral("greatestErrorSeconds"), greatestError},
            {QStringLiteral("cpu"), used},
            {QStringLiteral("seconds"), seconds}};
}

QJsonObject pause(const QStringList& words)
{
    Stage stage(words.mid(1));
    stage.idle(2);
    const double cpu = cpuSeconds();
    stage.idle(words[0].toDouble());
    return {{QStringLiteral("cpuPercent"), (cpuSeconds() - cpu) / words[0].toDouble() * 100}};
}

QJsonObject scrub(const QStringList& words)
{
    const double seconds = words[0].toDouble();
    const double length = MediaAsset::load(FileUrl(words[1].toStdString())).duration.seconds();
    Stage stage(words.mid(1));
    std::mt19937 random(3);
    std::uniform_real_distribution<double> anywhere(0, length);
    QJsonArray mebibytes;
    double nextSample = 0;
    double from = 0;
    double to = anywhere(random);
    double begin = 0;
    stage.run(seconds, [&](double elapsed) {
        constexpr double kSweep = 0.7; // seconds for one movement of the hand
        if (elapsed - begin > kSweep) {
            begin = elapsed;
            from = std::exchange(to, anywhere(random));
        }
        stage.seek(from + (to - from) * (elapsed - begin) / kSweep);
        if (elapsed >= nextSample) {
            mebibytes.append(residentMebibytes());
            nextSample += seconds / 20;
        }
    });
    return {{QStringLiteral("mebibytes"), mebibytes}};
}

int run(QStringList words)
{
    using Command = QJsonObject (*)(const QStringList&);
    struct Entry {
        const char* name;
        Command command;
        int leastWords;
    };
    constexpr Entry kEntries[] = {{"seek", seek, 2}, {"drag", drag, 4},   {"step", step, 3},
                                  {"play", play, 4}, {"pause", pause, 2}, {"scrub", scrub, 3}};
    const QString name = words.isEmpty() ? QString() : words.takeFirst();
    for (const Entry& entry : kEntries) {
        if (name == QLatin1String(entry.name) && words.size() >= entry.leastWords) {
            std::puts(QJsonDocument(entry.command(words)).toJson(QJsonDocument::Compact).constData());
            return 0;
        }
    }
    std::fputs("see the head of this program's source for its use\n", stderr);
    return 2;
}

}
}

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    try {
        return zumeta::run(QCoreApplication::arguments().mid(1));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}

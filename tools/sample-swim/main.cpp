// SPDX-License-Identifier: GPL-3.0-or-later
#include "AboveScene.h"
#include "BelowScene.h"
#include "PictureConversion.h"
#include "Progress.h"
#include "Recording.h"
#include "SampleOptions.h"

#include "platform/Log.h"

#include <QCoreApplication>
#include <csignal>
#include <cstdio>
#include <string>
#include <unistd.h>

namespace {

using namespace zumeta::swim;
namespace fs = std::filesystem;

std::atomic<bool> g_interrupted = false;
static_assert(std::atomic<bool>::is_always_lock_free, "a signal handler sets it");

extern "C" void interrupt(int)
{
    g_interrupted = true;
}

/// Files under names of this process until all are complete; whatever is not committed is removed.
class PendingFiles {
public:
    explicit PendingFiles(fs::path folder)
        : m_folder(std::move(folder))
    {}
    ~PendingFiles()
    {
        std::error_code ignored;
        for (const auto& [temporary, target] : m_files)
            fs::remove(temporary, ignored);
    }
    PendingFiles(const PendingFiles&) = delete; // one owner of the files on disk
    PendingFiles& operator=(const PendingFiles&) = delete;

    zumeta::FileUrl add(const std::string& name)
    {
        const fs::path temporary = m_folder / ("." + name + "." + std::to_string(getpid()) + ".part");
        m_files.emplace_back(temporary, m_folder / name);
        return zumeta::FileUrl(fs::absolute(temporary));
    }
    void commit()
    {
        for (const auto& [temporary, target] : m_files)
            fs::rename(temporary, target);
        m_files.clear();
    }

private:
    fs::path m_folder;
    std::vector<std::pair<fs::path, fs::path>> m_files;
};

constexpr const char* kAboveFirst = "GX010042.MP4";
constexpr const char* kAboveSecond = "GX020042.MP4";
constexpr const char* kBelow = "GX010117.MP4";

/// Draws and writes all three files. False when it was interrupted.
bool record(const SampleOptions& options, const SwimPlan& plan, PendingFiles& files)
{
    RowPool pool;
    const WaterTextures water;
    AboveScene above(aboveView(options.width, options.height), water, pool);
    BelowScene below(belowView(options.width, options.height), water, pool);
    Canvas canvas(options.width, options.height);
    Progress progress(Progress::styleFor(options.quiet), plan.aboveFrames + plan.belowFrames);
    const DrawFrame drawAbove = [&](int frame, const zumeta::WritablePicture& picture) {
        above.draw(plan.aboveSwimTime(frame), canvas);
        convert(canvas, picture, pool);
        progress.advance();
    };
    const DrawFrame drawBelow = [&](int frame, const zumeta::WritablePicture& picture) {
        below.draw(plan.belowSwimTime(frame), canvas);
        convert(canvas, picture, pool);
        progress.advance();
    };
    const auto chapter = [&](const char* name, int firstFrame, int endFrame) {
        return Chapter{files.add(name), options.width, options.height, plan.rate, firstFrame, endFrame};
    };
    SwimSound aboveSound(plan, SwimSound::Place::above);
    SwimSound belowSound(plan, SwimSound::Place::below);
    return writeChapter(chapter(kAboveFirst, 0, plan.firstChapterFrames), drawAbove, aboveSound, g_interrupted) &&
           writeChapter(chapter(kAboveSecond, plan.firstChapterFrames, plan.aboveFrames), drawAbove, aboveSound,
                        g_interrupted) &&
           writeChapter(chapter(kBelow, 0, plan.belowFrames), drawBelow, belowSound, g_interrupted);
}

/// As a shell takes it for one word.
std::string quoted(const std::string& text)
{
    const bool plain =
        text.find_first_not_of("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789/._+-,:@%=") ==
        std::string::npos;
    if (plain && !text.starts_with('-'))
        return text;
    std::string result = "'";
    for (const char c : text)
        result += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return result + "'";
}

void tell(const SampleOptions& options, const SwimPlan& plan)
{
    const double syncAbove = plan.secondsOf(plan.aboveLandmarkFrame);
    const double syncBelow = plan.secondsOf(plan.belowLandmarkFrame);
    const double surfaceAbove = aboveView(options.width, options.height).surfaceHeight();
    const double surfaceBelow = belowView(options.width, options.height).surfaceHeight();
    const auto path = [&](const char* name) { return quoted((options.folder / name).lexically_normal().string()); };
    std::printf("above               %s %s\n", path(kAboveFirst).c_str(), path(kAboveSecond).c_str());
    std::printf("below               %s\n", path(kBelow).c_str());
    std::printf("landmark-above      %.6f  seconds; the swimmer's head passes the rope's change of colour\n",
                syncAbove);
    std::printf("landmark-below      %.6f  seconds; the same instant\n", syncBelow);
    std::printf("beep-above          %.6f  seconds; the start beep sets in\n", plan.beepAboveTime());
    std::printf("beep-below          %.6f  seconds\n", plan.beepBelowTime());
    std::printf("surface-above       %.6f  0 bottom to 1 top, as it is seen under the camera's zoom of %.2f\n",
                shownHeight(surfaceAbove), kCameraZoom);
    std::printf("surface-above-file  %.6f  the same in the file's own picture\n", surfaceAbove);
    std::printf("surface-below       %.6f  0 bottom to 1 top\n", surfaceBelow);
    std::printf(
        "\nThis joins them:\nzumeta-render --above %s --above %s --below %s --sync-above %.6f --sync-below %.6f "
        "--point-above %.6f --point-below %.6f OUT.mp4\n",
        path(kAboveFirst).c_str(), path(kAboveSecond).c_str(), path(kBelow).c_str(), syncAbove, syncBelow,
        shownHeight(surfaceAbove), surfaceBelow);
}

int run(const SampleOptions& options)
{
    fs::create_directories(options.folder);
    for (const char* const name : {kAboveFirst, kAboveSecond, kBelow}) {
        // Cameras use such names: what is there may be somebody's real recording.
        if (fs::exists(fs::symlink_status(options.folder / name)))
            throw std::runtime_error((options.folder / name).string() + " is there already");
    }
    const SwimPlan plan = SwimPlan::make(options.rate, options.seconds);
    PendingFiles files(options.folder);
    if (!record(options, plan, files)) {
        std::fputs("sample-swim: interrupted\n", stderr);
        return 1;
    }
    files.commit();
    tell(options, plan);
    return 0;
}

int start(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const auto read = readOptions(QCoreApplication::arguments());
    if (const auto* const problem = std::get_if<QString>(&read)) {
        std::fprintf(stderr, "sample-swim: %s\nTry sample-swim --help.\n", qUtf8Printable(*problem));
        return 2;
    }
    const auto& options = std::get<SampleOptions>(read);
    if (options.help) {
        std::fputs(qUtf8Printable(helpText()), stdout);
        return 0;
    }
    // Standard output is for the numbers that scripts read.
    const zumeta::LogCapture quiet([](const QString&) {});
    // A file that grows past a limit is an error of the write, told like a full disk, and no reason to be killed.
    std::signal(SIGXFSZ, SIG_IGN);
    std::signal(SIGINT, interrupt);
    std::signal(SIGTERM, interrupt);
    return run(options);
}

}

int main(int argc, char** argv)
{
    try {
        return start(argc, argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "sample-swim: %s\n", error.what());
        return 1;
    }
}

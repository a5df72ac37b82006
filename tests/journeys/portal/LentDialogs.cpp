// SPDX-License-Identifier: GPL-3.0-or-later
#include "journeys/portal/LentDialogs.h"

#include "journeys/desktop/OwnScreen.h"
#include "support/FootageMaker.h"
#include "support/TemporaryFolder.h"

#include <memory>
#include <stdexcept>

namespace zumeta::test::LentDialogs {

namespace {

/// What there is of it while it runs.
struct Running {
    TemporaryFolder folder;
    QProcess portal;
    std::vector<std::filesystem::path> files;
    QStringList heard;
};

std::unique_ptr<Running> running;

std::filesystem::path recordingAs(const char* name, int firstNumber)
{
    FootageSpec spec;
    spec.side = Side::above;
    spec.frames = 60;
    spec.firstNumber = firstNumber;
    const std::filesystem::path place = running->folder.file(name);
    std::filesystem::copy_file(FootageMaker::make(spec), place);
    return place;
}

}

void start()
{
    running = std::make_unique<Running>();
    running->files = {recordingAs("GX010042.MP4", 0), recordingAs("GX020042.MP4", 60)};
    QStringList words;
    for (const std::filesystem::path& file : running->files)
        words << QString::fromStdString(file.native());
    if (!startBound(running->portal, QStringLiteral(FAKE_PORTAL), words) || !running->portal.waitForReadyRead(10000))
        throw std::runtime_error("the portal does not come up");
    running->portal.readLine(); // "ready"
}

void end()
{
    stop(running->portal);
    running.reset();
}

std::vector<std::filesystem::path> filesToOpen()
{
    return running->files;
}

QStringList questions()
{
    running->portal.waitForReadyRead(50); // older than the event loop, which does not know it
    while (running->portal.canReadLine())
        running->heard << QString::fromUtf8(running->portal.readLine()).trimmed();
    return running->heard;
}

}

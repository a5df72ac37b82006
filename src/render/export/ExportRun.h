// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/FrameReader.h"
#include "media/movie/MovieWriter.h"
#include "render/export/ExportService.h"
#include "render/export/ExportTimeline.h"
#include "render/export/OutputTurns.h"

#include <stop_token>

namespace zumeta {

/// One export from the opening of its sources to the closing of its movie, on the thread that calls run().
class ExportRun {
public:
    ExportRun(ExportParameters params, FileUrl outputURL, ExportEnvironment environment, std::stop_token stop,
              std::function<void(double)> report);

    /// Never throws. On every way out but success the file that was begun is gone.
    ExportOutcome run();

private:
    void exportMovie();
    void removeOldOutput() const;
    void openSources();
    void createOutput();
    MovieSettings movieSettings() const;
    std::unique_ptr<FrameSource> openReader(const MediaComposition& source, double start) const;
    void writeMovie();
    void throwIfCancelled() const;

    const ExportParameters m_params;
    const FileUrl m_outputURL;
    OutputTurns m_turns;
    const ExportEnvironment m_environment;
    const std::stop_token m_stop;
    const std::function<void(double)> m_report;

    MediaComposition m_above;
    MediaComposition m_below;
    ExportTimeline m_timeline;
    float m_fps = 0;
    std::unique_ptr<MovieWriter> m_writer;
};

}

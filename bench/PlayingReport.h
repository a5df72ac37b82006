// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QObject>
#include <QTimer>
#include <cstdint>
#include <map>
#include <vector>

namespace zumeta::bench {

double cpuSeconds(); ///< of this process, all threads
double wallSeconds();
/// The value below which this share, 0 to 1, of the values lies; 0 of none.
double percentile(std::vector<double> values, double share);

/// What is noted while the preview plays: which pictures reached the screen when, how late turns of the event loop
/// came, and the processor's time. Main thread.
class PlayingReport {
public:
    PlayingReport();
    PlayingReport(const PlayingReport&) = delete; // its timer knows its address
    PlayingReport& operator=(const PlayingReport&) = delete;

    /// Forgets everything before. `mediaTime`: seconds of the recording at this moment.
    void begin(double mediaTime);
    /// Requests count up; the picture of this one shows the recording at this time.
    void asked(uint64_t request, double presentationTime) { m_timeOf[request] = presentationTime; }
    void shown(uint64_t request, double mediaTime);
    /// Prints the table and stops.
    void print(double mediaTime, double sourceFrame);

private:
    std::map<uint64_t, double> m_timeOf;
    std::map<double, double> m_lateness; ///< of each picture, when it first reached the screen
    std::vector<double> m_turns;         ///< seconds by which turns of the event loop came later than a millisecond
    double m_lastTurn = 0;
    double m_cpuStart = 0;
    double m_wallStart = 0;
    double m_mediaStart = 0;
    QTimer m_timer;
};

}

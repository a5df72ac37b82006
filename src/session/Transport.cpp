// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Log.h"
#include "session/CompositorViewModel.h"
#include "session/ShuttleRate.h"
#include "session/TrimRange.h"

#include <QPointer>
#include <cmath>

namespace zumeta {

namespace {

constexpr double kReseekThreshold = 0.08;              ///< seconds that a side may be off when it starts
constexpr double kEndMargin = 0.05;                    ///< seconds; within them the end is reached
constexpr double kBeforeStartMargin = 0.1;             ///< seconds; further off is before the range
constexpr double kCompositeStep = 0.03333333333333333; ///< seconds, whatever the frame rates
constexpr double kDelayAfterEndStop = 0.1;             ///< seconds
constexpr double kDelayAfterJump = 0.5;                ///< seconds

}

CompositeTimeline CompositorViewModel::compositeTimeline() const
{
    const VideoCompositionConfig& config = m_fields.projectConfig;
    const Sides<std::optional<double>>& sync = m_fields.manualSyncTime;
    return CompositeTimeline::of({playerService(Side::above).duration(), sync.above.value_or(config.aboveStartTime)},
                                 {playerService(Side::below).duration(), sync.below.value_or(config.belowStartTime)},
                                 config.timingOffset);
}

void CompositorViewModel::updateDuration()
{
    const Operation operation(*this);
    if (const std::optional<Side> side = stepSide()) {
        m_fields.duration = playerService(*side).duration();
        return;
    }
    m_fields.duration = compositeTimeline().duration;
    m_fields.currentTime = std::clamp(m_fields.currentTime, 0.0, m_fields.duration);
    editConfig([this](VideoCompositionConfig& config) { clampExportTrim(config, m_fields.duration); });
}

bool CompositorViewModel::isLockedInItsOwnStep() const
{
    return currentManualSyncTime().has_value();
}

void CompositorViewModel::play()
{
    const Operation operation(*this);
    if (isLockedInItsOwnStep())
        return;
    m_fields.isPlaying = true;
    const std::optional<Side> side = stepSide();
    if (!side) {
        playComposite();
    } else if (m_fields.videoURL[*side]) {
        player(*side).play();
        playerService(*side).setPlaying(true);
    }
}

void CompositorViewModel::playComposite()
{
    if (m_fields.duration <= 0) {
        pause();
        return;
    }
    double time = m_fields.currentTime;
    if (m_fields.currentStep == WorkflowStep::step4) {
        const TrimRange range = TrimRange::of(m_fields.projectConfig, m_fields.duration);
        if (time >= range.end - kEndMargin || time < range.start - kBeforeStartMargin) {
            seek(range.start, true);
            time = range.start;
        }
    }
    const CompositeTimeline timeline = compositeTimeline();
    const double compositeTime = std::clamp(time, 0.0, timeline.duration);
    seekIfAway(Side::below, timeline.belowMediaTime(compositeTime));
    seekIfAway(Side::above, timeline.aboveMediaTime(compositeTime));
    m_compositeRate = activePlaybackRate();
    setPlayerRate(Side::below, m_compositeRate);
    setPlayerRate(Side::above, m_compositeRate);
}

void CompositorViewModel::pause()
{
    const Operation operation(*this);
    m_fields.isPlaying = false;
    m_compositeRate = 0;
    m_sidesAreHeld = false;
    for (const Side side : {Side::above, Side::below}) {
        player(side).pause();
        playerService(side).setPlaying(false);
    }
}

void CompositorViewModel::togglePlayback()
{
    const Operation operation(*this);
    if (m_fields.isPlaying)
        pause();
    else
        play();
}

void CompositorViewModel::togglePlayPause()
{
    const Operation operation(*this);
    markStep3OnboardingInteracted();
    if (!isLockedInItsOwnStep())
        togglePlayback();
}

void CompositorViewModel::seek(double time, bool precise)
{
    const Operation operation(*this);
    m_fields.currentTime = std::clamp(time, 0.0, m_fields.duration);
    const SeekTolerance tolerance = precise ? SeekTolerance::zero : SeekTolerance::infinite;
    if (const std::optional<Side> side = stepSide())
        seekPlayer(*side, m_fields.currentTime, tolerance);
    else
        seekComposite(m_fields.currentTime, tolerance);
}

void CompositorViewModel::seekComposite(double time, SeekTolerance tolerance)
{
    const CompositeTimeline timeline = compositeTimeline();
    const double compositeTime = std::clamp(time, 0.0, timeline.duration);
    const bool isInside = m_compositeRate > 0 ? compositeTime < timeline.duration : compositeTime > 0;
    const bool startsAgain = isInside && (standsAtAnEnd(Side::above) || standsAtAnEnd(Side::below));
    m_fields.isVideoBlack = {};
    seekPlayer(Side::above, timeline.aboveMediaTime(compositeTime), tolerance);
    seekPlayer(Side::below, timeline.belowMediaTime(compositeTime), tolerance);
    if (startsAgain) {
        setPlayerRate(Side::above, m_compositeRate);
        setPlayerRate(Side::below, m_compositeRate);
    }
}

void CompositorViewModel::seekPlayer(Side side, double mediaTime, SeekTolerance tolerance)
{
    player(side).seek(MediaTime::nearest(mediaTime, kSeekTimescale), tolerance);
}

void CompositorViewModel::seekIfAway(Side side, double mediaTime)
{
    if (std::abs(playerService(side).currentTime() - mediaTime) > kReseekThreshold)
        seekPlayer(side, mediaTime, SeekTolerance::zero);
}

void CompositorViewModel::setPlayerRate(Side side, double rate)
{
    m_sidesAreHeld = false;
    player(side).setRate(rate);
    playerService(side).setPlaying(rate != 0);
}

bool CompositorViewModel::standsAtAnEnd(Side side) const
{
    if (!isCompositeStep() || !m_fields.isPlaying || m_compositeRate == 0)
        return false;
    const VideoPlayerService& service = playerService(side);
    return service.isPlaying() && service.player().hasCurrentItem() && service.player().rate() == 0;
}

// Before both sides get a rate without a seek of their own. Where an end holds one of them since the last report, or
// one ran alone into this step, going on from where they stand would leave them apart for good.
void CompositorViewModel::bringSidesTogether()
{
    const bool oneRanAlone = m_fields.isPlaying && m_compositeRate == 0;
    const bool cameApart = !m_sidesAreHeld && (standsAtAnEnd(Side::above) || standsAtAnEnd(Side::below));
    if (!oneRanAlone && !cameApart)
        return;
    m_compositeRate = 0;
    seekComposite(m_fields.currentTime, SeekTolerance::zero);
}

// Where the composite ends, one recording may go on: it is held beside the other one. The intention to play stays, and
// a seek inside gives both their rate again.
void CompositorViewModel::holdSidesAtAnEnd(double compositeTime)
{
    const bool isOutside = m_compositeRate < 0 ? compositeTime <= 0 : compositeTime >= m_fields.duration;
    if (m_sidesAreHeld || !isOutside || (!standsAtAnEnd(Side::above) && !standsAtAnEnd(Side::below)))
        return;
    m_sidesAreHeld = true;
    player(Side::above).pause();
    player(Side::below).pause();
    const CompositeTimeline timeline = compositeTimeline();
    seekPlayer(Side::above, timeline.aboveMediaTime(m_fields.currentTime), SeekTolerance::zero);
    seekPlayer(Side::below, timeline.belowMediaTime(m_fields.currentTime), SeekTolerance::zero);
}

void CompositorViewModel::step(int frames)
{
    const Operation operation(*this);
    markStep3OnboardingInteracted();
    pause();
    if (isLockedInItsOwnStep())
        return;
    const std::optional<Side> side = stepSide();
    if (!side) {
        seek(m_fields.currentTime + frames * kCompositeStep, true);
    } else if (player(*side).hasCurrentItem()) {
        const MediaTime frame = playerService(*side).loadedFrameDuration();
        player(*side).seek(player(*side).currentTime() + MediaTime{frame.value * frames, frame.timescale},
                           SeekTolerance::zero);
    }
    post(&CompositorViewModel::readBackSteppedTime);
}

void CompositorViewModel::readBackSteppedTime()
{
    const std::optional<Side> side = stepSide();
    if (!side)
        return;
    if (const double seconds = player(*side).currentTime().seconds(); !std::isnan(seconds))
        assign(m_fields.currentTime, seconds);
}

void CompositorViewModel::adjustPlaybackRate(bool faster)
{
    const Operation operation(*this);
    if (isLockedInItsOwnStep())
        return;
    const std::optional<Side> side = stepSide();
    const double rate = player(side.value_or(Side::below)).rate();
    const double newRate = faster ? fasterRate(rate) : slowerRate(rate);
    if (side) {
        m_fields.isPlaying = newRate != 0;
        setPlayerRate(*side, newRate);
        return;
    }
    bringSidesTogether();
    m_fields.isPlaying = newRate != 0;
    m_compositeRate = newRate;
    setPlayerRate(Side::above, newRate);
    setPlayerRate(Side::below, newRate);
}

void CompositorViewModel::toggleStep3SlowPlayback()
{
    const Operation operation(*this);
    m_fields.isStep3SlowPlaybackEnabled = !m_fields.isStep3SlowPlaybackEnabled;
    followSlowPlaybackSwitch();
}

void CompositorViewModel::followSlowPlaybackSwitch()
{
    if (m_fields.currentStep != WorkflowStep::step3 || !m_fields.isPlaying)
        return;
    bringSidesTogether();
    m_compositeRate = activePlaybackRate();
    setPlayerRate(Side::above, m_compositeRate);
    setPlayerRate(Side::below, m_compositeRate);
}

void CompositorViewModel::rebuildPreviewForTimingChange()
{
    const Operation operation(*this);
    if (!isCompositeStep())
        return;
    updateDuration();
    seek(m_fields.currentTime, true);
}

void CompositorViewModel::timeReported(Side side, double seconds)
{
    if (!m_fields.isPlaying)
        return;
    const Operation operation(*this);
    const std::optional<Side> shownSide = stepSide();
    if (shownSide == side)
        m_fields.currentTime = seconds;
    else if (!shownSide && side == Side::below)
        compositeTimeReported(seconds);
}

// The below player is the clock of Steps 3 and 4.
void CompositorViewModel::compositeTimeReported(double belowMediaTime)
{
    const double compositeTime = belowMediaTime - compositeTimeline().belowStart;
    m_fields.currentTime = std::clamp(compositeTime, 0.0, m_fields.duration);
    m_fields.isVideoBlack = {};
    if (m_fields.currentStep == WorkflowStep::step3)
        loopStep3(compositeTime);
    else if (!m_isSeekingForTrimLoop)
        keepInsideTrimRange();
    holdSidesAtAnEnd(compositeTime);
}

// A proxy may be a little shorter than its source: where it ends, the end is reached as well.
bool CompositorViewModel::clockHasEnded() const
{
    return m_compositeRate > 0 && standsAtAnEnd(Side::below);
}

void CompositorViewModel::loopStep3(double compositeTime)
{
    if (compositeTime < m_fields.duration - kEndMargin && !clockHasEnded())
        return;
    if (m_fields.isStep3LoopEnabled)
        seek(0, true);
    else
        pause();
}

void CompositorViewModel::keepInsideTrimRange()
{
    const TrimRange range = TrimRange::of(m_fields.projectConfig, m_fields.duration);
    if (m_fields.currentTime < range.start - kBeforeStartMargin) {
        logLine(QStringLiteral("🔄 [Loop] Before Start: Jump to %1").arg(range.start));
        guardTrimLoopFor(kDelayAfterJump);
        seek(range.start, true);
    } else if (m_fields.currentTime >= range.end - kEndMargin || clockHasEnded()) {
        guardTrimLoopFor(kDelayAfterEndStop);
        pause();
        seek(range.end, true);
    }
}

void CompositorViewModel::guardTrimLoopFor(double seconds)
{
    m_isSeekingForTrimLoop = true;
    m_environment.queue.postAfter(seconds, [self = QPointer(this)] {
        if (self)
            self->m_isSeekingForTrimLoop = false;
    });
}

}

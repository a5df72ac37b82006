// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/timeline/TimelineModel.h"

#include "session/CompositorViewModel.h"
#include "surfaces/theme/SurfaceContext.h"
#include "surfaces/timeline/KeyboardScrub.h"
#include "surfaces/timeline/TimeText.h"

#include <QQmlEngine>
#include <memory>
#include <utility>

namespace zumeta {
namespace {

/// Symbols have dots in their names and dashes in those of their files.
QString iconOf(QString symbol)
{
    return symbol.replace(QLatin1Char('.'), QLatin1Char('-'));
}

std::optional<ScrubKey> scrubKey(int key)
{
    switch (key) {
    case Qt::Key_Home:
        return ScrubKey::home;
    case Qt::Key_End:
        return ScrubKey::end;
    case Qt::Key_PageUp:
        return ScrubKey::pageUp;
    case Qt::Key_PageDown:
        return ScrubKey::pageDown;
    default:
        return std::nullopt;
    }
}

}

TimelineModel::TimelineModel(CompositorViewModel& session, ThumbDragHint hint, QObject* parent)
    : QObject(parent)
    , m_session(session)
    , m_slider(session, m_actions, hint, this)
{
    // They are members: QML must not take them for its own to delete.
    for (QObject* const part : std::initializer_list<QObject*>{&m_slider, &m_trimmer, m_trimmer.markers()})
        QQmlEngine::setObjectOwnership(part, QQmlEngine::CppOwnership);
    connect(&session, &CompositorViewModel::currentStepChanged, this, &TimelineModel::cancelGestures);
    connect(&session, &CompositorViewModel::currentTimeChanged, this, &TimelineModel::timeChanged);
    connect(&m_slider, &SimpleSliderModel::changed, this, &TimelineModel::changed);
    for (const auto signal : {&CompositorViewModel::isPlayingChanged, &CompositorViewModel::durationChanged,
                              &CompositorViewModel::projectConfigChanged, &CompositorViewModel::isFullScreenChanged})
        connect(&session, signal, this, &TimelineModel::changed);
}

TimelineModel* TimelineModel::create(QQmlEngine* engine, QJSEngine*)
{
    return std::make_unique<TimelineModel>(SurfaceContext::of(*engine).session(), ThumbDragHint::isWanted)
        .release(); // the engine takes it over
}

bool TimelineModel::hasTrimmer() const
{
    return timelineSlider(m_session.currentStep()) == TimelineSlider::trimmer;
}

double TimelineModel::sliderBoxHeight() const
{
    return zumeta::sliderBoxHeight(m_session.currentStep());
}

bool TimelineModel::hasMedia() const
{
    return m_session.currentVideoURL() || m_session.duration() > 0;
}

QString TimelineModel::playIcon() const
{
    return iconOf(playButtonIcon(m_session.isPlaying()));
}

QString TimelineModel::playTextKey() const
{
    return m_session.isPlaying() ? QStringLiteral("Pause") : QStringLiteral("Play");
}

double TimelineModel::time() const
{
    return m_session.currentTime();
}

double TimelineModel::duration() const
{
    return m_session.duration();
}

QString TimelineModel::timeText() const
{
    return formatTimeWithFrames(m_session.currentTime());
}

QString TimelineModel::lengthText() const
{
    return zumeta::lengthText(m_session.currentStep(), m_session.duration(), m_session.effectiveExportDuration());
}

bool TimelineModel::lengthHasIcon() const
{
    return zumeta::lengthHasIcon(m_session.currentStep());
}

bool TimelineModel::showsFullScreenButton() const
{
    return zumeta::showsFullScreenButton(m_session.currentStep());
}

QString TimelineModel::fullScreenIcon() const
{
    return iconOf(zumeta::fullScreenIcon(m_session.isFullScreen()));
}

QString TimelineModel::fullScreenTextKey() const
{
    return fullScreenTooltip(m_session.isFullScreen());
}

void TimelineModel::setWindowActive(bool isActive)
{
    if (std::exchange(m_isWindowActive, isActive) == isActive)
        return;
    // Only when it is left: the press that activates a window may be the first of a drag.
    if (!isActive)
        cancelGestures();
    Q_EMIT isWindowActiveChanged();
}

void TimelineModel::togglePlayback()
{
    m_session.togglePlayback();
}

void TimelineModel::toggleFullScreen()
{
    m_session.setFullScreen(!m_session.isFullScreen());
}

bool TimelineModel::scrub(int key, int modifiers)
{
    const std::optional<ScrubKey> meant = scrubKey(key);
    const bool isPlain = (modifiers & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == 0;
    if (!meant || !isPlain || (!hasTrimmer() && !m_slider.isEnabled()))
        return false;
    const ScrubPace pace = modifiers & Qt::ShiftModifier ? ScrubPace::fine : ScrubPace::coarse;
    m_actions.carryOut({Seek{scrubTarget(*meant, pace, m_session.currentTime(), m_session.duration())}});
    // Who uses the slider by its keys needs no hint how to use it either.
    if (!hasTrimmer())
        m_actions.carryOut({SliderMoved{}});
    return true;
}

void TimelineModel::cancelGestures()
{
    m_slider.cancel();
    m_trimmer.cancel();
}

}

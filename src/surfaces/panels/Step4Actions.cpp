// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/panels/Step4Actions.h"

#include "languages/LanguageManager.h"
#include "platform/NotificationCenter.h"
#include "session/CompositorViewModel.h"
#include "surfaces/theme/SurfaceContext.h"
#include "surfaces/timeline/TimeText.h"

#include <QQmlEngine>
#include <memory>
#include <utility>

namespace zumeta {

Step4Actions::Step4Actions(CompositorViewModel& session, NotificationCenter& notifications, Dialogs& dialogs,
                           const LanguageManager& languages, QObject* parent)
    : QObject(parent)
    , m_session(session)
    , m_notifications(notifications)
    , m_languages(languages)
    , m_confirmation(session, dialogs)
    , m_shown(currentState())
{
    connect(&session, &CompositorViewModel::changed, this, &Step4Actions::follow);
}

Step4Actions* Step4Actions::create(QQmlEngine* engine, QJSEngine*)
{
    SurfaceContext& context = SurfaceContext::of(*engine);
    // The engine takes it over.
    return std::make_unique<Step4Actions>(context.session(), context.notifications(), context.dialogs(),
                                          context.languages())
        .release();
}

QString Step4Actions::exportTitleKey() const
{
    return m_shown.isExporting ? QStringLiteral("Exporting...") : QStringLiteral("Export");
}

void Step4Actions::setTrimStartToPlayhead()
{
    if (!m_shown.isTrimStartDimmed)
        m_session.pressTrimStartToPlayhead();
}

void Step4Actions::setTrimEndToPlayhead()
{
    if (!m_shown.isTrimEndDimmed)
        m_session.pressTrimEndToPlayhead();
}

void Step4Actions::addMarker()
{
    m_session.markStep4ExportControlsInteracted();
    m_session.addTrimMarkerAtCurrentTime();
}

void Step4Actions::clearMarkers()
{
    m_notifications.post(notifications::kClearTextFieldFocus);
    m_confirmation.ask({.title = m_languages.localized(QStringLiteral("Clear All Markers Title")),
                        .message = m_languages.localized(QStringLiteral("Clear All Markers Message")),
                        .buttons = {m_languages.localized(QStringLiteral("Clear All Markers Confirm")),
                                    m_languages.localized(QStringLiteral("Cancel"))}},
                       [this] {
                           m_session.markStep4ExportControlsInteracted();
                           m_session.clearTimelineMarkers();
                       });
}

void Step4Actions::resetTrims()
{
    m_session.markStep4ExportControlsInteracted();
    m_session.resetTrimRange();
}

void Step4Actions::openExportSheet()
{
    m_notifications.post(notifications::kClearTextFieldFocus);
    m_session.setShowExportSheet(true);
}

Step4Actions::State Step4Actions::currentState() const
{
    return {.exportDuration = formatPaddedDuration(m_session.effectiveExportDuration()),
            .isTrimStartDimmed = m_session.isCurrentTimeAssignedToTrimEnd(),
            .isTrimEndDimmed = m_session.isCurrentTimeAssignedToTrimStart(),
            .isExporting = m_session.isExporting(),
            .statusMessage = m_session.syncStatusMessage().value_or(QString()),
            .isStatusError = m_session.syncStatusIsError()};
}

void Step4Actions::follow()
{
    const State state = currentState();
    if (std::exchange(m_shown, state) != state)
        Q_EMIT changed();
}

}

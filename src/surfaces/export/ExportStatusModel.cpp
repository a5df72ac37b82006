// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/export/ExportStatusModel.h"

#include "session/CompositorViewModel.h"
#include "surfaces/theme/SurfaceContext.h"

#include <QQmlEngine>
#include <cmath>
#include <memory>

namespace zumeta {

ExportStatusModel::ExportStatusModel(CompositorViewModel& session, QObject* parent)
    : QObject(parent)
    , m_session(session)
{
    connect(&session, &CompositorViewModel::isExportingChanged, this, &ExportStatusModel::isExportingChanged);
    connect(&session, &CompositorViewModel::exportProgressChanged, this, &ExportStatusModel::progressChanged);
    connect(&session, &CompositorViewModel::exportNotificationChanged, this, &ExportStatusModel::takeNotification);
    takeNotification();
}

ExportStatusModel* ExportStatusModel::create(QQmlEngine* engine, QJSEngine*)
{
    auto model = std::make_unique<ExportStatusModel>(SurfaceContext::of(*engine).session());
    return model.release(); // the engine takes it over
}

bool ExportStatusModel::isExporting() const
{
    return m_session.isExporting();
}

double ExportStatusModel::progress() const
{
    return m_session.exportProgress();
}

int ExportStatusModel::percent() const
{
    return wholePercent(progress());
}

bool ExportStatusModel::hasNotification() const
{
    return m_session.exportNotification().has_value();
}

void ExportStatusModel::cancel()
{
    m_session.cancelExport();
}

void ExportStatusModel::dismiss()
{
    m_session.dismissExportNotification();
}

void ExportStatusModel::takeNotification()
{
    if (const std::optional<ExportNotification>& notification = m_session.exportNotification()) {
        m_title = notification->title;
        m_message = notification->message;
        m_isError = notification->isError;
    }
    Q_EMIT notificationChanged();
}

int wholePercent(double fraction)
{
    constexpr double kRoundingError = 1e-9; // 0.29 times 100 is a little less than 29
    return int(std::floor(fraction * 100 + kRoundingError));
}

}

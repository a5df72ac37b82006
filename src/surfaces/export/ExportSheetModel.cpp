// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/export/ExportSheetModel.h"

#include "languages/LanguageManager.h"
#include "session/CompositorViewModel.h"
#include "surfaces/theme/SurfaceContext.h"

#include <QPointer>
#include <QQmlEngine>
#include <algorithm>
#include <memory>

namespace zumeta {

ExportSheetModel::ExportSheetModel(CompositorViewModel& session, Dialogs& dialogs, const LanguageManager& languages,
                                   QObject* parent)
    : QObject(parent)
    , m_session(session)
    , m_dialogs(dialogs)
    , m_languages(languages)
{
    connect(&session, &CompositorViewModel::showExportSheetChanged, this, &ExportSheetModel::followSession);
    connect(&session, &CompositorViewModel::selectedResolutionChanged, this, &ExportSheetModel::selectedChanged);
    connect(&session, &CompositorViewModel::projectStateChanged, this, &ExportSheetModel::followShape);
    followShape();
    followSession();
}

ExportSheetModel* ExportSheetModel::create(QQmlEngine* engine, QJSEngine*)
{
    SurfaceContext& context = SurfaceContext::of(*engine);
    auto model = std::make_unique<ExportSheetModel>(context.session(), context.dialogs(), context.languages());
    return model.release(); // the engine takes it over
}

QStringList ExportSheetModel::sizes() const
{
    QStringList sizes;
    for (const ExportResolutionType type : m_offer)
        sizes << rawValue(type);
    return sizes;
}

QStringList ExportSheetModel::pixelSizes() const
{
    QStringList sizes;
    for (const ExportResolutionType type : m_offer)
        sizes << QStringLiteral("%1 × %2").arg(facts(type).width).arg(facts(type).height);
    return sizes;
}

int ExportSheetModel::selected() const
{
    const auto found = std::ranges::find(m_offer, m_session.selectedResolution());
    return found == m_offer.end() ? -1 : int(found - m_offer.begin());
}

void ExportSheetModel::select(int index)
{
    if (index >= 0 && index < int(m_offer.size()))
        m_session.setSelectedResolution(m_offer[size_t(index)]);
}

void ExportSheetModel::selectNeighbour(int direction)
{
    select(selected() + direction);
}

void ExportSheetModel::toggleZumetaMark()
{
    m_showZumetaMarkOnExport = !m_showZumetaMarkOnExport;
    Q_EMIT showZumetaMarkOnExportChanged();
}

void ExportSheetModel::exportVideo()
{
    if (m_session.aboveVideoURL() && m_session.belowVideoURL())
        m_session.exportVideo(m_showZumetaMarkOnExport);
    else if (!m_showExportMissingMediaAlert)
        tellOfMissingMedia();
}

void ExportSheetModel::dismiss()
{
    m_session.setShowExportSheet(false);
}

void ExportSheetModel::followSession()
{
    if (m_session.showExportSheet() == m_isShown)
        return;
    m_isShown = m_session.showExportSheet();
    if (m_isShown)
        appear();
    Q_EMIT isShownChanged();
}

void ExportSheetModel::followShape()
{
    std::vector<ExportResolutionType> offer = offeredResolutions(m_session.projectState().projectAspectRatio);
    if (offer == m_offer)
        return;
    m_offer = std::move(offer);
    Q_EMIT sizesChanged();
    Q_EMIT selectedChanged();
}

void ExportSheetModel::appear()
{
    if (selected() < 0)
        select(0);
    if (m_showZumetaMarkOnExport)
        toggleZumetaMark();
}

Task<> ExportSheetModel::tellOfMissingMedia()
{
    const QPointer<ExportSheetModel> self(this);
    m_showExportMissingMediaAlert = true;
    Alert alert{m_languages.localized(QStringLiteral("Export Missing Media Title")),
                m_languages.localized(QStringLiteral("Export Missing Media Message")),
                {m_languages.localized(QStringLiteral("OK"))}};
    co_await m_dialogs.showAlert(std::move(alert));
    if (self)
        m_showExportMissingMediaAlert = false;
}

}

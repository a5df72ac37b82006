// SPDX-License-Identifier: GPL-3.0-or-later
#include "languages/Format.h"
#include "platform/ByteCount.h"
#include "platform/Log.h"
#include "session/CompositorViewModel.h"
#include "session/ExportInputs.h"

#include <QPointer>

namespace zumeta {

namespace {

constexpr double kNotificationSeconds = 5;

/// A link that leads nowhere counts, because the export would replace it too. One look at a folder that the panel has
/// just listed is quick enough for the main thread.
bool somethingExistsAt(const FileUrl& url)
{
    std::error_code error;
    return std::filesystem::exists(std::filesystem::symlink_status(url.path(), error));
}

}

void CompositorViewModel::exportVideo([[maybe_unused]] bool showWatermark)
{
    assign(m_fields.showExportSheet, false);
    m_shouldShowWatermark = false;
    // A second export would take the place of the one that runs, which then nobody could cancel.
    if (!m_isChoosingOutput && !m_fields.isExporting)
        chooseOutput();
}

Task<> CompositorViewModel::chooseOutput()
{
    const QPointer<CompositorViewModel> self(this);
    m_isChoosingOutput = true;
    SavePanel panel{defaultOutputFilenameBase() + QStringLiteral(".mp4"), QStringLiteral("mp4")};
    panel.callerAsksToReplace = true;
    const std::optional<FileUrl> url = co_await m_environment.dialogs.showSavePanel(std::move(panel));
    if (!self)
        co_return;
    bool isWanted = url.has_value();
    if (url && somethingExistsAt(*url)) {
        isWanted = co_await showFileExistsConfirmation(*url);
        if (!self)
            co_return;
    }
    m_isChoosingOutput = false;
    if (isWanted)
        performExport(*url);
}

Task<bool> CompositorViewModel::showFileExistsConfirmation(FileUrl)
{
    const auto& localized = m_environment.localized;
    Alert alert{localized(QStringLiteral("File Exists Title")),
                localized(QStringLiteral("File Exists Message")),
                {localized(QStringLiteral("Replace")), localized(QStringLiteral("Cancel"))},
                true};
    const int button = co_await m_environment.dialogs.showAlert(std::move(alert));
    co_return button == 0;
}

void CompositorViewModel::performExport(const FileUrl& url)
{
    // An export that was still being checked when this place was asked for may have started meanwhile.
    if (m_fields.isExporting) {
        logLine(QStringLiteral("Export not started: another one is running"));
        return;
    }
    // One that is still being checked has touched nothing; the newer wish counts.
    if (m_activeExportService)
        m_activeExportService->cancel();
    m_activeExportService = m_environment.makeExporter();
    const uint64_t number = ++m_newestChosenExport;
    m_environment.queue.post([self = QPointer(this), service = m_activeExportService, number, url] {
        if (self)
            self->runExport(service, number, url);
    });
}

Task<> CompositorViewModel::runExport(std::shared_ptr<Exporter> service, uint64_t number, FileUrl url)
{
    const QPointer<CompositorViewModel> self(this);
    const std::optional<ExportParameters> params =
        exportParameters({m_fields.projectState, m_fields.projectConfig, m_fields.manualSyncTime,
                          m_fields.selectedResolution, m_fields.selectedCamera, m_shouldShowWatermark});
    if (!params) {
        logLine(QStringLiteral("Export failed: Missing video URLs"));
        co_return;
    }
    const std::optional<StorageRequirement> requirement =
        co_await service->storageRequirement(effectiveExportDuration(), params->resolution, url);
    if (!self)
        co_return;
    if (service->isCancelled()) {
        // Given up before it began. When another one has taken its place, that one has the word.
        if (number == m_newestChosenExport)
            tellOfFailure(ExportError(ExportError::Case::exportCancelled));
        co_return;
    }
    if (requirement && !requirement->isMet()) {
        m_activeExportService.reset();
        co_await showInsufficientStorageAlert(*requirement);
        co_return;
    }
    startExport(number);
    const std::function<void(double)> progressHandler = [self, number](double fraction) {
        if (self)
            self->showExportProgress(number, fraction);
    };
    const ExportOutcome outcome = co_await service->exportComposite(*params, url, progressHandler);
    if (self)
        finishExport(number, url, outcome);
}

void CompositorViewModel::startExport(uint64_t exportNumber)
{
    const Operation operation(*this);
    m_fields.isExporting = true;
    m_fields.exportProgress = 0;
    m_sleepInhibition = m_environment.sleepInhibitor.inhibit(m_environment.localized(QStringLiteral("Exporting...")));
    m_newestExport = exportNumber;
}

void CompositorViewModel::showExportProgress(uint64_t exportNumber, double fraction)
{
    const bool isActive = exportNumber == m_newestExport && m_fields.isExporting;
    if (isActive && fraction > m_fields.exportProgress)
        assign(m_fields.exportProgress, fraction);
}

void CompositorViewModel::finishExport(uint64_t exportNumber, const FileUrl& url, const ExportOutcome& outcome)
{
    logLine(outcome ? QStringLiteral("Export failed: ") + outcome->errorDescription()
                    : QStringLiteral("Export successful!"));
    // One that was cancelled ends late: what is shown may belong to a newer one by now, and so does the movie's place.
    if (exportNumber != m_newestExport)
        return;
    const Operation operation(*this);
    if (m_fields.isExporting) {
        m_fields.isExporting = false;
        m_activeExportService.reset();
        m_sleepInhibition.reset();
    }
    if (outcome) {
        tellOfFailure(*outcome);
        return;
    }
    m_fields.syncStatusMessage = m_environment.localized(QStringLiteral("Export Complete"));
    m_fields.syncStatusIsError = false;
    showExportNotification(QStringLiteral("Export Notification Success Title"), url.displayName(), false);
}

void CompositorViewModel::tellOfFailure(const ExportError& error)
{
    const Operation operation(*this);
    const QString reason = error.errorDescription();
    m_fields.syncStatusMessage = formatted(m_environment.localized(QStringLiteral("Export Failed Format")), {reason});
    m_fields.syncStatusIsError = true;
    showExportNotification(QStringLiteral("Export Notification Failure Title"), reason, true);
}

void CompositorViewModel::cancelExport()
{
    if (!m_activeExportService)
        return;
    m_activeExportService->cancel();
    m_activeExportService.reset();
    m_sleepInhibition.reset();
    assign(m_fields.isExporting, false);
}

void CompositorViewModel::showExportNotification(const QString& titleKey, const QString& message, bool isError)
{
    const QUuid id = QUuid::createUuid();
    assign(m_fields.exportNotification,
           std::optional(ExportNotification{id, m_environment.localized(titleKey), message, isError}));
    // An older one's dismissal is not called back: by its id it takes nothing away that is newer.
    m_environment.queue.postAfter(kNotificationSeconds, [self = QPointer(this), id] {
        if (self && self->m_fields.exportNotification && self->m_fields.exportNotification->id == id)
            self->dismissExportNotification();
    });
}

void CompositorViewModel::dismissExportNotification()
{
    assign(m_fields.exportNotification, std::optional<ExportNotification>());
}

Task<> CompositorViewModel::showInsufficientStorageAlert(StorageRequirement requirement)
{
    const auto& localized = m_environment.localized;
    const QString message =
        formatted(localized(QStringLiteral("Insufficient Storage Message Format")),
                  {byteCountText(requirement.requiredBytes), byteCountText(requirement.availableBytes)});
    Alert alert{localized(QStringLiteral("Insufficient Storage Title")), message, {localized(QStringLiteral("OK"))}};
    co_await m_environment.dialogs.showAlert(std::move(alert));
}

}

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/Dialogs.h"
#include "platform/FileChooser.h"

namespace zumeta {
class AlertQueue;
class ModalState;

/// Alerts as cards of the window, panels as the desktop's own dialogs.
class WindowDialogs final : public Dialogs, public FileChooser {
public:
    /// Both must outlive it.
    WindowDialogs(AlertQueue& alerts, ModalState& modality)
        : m_alerts(alerts)
        , m_modality(modality)
    {}
    Task<int> showAlert(Alert alert) override;
    Task<std::optional<FileUrl>> showSavePanel(SavePanel panel) override;
    Task<std::vector<FileUrl>> showOpenPanel(OpenPanel panel) override;

private:
    AlertQueue& m_alerts;
    ModalState& m_modality;
};

/// The place that was chosen, with the suffix that the desktop did not add. A name that ends in it in other letters,
/// such as "A.MP4", has it.
FileUrl withExtension(const FileUrl& url, const QString& extension);

}

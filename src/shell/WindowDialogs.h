// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/Dialogs.h"

namespace zumeta {
class AlertQueue;

/// Alerts as cards of the window, panels as the desktop's own dialogs.
class WindowDialogs final : public Dialogs {
public:
    /// The queue must outlive it.
    explicit WindowDialogs(AlertQueue& alerts)
        : m_alerts(alerts)
    {}
    Task<int> showAlert(Alert alert) override;
    Task<std::optional<FileUrl>> showSavePanel(SavePanel panel) override;

private:
    AlertQueue& m_alerts;
};

/// The place that was chosen, with the suffix that the desktop did not add. A name that ends in it in other letters,
/// such as "A.MP4", has it.
FileUrl withExtension(const FileUrl& url, const QString& extension);

}

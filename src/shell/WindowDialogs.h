// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/Dialogs.h"
#include "platform/FileChooser.h"

#include <QPointer>
#include <QWindow>

class QFileDialog;

namespace zumeta {
class AlertQueue;
class LanguageManager;
class ModalState;
class UserDefaults;

/// Alerts as cards of the window, panels as the desktop's own dialogs, which begin where the last file of their kind
/// was chosen.
class WindowDialogs final : public Dialogs, public FileChooser {
public:
    /// All must outlive it.
    WindowDialogs(AlertQueue& alerts, ModalState& modality, UserDefaults& settings, const LanguageManager& languages)
        : m_alerts(alerts)
        , m_modality(modality)
        , m_settings(settings)
        , m_languages(languages)
    {}
    /// The one that the panels stand over.
    void setWindow(QWindow& window) { m_window = &window; }

    /// A dialog that is open closes, and nobody hears of it.
    ~WindowDialogs() override;
    Task<int> showAlert(Alert alert) override;
    Task<std::optional<FileUrl>> showSavePanel(SavePanel panel) override;
    Task<std::vector<FileUrl>> showOpenPanel(OpenPanel panel) override;

private:
    Task<QStringList> choose(QFileDialog& dialog, QString folderKey);
    Task<bool> mayReplace();

    AlertQueue& m_alerts;
    ModalState& m_modality;
    UserDefaults& m_settings;
    const LanguageManager& m_languages;
    QPointer<QWindow> m_window;
    std::vector<QPointer<QFileDialog>> m_open;
};

/// The place that was chosen, with the suffix that the desktop did not add. A name that ends in it in other letters,
/// such as "A.MP4", has it.
FileUrl withExtension(const FileUrl& url, const QString& extension);

}

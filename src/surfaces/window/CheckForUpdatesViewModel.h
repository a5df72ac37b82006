// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/Dialogs.h"
#include "platform/updates/UpdateService.h"

#include <QObject>

namespace zumeta {
class LanguageManager;

/// The menu's question for updates, and what the user is told in answer: one card of the window. An offer leads to the
/// page of the download in the browser; nothing is fetched or run from here. Exists only where the service is
/// configured. Main thread.
class CheckForUpdatesViewModel final : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool canCheckForUpdates READ canCheckForUpdates NOTIFY canCheckForUpdatesChanged FINAL)
public:
    /// All must outlive it.
    CheckForUpdatesViewModel(UpdateService& updates, Dialogs& dialogs, const LanguageManager& languages);

    /// False while the answer to the last question is on its way.
    bool canCheckForUpdates() const { return m_updates.canCheckForUpdates(); }
    void checkForUpdates() { m_updates.checkForUpdates(); }

Q_SIGNALS:
    void canCheckForUpdatesChanged();

private:
    Task<> tell(UpdateAnswer answer);

    UpdateService& m_updates;
    Dialogs& m_dialogs;
    const LanguageManager& m_languages;
};

/// What the card says, in the languages' current one. The first button of an offer opens the page, the other leaves it.
Alert updateAlert(const UpdateAnswer& answer, const QString& runningVersion, const LanguageManager& languages);

}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/window/CheckForUpdatesViewModel.h"

#include "languages/Format.h"
#include "languages/LanguageManager.h"

#include <QDesktopServices>

namespace zumeta {

namespace {

// What the smallest window has room for, also in wide letters.
constexpr int kLongestNotes = 200;
constexpr int kMostLines = 6;

QString shortened(const QString& notes)
{
    const QString lines = notes.section(QLatin1Char('\n'), 0, kMostLines - 1);
    if (lines.size() > kLongestNotes)
        return lines.left(kLongestNotes - 1) + QChar(u'…');
    return lines.size() < notes.size() ? lines + QChar(u'…') : notes;
}

Alert offerAlert(const UpdateFeed& feed, const QString& runningVersion, const LanguageManager& languages)
{
    const auto text = [&](const char* key) { return languages.localized(QString::fromLatin1(key)); };
    Alert alert{text("Update Available Title"),
                formatted(text("Update Available: %@, Running: %@"), {feed.versionText, runningVersion}),
                {text("Open Download Page"), text("Not Now")}};
    if (const QString notes = feed.notesIn(languages.localeIdentifier()); !notes.isEmpty())
        alert.message += QStringLiteral("\n\n") + shortened(notes);
    return alert;
}

}

CheckForUpdatesViewModel::CheckForUpdatesViewModel(UpdateService& updates, Dialogs& dialogs,
                                                   const LanguageManager& languages)
    : m_updates(updates)
    , m_dialogs(dialogs)
    , m_languages(languages)
{
    connect(&updates, &UpdateService::canCheckForUpdatesChanged, this,
            &CheckForUpdatesViewModel::canCheckForUpdatesChanged);
    connect(&updates, &UpdateService::answered, this, [this](const UpdateAnswer& answer) { tell(answer); });
}

Task<> CheckForUpdatesViewModel::tell(UpdateAnswer answer)
{
    Alert alert = updateAlert(answer, m_updates.runningVersion(), m_languages);
    const int button = co_await m_dialogs.showAlert(std::move(alert));
    if (const auto* const offer = std::get_if<UpdateFeed>(&answer); offer && button == 0)
        QDesktopServices::openUrl(offer->page);
}

Alert updateAlert(const UpdateAnswer& answer, const QString& runningVersion, const LanguageManager& languages)
{
    const auto text = [&](const char* key) { return languages.localized(QString::fromLatin1(key)); };
    if (const auto* const offer = std::get_if<UpdateFeed>(&answer))
        return offerAlert(*offer, runningVersion, languages);
    if (std::holds_alternative<UpToDate>(answer))
        return {text("Up To Date Title"), formatted(text("Newest Is Running: %@"), {runningVersion}), {text("OK")}};
    return {text("Update Check Failed Title"), text("Update Check Failed Message"), {text("OK")}};
}

}

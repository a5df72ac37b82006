// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/WindowDialogs.h"

#include "languages/LanguageManager.h"
#include "platform/UserDefaults.h"
#include "surfaces/window/AlertQueue.h"
#include "surfaces/window/ModalState.h"

#include <QCoroFuture>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QPromise>
#include <QStandardPaths>
#include <filesystem>

namespace zumeta {

namespace {

FileUrl urlOf(const QString& fileName)
{
    return FileUrl(QFile::encodeName(fileName).toStdString());
}

/// What was chosen, however the dialog ends.
QFuture<QStringList> openDialog(QFileDialog& dialog)
{
    const auto promise = std::make_shared<QPromise<QStringList>>();
    promise->start();
    QObject::connect(&dialog, &QDialog::finished, &dialog, [&dialog, promise](int result) {
        promise->addResult(result == QDialog::Accepted ? dialog.selectedFiles() : QStringList());
        promise->finish();
    });
    dialog.open();
    return promise->future();
}

/// Cameras write their extensions in capitals. Portals get only filters that have a name.
QString nameFilter(const QStringList& extensions)
{
    QStringList kinds;
    QStringList patterns;
    for (const QString& extension : extensions) {
        kinds << extension.toUpper();
        patterns << QStringLiteral("*.") + extension << QStringLiteral("*.") + extension.toUpper();
    }
    return QStringLiteral("%1 (%2)").arg(kinds.join(QStringLiteral(", ")), patterns.join(QLatin1Char(' ')));
}

/// Of the settings: recordings, movies and compositions seldom share a folder.
QString folderKeyFor(const QStringList& extensions)
{
    return QStringLiteral("LastFolder.") + (extensions.size() == 1 ? extensions.front() : QStringLiteral("recordings"));
}

QString firstExisting(const QStringList& folders)
{
    for (const QString& folder : folders) {
        if (!folder.isEmpty() && QDir(folder).exists())
            return folder;
    }
    return QDir::homePath();
}

/// A link that leads nowhere would be replaced too.
bool somethingExistsAt(const FileUrl& url)
{
    std::error_code error;
    return std::filesystem::exists(std::filesystem::symlink_status(url.path(), error));
}

}

WindowDialogs::~WindowDialogs()
{
    for (const QPointer<QFileDialog>& dialog : m_open) {
        if (dialog)
            dialog->hide();
    }
}

Task<int> WindowDialogs::showAlert(Alert alert)
{
    return m_alerts.ask(std::move(alert));
}

Task<QStringList> WindowDialogs::choose(QFileDialog& dialog, QString folderKey)
{
    const ModalPresence presence(m_modality, ModalState::FileDialog);
    QStringList folders(m_settings.string(folderKey).value_or(QString()));
    folders << QStandardPaths::writableLocation(QStandardPaths::MoviesLocation);
    dialog.setDirectory(firstExisting(folders));
    dialog.winId(); // makes its window
    dialog.windowHandle()->setTransientParent(m_window);
    m_open.emplace_back(&dialog);
    const QFuture<QStringList> chosen = openDialog(dialog);
    QStringList files = co_await chosen;
    std::erase(m_open, &dialog);
    if (!files.isEmpty())
        m_settings.setString(folderKey, QFileInfo(files.front()).absolutePath());
    co_return files;
}

Task<std::optional<FileUrl>> WindowDialogs::showSavePanel(SavePanel panel)
{
    const QStringList extensions(panel.extension);
    QFileDialog dialog;
    dialog.setWindowTitle(panel.title);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setNameFilter(nameFilter(extensions));
    dialog.selectFile(panel.proposedName);
    const QStringList files = co_await choose(dialog, folderKeyFor(extensions));
    if (files.isEmpty())
        co_return std::nullopt;
    const FileUrl chosen = urlOf(files.front());
    FileUrl place = withExtension(chosen, panel.extension);
    // The panel has asked about the name that it saw.
    if (place != chosen && !panel.callerAsksToReplace && somethingExistsAt(place)) {
        const bool isWanted = co_await mayReplace();
        if (!isWanted)
            co_return std::nullopt;
    }
    co_return place;
}

Task<bool> WindowDialogs::mayReplace()
{
    Alert alert;
    alert.title = m_languages.localized(QStringLiteral("File Exists Title"));
    alert.message = m_languages.localized(QStringLiteral("File Exists Message"));
    alert.buttons << m_languages.localized(QStringLiteral("Replace"))
                  << m_languages.localized(QStringLiteral("Cancel"));
    alert.isDestructive = true;
    const int button = co_await showAlert(std::move(alert));
    co_return button == 0;
}

Task<std::vector<FileUrl>> WindowDialogs::showOpenPanel(OpenPanel panel)
{
    QFileDialog dialog;
    dialog.setWindowTitle(panel.title);
    dialog.setLabelText(QFileDialog::Accept, panel.prompt);
    dialog.setFileMode(panel.allowsMultiple ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile);
    dialog.setNameFilter(nameFilter(panel.extensions));
    const QStringList files = co_await choose(dialog, folderKeyFor(panel.extensions));
    std::vector<FileUrl> urls;
    urls.reserve(size_t(files.size()));
    for (const QString& file : files)
        urls.push_back(urlOf(file));
    co_return urls;
}

FileUrl withExtension(const FileUrl& url, const QString& extension)
{
    if (url.lowerCaseExtension() == extension.toStdString())
        return url;
    return FileUrl(url.path().native() + "." + extension.toStdString());
}

}

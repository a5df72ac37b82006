// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/WindowDialogs.h"

#include "surfaces/window/AlertQueue.h"
#include "surfaces/window/ModalState.h"

#include <QCoroFuture>
#include <QFile>
#include <QFileDialog>
#include <QPromise>
#include <QStandardPaths>

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

/// Cameras write their extensions in capitals.
QString nameFilter(const QStringList& extensions)
{
    QStringList patterns;
    for (const QString& extension : extensions)
        patterns << QStringLiteral("*.") + extension << QStringLiteral("*.") + extension.toUpper();
    return patterns.join(QLatin1Char(' '));
}

}

Task<int> WindowDialogs::showAlert(Alert alert)
{
    return m_alerts.ask(std::move(alert));
}

Task<std::optional<FileUrl>> WindowDialogs::showSavePanel(SavePanel panel)
{
    const ModalPresence presence(m_modality, ModalState::FileDialog);
    QFileDialog dialog;
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setDirectory(QStandardPaths::writableLocation(QStandardPaths::MoviesLocation));
    dialog.setNameFilter(nameFilter({panel.extension}));
    dialog.setDefaultSuffix(panel.extension);
    dialog.selectFile(panel.proposedName);
    const QFuture<QStringList> chosen = openDialog(dialog);
    const QStringList files = co_await chosen;
    if (files.isEmpty())
        co_return std::nullopt;
    co_return withExtension(urlOf(files.front()), panel.extension);
}

Task<std::vector<FileUrl>> WindowDialogs::showOpenPanel(OpenPanel panel)
{
    const ModalPresence presence(m_modality, ModalState::FileDialog);
    QFileDialog dialog;
    dialog.setWindowTitle(panel.title);
    dialog.setLabelText(QFileDialog::Accept, panel.prompt);
    dialog.setFileMode(panel.allowsMultiple ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile);
    dialog.setDirectory(QStandardPaths::writableLocation(QStandardPaths::MoviesLocation));
    dialog.setNameFilter(nameFilter(panel.extensions));
    const QFuture<QStringList> chosen = openDialog(dialog);
    const QStringList files = co_await chosen;
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

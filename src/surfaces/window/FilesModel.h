// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/VideoFileHelper.h"
#include "platform/Task.h"
#include "surfaces/window/SideFile.h"

#include <optional>

class QJSEngine;
class QQmlEngine;

namespace zumeta {
class FileChooser;
class LanguageManager;

/// The files of both sides: what is chosen, what is dropped, and what the bar above the picture tells of them. Main
/// thread.
class FilesModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(SideFile* above READ above CONSTANT FINAL)
    Q_PROPERTY(SideFile* below READ below CONSTANT FINAL)
    /// The step lacks its video: a card stands in the picture's place, and files may be dropped there.
    Q_PROPERTY(bool shouldShowCentralDropInstruction READ shouldShowCentralDropInstruction NOTIFY changed FINAL)
    // Keys of the card's texts; empty in Steps 3 and 4.
    Q_PROPERTY(QString centralDropInstructionText READ centralDropInstructionText NOTIFY changed FINAL)
    Q_PROPERTY(QString centralDropInstructionDescription READ centralDropInstructionDescription NOTIFY changed FINAL)
    Q_PROPERTY(QString centralDropButtonTitle READ centralDropButtonTitle NOTIFY changed FINAL)
    Q_PROPERTY(bool isDropZoneHighlighted READ isDropZoneHighlighted NOTIFY changed FINAL)
public:
    FilesModel(CompositorViewModel& session, FileChooser& chooser, LanguageManager& languages,
               QObject* parent = nullptr);
    /// The engine's own; see SurfaceContext.
    static FilesModel* create(QQmlEngine* engine, QJSEngine*);

    SideFile* above() { return &m_above; }
    SideFile* below() { return &m_below; }
    bool shouldShowCentralDropInstruction() const;
    QString centralDropInstructionText() const;
    QString centralDropInstructionDescription() const;
    QString centralDropButtonTitle() const;
    bool isDropZoneHighlighted() const;

    /// Asks for the files of the current step's side, and loads them.
    Q_INVOKABLE void chooseVideos();
    /// Empty when nothing was chosen.
    Task<std::vector<FileUrl>> selectVideoURLsFromFiles();
    /// For the side of the step as it is now; loaded in a later turn.
    void handleCentralDrop(std::vector<DroppedItem> items);
    /// In place of what the side had. Nothing is loaded in Steps 3 and 4.
    void loadSelectedVideoURLs(const std::vector<FileUrl>& urls, Side side);

Q_SIGNALS:
    void changed();

private:
    std::optional<Side> stepSide() const;
    Task<> choose(Side side);

    CompositorViewModel& m_session;
    FileChooser& m_chooser;
    LanguageManager& m_languages;
    SideFile m_above;
    SideFile m_below;
    bool m_isChoosing = false;
};

}

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "model/ExportSettings.h"
#include "platform/Task.h"

#include <QObject>
#include <QStringList>
#include <qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

namespace zumeta {
class CompositorViewModel;
class Dialogs;
class LanguageManager;

/// The sheet that comes before an export: which size, and whether with the mark. Main thread.
class ExportSheetModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool isShown READ isShown NOTIFY isShownChanged FINAL)
    /// What is offered to a project of this shape, by the names that are the same in every language.
    Q_PROPERTY(QStringList sizes READ sizes NOTIFY sizesChanged FINAL)
    Q_PROPERTY(QStringList pixelSizes READ pixelSizes NOTIFY sizesChanged FINAL) ///< of sizes, in their order
    Q_PROPERTY(int selected READ selected NOTIFY selectedChanged FINAL) ///< an index into sizes; -1 when none of them
    /// Off in every new sheet: it is remembered nowhere.
    Q_PROPERTY(bool showZumetaMarkOnExport READ showZumetaMarkOnExport NOTIFY showZumetaMarkOnExportChanged FINAL)
public:
    /// All must outlive it.
    ExportSheetModel(CompositorViewModel& session, Dialogs& dialogs, const LanguageManager& languages,
                     QObject* parent = nullptr);
    /// The engine's own; see SurfaceContext.
    static ExportSheetModel* create(QQmlEngine* engine, QJSEngine*);

    bool isShown() const { return m_isShown; }
    QStringList sizes() const;
    QStringList pixelSizes() const;
    int selected() const;
    bool showZumetaMarkOnExport() const { return m_showZumetaMarkOnExport; }
    /// Whether the sheet is saying that a video is missing.
    bool showExportMissingMediaAlert() const { return m_showExportMissingMediaAlert; }

    Q_INVOKABLE void select(int index);
    /// One further (+1) or back (-1); stays at either end.
    Q_INVOKABLE void selectNeighbour(int direction);
    Q_INVOKABLE void toggleZumetaMark();
    /// Both videos must be there; otherwise the sheet says so and stays.
    Q_INVOKABLE void exportVideo();
    /// However the sheet goes, it goes by this.
    Q_INVOKABLE void dismiss();

Q_SIGNALS:
    void isShownChanged();
    void sizesChanged();
    void selectedChanged();
    void showZumetaMarkOnExportChanged();

private:
    void followSession();
    void followShape();
    void appear();
    Task<> tellOfMissingMedia();

    CompositorViewModel& m_session;
    Dialogs& m_dialogs;
    const LanguageManager& m_languages;
    std::vector<ExportResolutionType> m_offer; ///< changes with the project's shape, and not with its every value
    bool m_isShown = false;
    bool m_showZumetaMarkOnExport = false;
    bool m_showExportMissingMediaAlert = false;
};

}

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "surfaces/panels/Confirmation.h"

#include <QObject>
#include <QString>
#include <qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

namespace zumeta {
class LanguageManager;
class NotificationCenter;

/// What Step 4 shows and does besides its rows of values.
class Step4Actions final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(QString exportDuration READ exportDuration NOTIFY changed FINAL)
    /// The start may not be put where the end is, nor the end where the start is: the button does nothing then.
    Q_PROPERTY(bool isTrimStartDimmed READ isTrimStartDimmed NOTIFY changed FINAL)
    Q_PROPERTY(bool isTrimEndDimmed READ isTrimEndDimmed NOTIFY changed FINAL)
    Q_PROPERTY(bool isExporting READ isExporting NOTIFY changed FINAL)
    Q_PROPERTY(QString exportTitleKey READ exportTitleKey NOTIFY changed FINAL)
    Q_PROPERTY(QString statusMessage READ statusMessage NOTIFY changed FINAL) ///< empty: none
    Q_PROPERTY(bool isStatusError READ isStatusError NOTIFY changed FINAL)
public:
    Step4Actions(CompositorViewModel& session, NotificationCenter& notifications, Dialogs& dialogs,
                 const LanguageManager& languages, QObject* parent = nullptr);
    /// The engine's own; see SurfaceContext.
    static Step4Actions* create(QQmlEngine* engine, QJSEngine*);

    QString exportDuration() const { return m_shown.exportDuration; }
    bool isTrimStartDimmed() const { return m_shown.isTrimStartDimmed; }
    bool isTrimEndDimmed() const { return m_shown.isTrimEndDimmed; }
    bool isExporting() const { return m_shown.isExporting; }
    QString exportTitleKey() const;
    QString statusMessage() const { return m_shown.statusMessage; }
    bool isStatusError() const { return m_shown.isStatusError; }

    Q_INVOKABLE void setTrimStartToPlayhead();
    Q_INVOKABLE void setTrimEndToPlayhead();
    Q_INVOKABLE void addMarker();
    Q_INVOKABLE void clearMarkers(); ///< asks first
    Q_INVOKABLE void resetTrims();
    Q_INVOKABLE void openExportSheet();

Q_SIGNALS:
    void changed();

private:
    struct State {
        QString exportDuration;
        bool isTrimStartDimmed = false;
        bool isTrimEndDimmed = false;
        bool isExporting = false;
        QString statusMessage;
        bool isStatusError = false;
        friend bool operator==(const State&, const State&) = default;
    };
    State currentState() const;
    void follow();

    CompositorViewModel& m_session;
    NotificationCenter& m_notifications;
    const LanguageManager& m_languages;
    Confirmation m_confirmation;
    State m_shown;
};

}

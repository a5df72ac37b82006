// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QObject>
#include <qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

namespace zumeta {
class CompositorViewModel;

/// How far an export is, and what the last one has left to say. Main thread.
class ExportStatusModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool isExporting READ isExporting NOTIFY isExportingChanged FINAL)
    Q_PROPERTY(double progress READ progress NOTIFY progressChanged FINAL) ///< 0 to 1
    Q_PROPERTY(int percent READ percent NOTIFY progressChanged FINAL)      ///< those that are complete
    /// Whether there is a message. The session takes it away after its time; its words stay readable while it fades.
    Q_PROPERTY(bool hasNotification READ hasNotification NOTIFY notificationChanged FINAL)
    Q_PROPERTY(QString title READ title NOTIFY notificationChanged FINAL)
    Q_PROPERTY(QString message READ message NOTIFY notificationChanged FINAL)
    Q_PROPERTY(bool isError READ isError NOTIFY notificationChanged FINAL)
public:
    explicit ExportStatusModel(CompositorViewModel& session, QObject* parent = nullptr);
    /// The engine's own; see SurfaceContext.
    static ExportStatusModel* create(QQmlEngine* engine, QJSEngine*);

    bool isExporting() const;
    double progress() const;
    int percent() const;
    bool hasNotification() const;
    QString title() const { return m_title; }
    QString message() const { return m_message; }
    bool isError() const { return m_isError; }

    Q_INVOKABLE void cancel();
    Q_INVOKABLE void dismiss();

Q_SIGNALS:
    void isExportingChanged();
    void progressChanged();
    void notificationChanged();

private:
    void takeNotification();

    CompositorViewModel& m_session;
    QString m_title;
    QString m_message;
    bool m_isError = false;
};

/// Of a fraction from 0 to 1. Begun hundredths do not count.
int wholePercent(double fraction);

}

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QDBusConnection>
#include <QObject>
#include <optional>

namespace zumeta {

/// Tells the user something outside the window, by the desktop's own notifications: one at a time, the next one takes
/// its place. Where there is no such service nothing happens. Main thread; nothing waits.
class DesktopNotifier final : public QObject {
    Q_OBJECT
public:
    /// Texts are plain and translated.
    struct Message {
        QString title;
        QString body;
        QString actionLabel; ///< of what a click does, where the desktop shows it
    };

    /// `bus` is the session's bus, or one that stands for it.
    explicit DesktopNotifier(QDBusConnection bus, QObject* parent = nullptr);

    void show(const Message& message);
    /// What is shown has been seen otherwise.
    void withdraw();

Q_SIGNALS:
    /// The user has clicked what is shown. The token, where the desktop gives one, allows the window to come to the
    /// front.
    void activated(const QString& token);

private Q_SLOTS:
    void takeAction(uint id, const QString& action);
    void takeToken(uint id, const QString& token);
    void takeClosed(uint id, uint reason);

private:
    void send(const Message& message, const QStringList& capabilities);

    QDBusConnection m_bus;
    int m_newest = 0;            ///< messages are numbered: an older one that is answered late is not shown any more
    bool m_isWithdrawn = false;  ///< the newest
    std::optional<uint> m_shown; ///< by the service's own number
    QString m_token;             ///< for the click that is about to be told
};

}

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QDBusConnection>
#include <QDBusVariant>
#include <QMap>
#include <QObject>

namespace zumeta {

/// Whether the user has asked the desktop for less motion, by the settings that the desktop's portal hands out. Until
/// it has answered, and where there is no portal, it is not so. Main thread; nothing waits.
class DesktopMotion final : public QObject {
    Q_OBJECT
public:
    /// `bus` is the session's bus, or one that stands for it.
    explicit DesktopMotion(QDBusConnection bus, QObject* parent = nullptr);

    bool isReduced() const { return m_isReduced; }

Q_SIGNALS:
    void isReducedChanged();

private Q_SLOTS:
    void take(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void ask(const QString& group, const QString& key);

    QDBusConnection m_bus;
    QMap<QString, bool> m_wishes; ///< by setting
    bool m_isReduced = false;
};

}

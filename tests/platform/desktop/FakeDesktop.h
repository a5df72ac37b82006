// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/sleep/PrivateBus.h"

#include <QVariantMap>

namespace zumeta::test {

/// Stands for a desktop's notifications.
class FakeNotifications final : public QDBusVirtualObject {
public:
    struct Shown {
        uint id = 0;
        uint replaced = 0;
        QString application;
        QString icon;
        QString title;
        QString body;
        QStringList actions;
        QVariantMap hints;
        int time = 0;
    };

    explicit FakeNotifications(QDBusConnection bus);

    QStringList capabilities{QStringLiteral("actions"), QStringLiteral("body")};
    std::vector<Shown> shown;
    std::vector<uint> closed;
    bool isHesitant = false; ///< answers to Notify wait for answer()
    void answer();

    void click(uint id, const QString& action = QStringLiteral("default"));
    void giveToken(uint id, const QString& token);
    /// As the user does, or time.
    void dismiss(uint id);

    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

private:
    void tell(const char* signal, const QVariantList& arguments);
    uint take(const QVariantList& arguments);

    QDBusConnection m_bus;
    uint m_lastId = 100;
    std::vector<QDBusMessage> m_waiting;
};

/// Stands for a dock that shows how far programs are.
class FakeDock : public QObject {
    Q_OBJECT
public:
    struct Update {
        QString application;
        double progress = 0;
        bool isVisible = false;
    };

    explicit FakeDock(QDBusConnection bus);

    std::vector<Update> updates;

private Q_SLOTS:
    void take(const QString& application, const QVariantMap& properties);
};

}

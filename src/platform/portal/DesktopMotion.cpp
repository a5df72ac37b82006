// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/portal/DesktopMotion.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <utility>

namespace zumeta {

namespace {

const QString kService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString kPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kInterface = QStringLiteral("org.freedesktop.portal.Settings");

// A desktop has one of them or none.
const QString kAppearance = QStringLiteral("org.freedesktop.appearance");
const QString kReducedMotion = QStringLiteral("reduced-motion"); // 1: wanted
const QString kGnome = QStringLiteral("org.gnome.desktop.interface");
const QString kAnimations = QStringLiteral("enable-animations"); // false: not wanted

/// Portals wrap values once or twice.
QVariant unwrapped(QVariant value)
{
    while (value.metaType() == QMetaType::fromType<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

}

DesktopMotion::DesktopMotion(QDBusConnection bus, QObject* parent)
    : QObject(parent)
    , m_bus(std::move(bus))
{
    // The bus finds the slot by the names of its types, and this one gets its name with its first use.
    qRegisterMetaType<QDBusVariant>("QDBusVariant");
    m_bus.connect(kService, kPath, kInterface, QStringLiteral("SettingChanged"), this,
                  SLOT(take(QString, QString, QDBusVariant)));
    ask(kAppearance, kReducedMotion);
    ask(kGnome, kAnimations);
}

void DesktopMotion::ask(const QString& group, const QString& key)
{
    QDBusMessage call = QDBusMessage::createMethodCall(kService, kPath, kInterface, QStringLiteral("Read"));
    call << group << key;
    const auto* const watcher = std::make_unique<QDBusPendingCallWatcher>(m_bus.asyncCall(call), this).release();
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, group, key](QDBusPendingCallWatcher* answered) {
        answered->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *answered;
        if (!reply.isError())
            take(group, key, reply.value());
    });
}

void DesktopMotion::take(const QString& group, const QString& key, const QDBusVariant& value)
{
    const QVariant plain = unwrapped(value.variant());
    if (group == kAppearance && key == kReducedMotion)
        m_wishes[group] = plain.toUInt() == 1;
    else if (group == kGnome && key == kAnimations)
        m_wishes[group] = !plain.toBool();
    else
        return;
    const bool isReduced = m_wishes.values().contains(true);
    if (std::exchange(m_isReduced, isReduced) != isReduced)
        Q_EMIT isReducedChanged();
}

}

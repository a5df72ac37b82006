// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/LauncherProgress.h"

#include "platform/desktop/DesktopId.h"

#include <QDBusMessage>
#include <QVariantMap>
#include <utility>

namespace zumeta {

namespace {

constexpr double kSecondsBetweenSignals = 0.2;

}

LauncherProgress::LauncherProgress(QDBusConnection bus, MainQueue& queue)
    : m_bus(std::move(bus))
    , m_queue(queue)
{}

LauncherProgress::~LauncherProgress()
{
    clear();
}

void LauncherProgress::show(double fraction)
{
    m_fraction = fraction;
    tell();
}

void LauncherProgress::clear()
{
    m_fraction.reset();
    if (m_told)
        send(); // at once: this may be the program's end
}

void LauncherProgress::tell()
{
    if (m_isResting || m_fraction == m_told)
        return;
    send();
    m_isResting = true;
    m_queue.postAfter(kSecondsBetweenSignals, [self = std::weak_ptr(m_self)] {
        const std::shared_ptr<LauncherProgress*> alive = self.lock();
        if (!alive)
            return;
        (*alive)->m_isResting = false;
        (*alive)->tell();
    });
}

void LauncherProgress::send()
{
    QDBusMessage signal =
        QDBusMessage::createSignal(QStringLiteral("/com/zumetaapp/Zumeta"),
                                   QStringLiteral("com.canonical.Unity.LauncherEntry"), QStringLiteral("Update"));
    signal << QStringLiteral("application://%1.desktop").arg(desktopId())
           << QVariantMap{{QStringLiteral("progress"), m_fraction.value_or(0)},
                          {QStringLiteral("progress-visible"), m_fraction.has_value()}};
    m_bus.send(signal);
    m_told = m_fraction;
}

}

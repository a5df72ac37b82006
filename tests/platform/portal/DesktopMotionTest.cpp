// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/portal/DesktopMotion.h"

#include "platform/sleep/PrivateBus.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

namespace zumeta::test {
namespace {

const QString kAppearance = QStringLiteral("org.freedesktop.appearance");
const QString kReducedMotion = QStringLiteral("reduced-motion");
const QString kGnome = QStringLiteral("org.gnome.desktop.interface");
const QString kAnimations = QStringLiteral("enable-animations");

/// Stands for a desktop's portal that knows these settings and no others.
class FakePortal final : public QDBusVirtualObject {
public:
    explicit FakePortal(QDBusConnection bus)
        : m_bus(std::move(bus))
    {
        m_bus.registerVirtualObject(QStringLiteral("/org/freedesktop/portal/desktop"), this);
        m_bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
    }

    QMap<QString, QVariant> settings; ///< by key
    int asked = 0;

    void change(const QString& group, const QString& key, const QVariant& value)
    {
        settings[key] = value;
        QDBusMessage signal = QDBusMessage::createSignal(QStringLiteral("/org/freedesktop/portal/desktop"),
                                                         QStringLiteral("org.freedesktop.portal.Settings"),
                                                         QStringLiteral("SettingChanged"));
        signal << group << key << QVariant::fromValue(QDBusVariant(value));
        m_bus.send(signal);
    }

    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override
    {
        ++asked;
        const QString key = message.arguments().value(1).toString();
        if (!settings.contains(key))
            return connection.send(message.createErrorReply(QStringLiteral("org.freedesktop.portal.Error.NotFound"),
                                                            QStringLiteral("Requested setting not found")));
        const QDBusVariant inner(settings.value(key));
        return connection.send(message.createReply(QVariant::fromValue(QDBusVariant(QVariant::fromValue(inner)))));
    }

private:
    QDBusConnection m_bus;
};

class MotionOnAPrivateBus : public testing::Test {
protected:
    ~MotionOnAPrivateBus() override
    {
        for (const QString& name : {kClient, kService})
            QDBusConnection::disconnectFromBus(name);
    }

    const QString kClient = QStringLiteral("motion-client");
    const QString kService = QStringLiteral("motion-service");
    PrivateBus m_bus;
    FakePortal m_portal{m_bus.connection(kService)};
    QDBusConnection m_client = m_bus.connection(kClient);
};

TEST_F(MotionOnAPrivateBus, IsReducedWhereTheDesktopSaysSo)
{
    m_portal.settings[kReducedMotion] = 1U;
    const DesktopMotion motion(m_client);
    EXPECT_FALSE(motion.isReduced()); // nobody has waited
    EXPECT_TRUE(becomesTrue([&] { return motion.isReduced(); }));
}

TEST_F(MotionOnAPrivateBus, IsReducedWhereAnimationsAreSwitchedOff)
{
    m_portal.settings[kAnimations] = false;
    const DesktopMotion motion(m_client);
    EXPECT_TRUE(becomesTrue([&] { return motion.isReduced(); }));
}

TEST_F(MotionOnAPrivateBus, IsNotReducedByAnythingElse)
{
    m_portal.settings[kReducedMotion] = 0U;
    m_portal.settings[kAnimations] = true;
    DesktopMotion motion(m_client);
    int told = 0;
    QObject::connect(&motion, &DesktopMotion::isReducedChanged, [&] { ++told; });
    m_portal.change(kGnome, QStringLiteral("cursor-blink"), false);
    m_portal.change(kAppearance, QStringLiteral("contrast"), 1U);
    m_portal.change(kGnome, kAnimations, false); // comes behind the others
    EXPECT_TRUE(becomesTrue([&] { return told > 0; }));
    EXPECT_EQ(told, 1);
    EXPECT_TRUE(motion.isReduced());
}

TEST_F(MotionOnAPrivateBus, FollowsTheDesktopWhileItRuns)
{
    DesktopMotion motion(m_client);
    ASSERT_TRUE(becomesTrue([&] { return m_portal.asked == 2; })); // it has none of the settings
    m_portal.change(kAppearance, kReducedMotion, 1U);
    EXPECT_TRUE(becomesTrue([&] { return motion.isReduced(); }));
    m_portal.change(kAppearance, kReducedMotion, 0U);
    EXPECT_TRUE(becomesTrue([&] { return !motion.isReduced(); }));
}

TEST_F(MotionOnAPrivateBus, IsNotReducedWithoutAPortal)
{
    const QString alone = QStringLiteral("motion-alone");
    PrivateBus empty;
    QDBusConnection bus = empty.connection(alone);
    const DesktopMotion motion(bus);
    // A bus answers in order: behind this one the others have been refused.
    bus.call(QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.portal.Desktop"), QStringLiteral("/"),
                                            QStringLiteral("org.freedesktop.portal.Settings"), QStringLiteral("Read")));
    QCoreApplication::processEvents();
    EXPECT_FALSE(motion.isReduced());
    QDBusConnection::disconnectFromBus(alone);
}

}
}

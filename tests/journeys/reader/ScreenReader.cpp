// SPDX-License-Identifier: GPL-3.0-or-later
// Reads a program's window through the desktop's accessibility bus, as a screen reader does, and prints a line for each
// thing that is shown: its role, its name, its description and whether the keyboard can go there, with tabs between.
#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QElapsedTimer>
#include <QThread>
#include <cstdio>

namespace {

/// One thing on the bus: whose it is, and where there.
struct Accessible {
    QString service;
    QDBusObjectPath path;
};

QDBusArgument& operator<<(QDBusArgument& argument, const Accessible& accessible)
{
    argument.beginStructure();
    argument << accessible.service << accessible.path;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, Accessible& accessible)
{
    argument.beginStructure();
    argument >> accessible.service >> accessible.path;
    argument.endStructure();
    return argument;
}

// As AT-SPI counts them.
constexpr int kFocusable = 11;
constexpr int kShowing = 25;

class Reader {
public:
    explicit Reader(QDBusConnection bus)
        : m_bus(std::move(bus))
    {}

    QList<Accessible> children(const Accessible& parent) const
    {
        const QVariant answer = call(parent, "GetChildren");
        return answer.isValid() ? qdbus_cast<QList<Accessible>>(answer) : QList<Accessible>();
    }
    QString property(const Accessible& accessible, const char* name) const
    {
        QDBusMessage request =
            QDBusMessage::createMethodCall(accessible.service, accessible.path.path(),
                                           QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
        request << QStringLiteral("org.a11y.atspi.Accessible") << QString::fromLatin1(name);
        const QDBusMessage answer = m_bus.call(request, QDBus::Block, kPatience);
        return answer.arguments().value(0).value<QDBusVariant>().variant().toString();
    }
    void read(const Accessible& accessible) const
    {
        const QVariant states = call(accessible, "GetState");
        const auto words = states.isValid() ? qdbus_cast<QList<uint>>(states) : QList<uint>();
        const auto has = [&](int state) {
            return words.size() > state / 32 && (words[state / 32] >> (state % 32) & 1U) != 0;
        };
        if (!has(kShowing))
            return; // nor does what stands in it
        std::printf("%s\t%s\t%s\t%s\n", qUtf8Printable(call(accessible, "GetRoleName").toString()),
                    qUtf8Printable(property(accessible, "Name")), qUtf8Printable(property(accessible, "Description")),
                    has(kFocusable) ? "focusable" : "");
        for (const Accessible& child : children(accessible))
            read(child);
    }

private:
    static constexpr int kPatience = 10000; // milliseconds

    QVariant call(const Accessible& accessible, const char* method) const
    {
        const QDBusMessage answer = m_bus.call(
            QDBusMessage::createMethodCall(accessible.service, accessible.path.path(),
                                           QStringLiteral("org.a11y.atspi.Accessible"), QString::fromLatin1(method)),
            QDBus::Block, kPatience);
        return answer.type() == QDBusMessage::ReplyMessage ? answer.arguments().value(0) : QVariant();
    }

    QDBusConnection m_bus;
};

QDBusConnection accessibilityBus()
{
    const QDBusMessage answer = QDBusConnection::sessionBus().call(
        QDBusMessage::createMethodCall(QStringLiteral("org.a11y.Bus"), QStringLiteral("/org/a11y/bus"),
                                       QStringLiteral("org.a11y.Bus"), QStringLiteral("GetAddress")));
    return QDBusConnection::connectToBus(answer.arguments().value(0).toString(), QStringLiteral("accessibility"));
}

}

Q_DECLARE_METATYPE(Accessible)

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: screen-reader NAME\n");
        return 2;
    }
    qDBusRegisterMetaType<Accessible>();
    qDBusRegisterMetaType<QList<Accessible>>();
    const Reader reader(accessibilityBus());
    const Accessible desktop{QStringLiteral("org.a11y.atspi.Registry"),
                             QDBusObjectPath(QStringLiteral("/org/a11y/atspi/accessible/root"))};
    QElapsedTimer since;
    since.start();
    // A program makes itself known a little after its start.
    while (since.elapsed() < 10000) {
        for (const Accessible& program : reader.children(desktop)) {
            if (reader.property(program, "Name") != QString::fromLocal8Bit(argv[1]))
                continue;
            reader.read(program);
            return 0;
        }
        QThread::msleep(100);
    }
    std::fprintf(stderr, "%s is not on the accessibility bus\n", argv[1]);
    return 1;
}

// SPDX-License-Identifier: GPL-3.0-or-later
// Stands for a desktop's portal that lends file dialogs. Whoever asks for files to open gets those of the command line.
// Prints a line for each question: "OpenFile", the title, whether several may be chosen, and the patterns of the first
// filter, with tabs between.
#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QTimer>
#include <QUrl>
#include <cstdio>

namespace {

const QString kDesktopPath = QStringLiteral("/org/freedesktop/portal/desktop");

/// A filter's name and its patterns, of which 0 is the kind that is a glob.
struct Pattern {
    uint kind = 0;
    QString text;
};
struct Filter {
    QString name;
    QList<Pattern> patterns;
};

QDBusArgument& operator<<(QDBusArgument& out, const Pattern& pattern)
{
    out.beginStructure();
    out << pattern.kind << pattern.text;
    out.endStructure();
    return out;
}

const QDBusArgument& operator>>(const QDBusArgument& in, Pattern& pattern)
{
    in.beginStructure();
    in >> pattern.kind >> pattern.text;
    in.endStructure();
    return in;
}

QDBusArgument& operator<<(QDBusArgument& out, const Filter& filter)
{
    out.beginStructure();
    out << filter.name << filter.patterns;
    out.endStructure();
    return out;
}

const QDBusArgument& operator>>(const QDBusArgument& in, Filter& filter)
{
    in.beginStructure();
    in >> filter.name >> filter.patterns;
    in.endStructure();
    return in;
}

class FakePortal final : public QDBusVirtualObject {
public:
    FakePortal(QDBusConnection bus, QStringList files)
        : m_bus(std::move(bus))
        , m_files(std::move(files))
    {}

    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override
    {
        if (message.member() == QStringLiteral("Get"))
            return connection.send(message.createReply(QVariant::fromValue(QDBusVariant(3U))));
        if (message.member() != QStringLiteral("OpenFile"))
            return false;
        const auto options = qdbus_cast<QVariantMap>(message.arguments().value(2));
        tell(message, options);
        QString sender = message.service().mid(1);
        sender.replace(u'.', u'_');
        const QString handle =
            kDesktopPath +
            QStringLiteral("/request/%1/%2").arg(sender, options.value(QStringLiteral("handle_token")).toString());
        connection.send(message.createReply(QVariant::fromValue(QDBusObjectPath(handle))));
        // The user takes a moment.
        QTimer::singleShot(200, this, [this, handle] { answer(handle); });
        return true;
    }

private:
    static void tell(const QDBusMessage& message, const QVariantMap& options)
    {
        const auto filters = qdbus_cast<QList<Filter>>(options.value(QStringLiteral("filters")));
        QStringList patterns;
        for (const Filter& filter : filters.mid(0, 1)) {
            for (const Pattern& pattern : filter.patterns)
                patterns << pattern.text;
        }
        std::printf("%s\t%s\t%s\t%s\n", qUtf8Printable(message.member()),
                    qUtf8Printable(message.arguments().value(1).toString()),
                    options.value(QStringLiteral("multiple")).toBool() ? "several" : "one",
                    qUtf8Printable(patterns.join(u' ')));
        std::fflush(stdout);
    }
    void answer(const QString& handle)
    {
        QStringList addresses;
        for (const QString& file : m_files)
            addresses << QUrl::fromLocalFile(file).toString(QUrl::FullyEncoded);
        QDBusMessage response = QDBusMessage::createSignal(handle, QStringLiteral("org.freedesktop.portal.Request"),
                                                           QStringLiteral("Response"));
        response << 0U << QVariantMap{{QStringLiteral("uris"), addresses}};
        m_bus.send(response);
    }

    QDBusConnection m_bus;
    QStringList m_files;
};

}

Q_DECLARE_METATYPE(Pattern)
Q_DECLARE_METATYPE(Filter)

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    qDBusRegisterMetaType<Pattern>();
    qDBusRegisterMetaType<QList<Pattern>>();
    qDBusRegisterMetaType<Filter>();
    qDBusRegisterMetaType<QList<Filter>>();
    QDBusConnection bus = QDBusConnection::sessionBus();
    FakePortal portal(bus, QCoreApplication::arguments().mid(1));
    if (!bus.registerVirtualObject(kDesktopPath, &portal, QDBusConnection::SubPath) ||
        !bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop")))
        return 1;
    std::printf("ready\n");
    std::fflush(stdout);
    return QCoreApplication::exec();
}

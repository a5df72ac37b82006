// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/instance/SingleInstance.h"

#include "platform/Log.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QLocalServer>
#include <QLocalSocket>
#include <QThread>
#include <algorithm>
#include <fcntl.h>
#include <sys/file.h>

namespace zumeta {

namespace {

using std::chrono::milliseconds;

constexpr char kRequest[] = "show ";
constexpr char kAnswer[] = "shown\n";
/// Tokens are a line of text; nothing longer is waited for.
constexpr qint64 kLongestRequest = 4096;

milliseconds leftOf(const QDeadlineTimer& deadline)
{
    return std::max(milliseconds(deadline.remainingTime()), milliseconds(0));
}

}

SingleInstance::SingleInstance(const QString& folder, const QString& name)
    : m_lockPath(folder + QLatin1Char('/') + name + QLatin1String(".lock"))
    , m_socketPath(folder + QLatin1Char('/') + name + QLatin1String(".socket"))
{}

SingleInstance::~SingleInstance()
{
    release();
}

SingleInstance::Start SingleInstance::start(const QByteArray& activationToken, milliseconds patience)
{
    constexpr unsigned long kPause = 50; // milliseconds
    const QDeadlineTimer deadline(patience);
    do {
        m_lock = FileDescriptor(::open(QFile::encodeName(m_lockPath).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
        if (!m_lock.isOpen()) {
            logLine(QStringLiteral("No lock for a single window: ") + m_lockPath);
            return Start::goesAlone;
        }
        if (takeLock()) {
            listen();
            return Start::isFirst;
        }
        if (isServedByTheFirst(activationToken, leftOf(deadline)))
            return Start::isServed;
        // Between taking its lock and listening, or about to end: then the lock is free in a moment.
        QThread::msleep(std::min(kPause, static_cast<unsigned long>(leftOf(deadline).count())));
    } while (!deadline.hasExpired());
    m_lock.close();
    logLine(QStringLiteral("The application that runs already does not answer"));
    return Start::goesAlone;
}

bool SingleInstance::takeLock()
{
    return ::flock(m_lock.get(), LOCK_EX | LOCK_NB) == 0;
}

void SingleInstance::listen()
{
    QLocalServer::removeServer(m_socketPath); // of one that was killed: nobody else has the lock
    m_server = std::make_unique<QLocalServer>();
    m_server->setSocketOptions(QLocalServer::UserAccessOption);
    connect(m_server.get(), &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket* const caller = m_server->nextPendingConnection()) {
            connect(caller, &QLocalSocket::readyRead, this, [this, caller] { answer(*caller); });
            connect(caller, &QLocalSocket::disconnected, caller, &QObject::deleteLater);
            answer(*caller); // what it has said may be there already
        }
    });
    if (!m_server->listen(m_socketPath))
        logLine(QStringLiteral("Later starts are not heard: ") + m_server->errorString());
}

bool SingleInstance::isServedByTheFirst(const QByteArray& activationToken, milliseconds patience) const
{
    const QDeadlineTimer deadline(patience);
    QLocalSocket first;
    first.connectToServer(m_socketPath);
    if (!first.waitForConnected(int(patience.count())))
        return false;
    first.write(kRequest + activationToken + '\n');
    while (!first.canReadLine()) {
        if (!first.waitForReadyRead(int(leftOf(deadline).count())))
            return false;
    }
    return first.readLine() == kAnswer;
}

void SingleInstance::answer(QLocalSocket& caller)
{
    if (!caller.canReadLine()) {
        if (caller.bytesAvailable() > kLongestRequest)
            caller.abort();
        return;
    }
    const QByteArray request = caller.readLine().trimmed();
    if (!(request + ' ').startsWith(kRequest)) {
        caller.abort();
        return;
    }
    Q_EMIT startedAgain(request.mid(qsizetype(sizeof kRequest) - 1));
    caller.write(kAnswer);
    caller.flush();
    caller.disconnectFromServer();
}

void SingleInstance::release()
{
    m_server.reset(); // removes its socket, while nobody else can have made one there
    m_lock.close();
}

}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/updates/FeedServer.h"

#include "platform/updates/OwnCertificate.h"

#include <QSslServer>
#include <QSslSocket>
#include <QTimer>
#include <stdexcept>

namespace zumeta::test {

namespace {

std::unique_ptr<QTcpServer> makeServer(FeedServer::Protection protection)
{
    if (protection == FeedServer::Protection::none)
        return std::make_unique<QTcpServer>();
    auto server = std::make_unique<QSslServer>();
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setLocalCertificate(ownCertificate().certificate);
    configuration.setPrivateKey(ownCertificate().key);
    server->setSslConfiguration(configuration);
    return server;
}

void repeat(QTcpSocket& socket, int milliseconds, const std::function<void()>& work)
{
    auto timer = std::make_unique<QTimer>(&socket).release(); // the socket's
    QObject::connect(timer, &QTimer::timeout, &socket, work);
    timer->start(milliseconds);
}

}

FeedServer::FeedServer(Protection protection)
    : m_server(makeServer(protection))
    , m_protection(protection)
{
    connect(m_server.get(), &QTcpServer::pendingConnectionAvailable, this, [this] {
        while (QTcpSocket* const socket = m_server->nextPendingConnection())
            serve(socket);
    });
    if (!m_server->listen(QHostAddress::LocalHost))
        throw std::runtime_error("no port on this machine");
}

FeedServer::~FeedServer() = default;

QUrl FeedServer::url(const QString& path) const
{
    const QString scheme = m_protection == Protection::none ? QStringLiteral("http") : QStringLiteral("https");
    return {QStringLiteral("%1://127.0.0.1:%2%3").arg(scheme).arg(m_server->serverPort()).arg(path)};
}

void FeedServer::serve(QTcpSocket* socket)
{
    const auto take = [this, socket] {
        if (!socket->peek(64 * 1024).contains("\r\n\r\n"))
            return;
        const QByteArray request = socket->readAll();
        const QString path = QString::fromLatin1(request.split(' ').value(1));
        asked.push_back(path);
        headers.push_back(request);
        m_behaviours.value(path, answer("404 Not Found", "nothing here"))(*socket);
    };
    connect(socket, &QTcpSocket::readyRead, this, take);
    connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    take();
}

void FeedServer::redirect(const QString& path, const QString& target)
{
    at(path, answer("302 Found", "elsewhere", "Location: " + target.toLatin1() + "\r\n"));
}

FeedServer::Behaviour FeedServer::answer(const QByteArray& status, const QByteArray& bytes,
                                         const QByteArray& moreHeaders)
{
    return raw("HTTP/1.1 " + status + "\r\nContent-Length: " + QByteArray::number(bytes.size()) +
               "\r\nConnection: close\r\n" + moreHeaders + "\r\n" + bytes);
}

FeedServer::Behaviour FeedServer::silence()
{
    return [](QTcpSocket&) {};
}

FeedServer::Behaviour FeedServer::drip()
{
    return [](QTcpSocket& socket) {
        socket.write("HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n");
        repeat(socket, 5, [&socket] { socket.write(" "); });
    };
}

FeedServer::Behaviour FeedServer::flood()
{
    return [](QTcpSocket& socket) {
        socket.write("HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n");
        repeat(socket, 0, [&socket] {
            if (socket.bytesToWrite() < 1024 * 1024)
                socket.write(QByteArray(64 * 1024, ' '));
        });
    };
}

FeedServer::Behaviour FeedServer::raw(const QByteArray& bytes)
{
    return [bytes](QTcpSocket& socket) {
        socket.write(bytes);
        socket.disconnectFromHost();
    };
}

}

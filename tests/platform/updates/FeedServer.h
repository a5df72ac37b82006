// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QMap>
#include <QObject>
#include <QTcpServer>
#include <QUrl>
#include <functional>
#include <memory>
#include <vector>

class QTcpSocket;

namespace zumeta::test {

/// A web server on this machine that answers as a test tells it, be it never so bad.
class FeedServer : public QObject {
    Q_OBJECT
public:
    /// What it does with a connection that has asked for a path.
    using Behaviour = std::function<void(QTcpSocket&)>;
    enum class Protection { none, ownCertificate };

    explicit FeedServer(Protection protection = Protection::none);
    ~FeedServer() override;

    QUrl url(const QString& path) const;
    void at(const QString& path, Behaviour behaviour) { m_behaviours[path] = std::move(behaviour); }
    void put(const QString& path, const QByteArray& bytes) { at(path, answer("200 OK", bytes)); }
    void redirect(const QString& path, const QString& target);

    std::vector<QString> asked;      ///< paths, in their order
    std::vector<QByteArray> headers; ///< of the requests

    static Behaviour answer(const QByteArray& status, const QByteArray& bytes, const QByteArray& moreHeaders = {});
    /// The connection stays, and nothing comes.
    static Behaviour silence();
    /// A byte every few milliseconds, without an end.
    static Behaviour drip();
    /// As much as is taken, without an end and without having said how much.
    static Behaviour flood();
    /// These very bytes, and the end of the connection.
    static Behaviour raw(const QByteArray& bytes);

private:
    void serve(QTcpSocket* socket);

    std::unique_ptr<QTcpServer> m_server;
    Protection m_protection;
    QMap<QString, Behaviour> m_behaviours;
};

}

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/FileDescriptor.h"

#include <QByteArray>
#include <QObject>
#include <chrono>
#include <memory>

class QLocalServer;
class QLocalSocket;

namespace zumeta {

/// One user has one running application on one screen. The first one holds a lock, which the kernel takes back however
/// its process ends, and listens; a later one asks the first to show itself, and goes. Main thread.
class SingleInstance final : public QObject {
    Q_OBJECT
public:
    enum class Start {
        isFirst,   ///< it listens from now on
        isServed,  ///< the first one has been asked, and has answered
        goesAlone, ///< neither: there is no place for a lock, or the one that holds it does not answer
    };

    /// In a folder that belongs to the user alone, under a name for the screen; see screenName().
    SingleInstance(const QString& folder, const QString& name);
    ~SingleInstance() override;

    /// Blocks for at most this time, and only where another one holds the lock: for before there is a window.
    /// `activationToken`: what the desktop gave to this start so that a window may come to the front; may be empty.
    Start start(const QByteArray& activationToken, std::chrono::milliseconds patience = std::chrono::seconds(10));
    /// From now on a later start is the first.
    void release();

Q_SIGNALS:
    /// Somebody has started the application once more.
    void startedAgain(const QByteArray& activationToken);

private:
    bool takeLock();
    void listen();
    bool isServedByTheFirst(const QByteArray& activationToken, std::chrono::milliseconds patience) const;
    void answer(QLocalSocket& caller);

    QString m_lockPath;
    QString m_socketPath;
    FileDescriptor m_lock;
    std::unique_ptr<QLocalServer> m_server; ///< of the first one
};

}

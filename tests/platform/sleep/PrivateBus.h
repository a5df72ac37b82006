// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/FileDescriptor.h"
#include "support/TemporaryFolder.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <functional>
#include <vector>

namespace zumeta::test {

/// A program that runs beside the test and is killed at the end.
class Companion {
public:
    explicit Companion(std::vector<std::string> words);
    ~Companion() { kill(); }
    Companion(const Companion&) = delete; // it stands for a process
    Companion& operator=(const Companion&) = delete;

    /// Its next line on standard output, waited for.
    std::string line() const;
    /// A line has begun, or the program has ended.
    bool hasSaidMore() const;
    void kill();

private:
    pid_t m_process = -1;
    FileDescriptor m_out;
};

/// A bus of the test's own. What the machine's buses hold is not seen from it.
class PrivateBus {
public:
    PrivateBus();
    const QString& address() const { return m_address; }
    /// A connection of its own for each name, closed with the bus.
    QDBusConnection connection(const QString& name) const;

private:
    TemporaryFolder m_folder;
    Companion m_daemon;
    QString m_address;
};

/// Stands for the login service. The right that it hands out is one end of a pipe: it sees when the last holder is
/// gone.
class FakeLoginService final : public QDBusVirtualObject {
public:
    enum class Answer { atOnce, whenAsked, refusal, nonsense };
    FakeLoginService(QDBusConnection bus, Answer answer);

    std::vector<QDBusMessage> requests;
    /// To all requests that wait for it.
    void answer();
    /// Somebody holds a right that was handed out, be it still on its way.
    bool isHeld() const;

    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

private:
    void grant(const QDBusMessage& request);

    QDBusConnection m_bus;
    Answer m_answer;
    std::vector<QDBusMessage> m_waiting;
    std::vector<FileDescriptor> m_pipes; ///< the ends that were kept
};

/// Lets the event loop turn until it is so; false after ten seconds.
bool becomesTrue(const std::function<bool()>& condition);

}

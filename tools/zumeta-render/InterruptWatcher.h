// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QObject>
#include <QSocketNotifier>

namespace zumeta {

/// Turns Ctrl-C and a polite request to end into a signal of the event loop. One at a time; main thread.
class InterruptWatcher final : public QObject {
    Q_OBJECT
public:
    explicit InterruptWatcher(QObject* parent = nullptr);
    ~InterruptWatcher() override;

Q_SIGNALS:
    void interrupted();

private:
    QSocketNotifier m_notifier;
};

}

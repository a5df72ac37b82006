// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QObject>
#include <QSocketNotifier>

namespace zumeta {

/// Sets what Ctrl-C, a polite request to end and a closed terminal do. A terminal's end that whoever started the
/// program wants to be ignored stays ignored.
void onInterrupt(void (*handler)(int));

/// Turns these into a signal of the event loop. One at a time; main thread.
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

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/Dialogs.h"

#include <QObject>
#include <QPromise>
#include <deque>
#include <memory>
#include <qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

namespace zumeta {

/// The questions that the window puts to the user, one at a time in the order in which they came. Main thread.
class AlertQueue final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool isOpen READ isOpen NOTIFY changed FINAL)
    Q_PROPERTY(QString title READ title NOTIFY changed FINAL)
    Q_PROPERTY(QString message READ message NOTIFY changed FINAL)
    /// As the caller gave them: the first is what Return presses, the last what closing the question answers.
    Q_PROPERTY(QStringList buttons READ buttons NOTIFY changed FINAL)
    Q_PROPERTY(bool isDestructive READ isDestructive NOTIFY changed FINAL)
public:
    /// No argument may be left out: QML would make one of its own where it could.
    explicit AlertQueue(QObject* parent);
    ~AlertQueue() override;
    /// The engine's own; see SurfaceContext.
    static AlertQueue* create(QQmlEngine* engine, QJSEngine*);

    bool isOpen() const { return !m_waiting.empty(); }
    QString title() const { return isOpen() ? m_waiting.front().alert.title : QString(); }
    QString message() const { return isOpen() ? m_waiting.front().alert.message : QString(); }
    QStringList buttons() const { return isOpen() ? m_waiting.front().alert.buttons : QStringList(); }
    bool isDestructive() const { return isOpen() && m_waiting.front().alert.isDestructive; }

    /// The index of the button. The answer of a queue that goes is that of closing.
    Task<int> ask(Alert alert);
    /// To the question that is shown; an index that it does not have closes it.
    Q_INVOKABLE void answer(int button);
    Q_INVOKABLE void close() { answer(-1); }
    /// A question that has become pointless, shown or still waiting: it is answered as if it were closed.
    void withdraw(const Alert& alert);

Q_SIGNALS:
    void changed();

private:
    struct Waiting {
        Alert alert;
        std::shared_ptr<QPromise<int>> answer;
    };
    static void give(const Waiting& waiting, int button);

    std::deque<Waiting> m_waiting;
};

}

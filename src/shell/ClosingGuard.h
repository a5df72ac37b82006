// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/Dialogs.h"
#include "platform/Task.h"

#include <QObject>
#include <functional>
#include <optional>

namespace zumeta {
class AlertQueue;
class CompositorViewModel;

/// The wish to end the application: granted at once, unless a movie is being made; then it is asked about, once. A
/// composition that was not kept is no reason to ask. Main thread.
class ClosingGuard final : public QObject {
    Q_OBJECT
public:
    /// All must outlive it.
    ClosingGuard(CompositorViewModel& session, AlertQueue& alerts, std::function<QString(const QString&)> localized);
    ~ClosingGuard() override;

    /// Whether the application may end now. If not, the question stands in the window, and what comes of it is told.
    bool mayClose();
    bool isAsking() const { return m_question.has_value(); }

Q_SIGNALS:
    void asked();
    /// The export has been given up, and nothing keeps the application any more.
    void confirmed();
    /// The application stays, because the user wants it or because the movie was finished meanwhile.
    void declined();

private:
    Task<> ask();
    /// A movie that is finished needs no question.
    void followExport();

    CompositorViewModel& m_session;
    AlertQueue& m_alerts;
    std::function<QString(const QString&)> m_localized;
    std::optional<Alert> m_question; ///< while it stands in the window
};

}

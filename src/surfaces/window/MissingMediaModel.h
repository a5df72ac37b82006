// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/Task.h"
#include "session/Side.h"

#include <QObject>
#include <qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

namespace zumeta {
class CompositorViewModel;
class FileChooser;
class LanguageManager;

/// The videos of an opened project that are not found, and the ways on from there. Main thread.
class MissingMediaModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool isShown READ isShown NOTIFY changed FINAL)
    Q_PROPERTY(bool showAboveReconnect READ showAboveReconnect NOTIFY changed FINAL)
    Q_PROPERTY(bool showBelowReconnect READ showBelowReconnect NOTIFY changed FINAL)
public:
    /// All must outlive it.
    MissingMediaModel(CompositorViewModel& session, FileChooser& fileChooser, const LanguageManager& languages,
                      QObject* parent = nullptr);
    /// The engine's own; see SurfaceContext.
    static MissingMediaModel* create(QQmlEngine* engine, QJSEngine*);

    bool isShown() const;
    bool showAboveReconnect() const;
    bool showBelowReconnect() const;

    /// Both ask for the files that take the missing ones' place.
    Q_INVOKABLE void reconnectAbove() { reconnect(Side::above); }
    Q_INVOKABLE void reconnectBelow() { reconnect(Side::below); }
    /// Gives the project up.
    Q_INVOKABLE void reset();

Q_SIGNALS:
    void changed();

private:
    Task<> reconnect(Side side);
    bool isMissing(Side side) const;

    CompositorViewModel& m_session;
    FileChooser& m_fileChooser;
    const LanguageManager& m_languages;
    bool m_isChoosing = false; ///< one chooser is enough
};

}

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QObject>
#include <QStringList>
#include <qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

namespace zumeta {
class CompositorViewModel;

/// The choice of the camera, which comes before all else and can be changed later without losing work.
class CameraChoice final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(QStringList names READ names CONSTANT FINAL)
    Q_PROPERTY(int selected READ selected NOTIFY changed FINAL)
    Q_PROPERTY(bool isConfirmed READ isConfirmed NOTIFY changed FINAL)
public:
    explicit CameraChoice(CompositorViewModel& session, QObject* parent = nullptr);
    /// The engine's own; see SurfaceContext.
    static CameraChoice* create(QQmlEngine* engine, QJSEngine*);

    /// As the makers write them, in every language.
    QStringList names() const { return {QStringLiteral("GoPro / Osmo"), QStringLiteral("Insta360")}; }
    int selected() const; ///< an index into names()
    bool isConfirmed() const;
    Q_INVOKABLE void select(int index);
    Q_INVOKABLE void confirm();

Q_SIGNALS:
    void changed();

private:
    CompositorViewModel& m_session;
};

}

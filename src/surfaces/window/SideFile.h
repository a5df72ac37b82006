// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "session/Side.h"

#include <QObject>
#include <qqmlregistration.h>

namespace zumeta {
class CompositorViewModel;

/// The file of one side, and its proxy, as the file bar shows them.
class SideFile : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("FilesModel has one for each side")
    Q_PROPERTY(bool isPresent READ isPresent NOTIFY changed FINAL)
    Q_PROPERTY(QString name READ name NOTIFY changed FINAL)
    Q_PROPERTY(bool isUnreadable READ isUnreadable NOTIFY changed FINAL)
    Q_PROPERTY(bool isActive READ isActive NOTIFY changed FINAL)
    Q_PROPERTY(bool isProxyGenerated READ isProxyGenerated NOTIFY changed FINAL)
    Q_PROPERTY(bool hasProxyFailed READ hasProxyFailed NOTIFY changed FINAL)
    Q_PROPERTY(int proxyPercent READ proxyPercent NOTIFY changed FINAL)
public:
    SideFile(CompositorViewModel& session, Side side, QObject* parent);

    bool isPresent() const { return m_shown.isPresent; }
    QString name() const { return m_shown.name; } ///< of the first one, of several chapters
    /// It was chosen, and nothing came of it: nothing of it is loaded, and nothing loads.
    bool isUnreadable() const { return m_shown.isUnreadable; }
    bool isActive() const { return m_shown.isActive; } ///< its step is the current one
    bool isProxyGenerated() const { return m_shown.isProxyGenerated; }
    bool hasProxyFailed() const { return m_shown.hasProxyFailed; }
    int proxyPercent() const { return m_shown.proxyPercent; } ///< whole ones that are done; of the last proxy
    Q_INVOKABLE void clear();

Q_SIGNALS:
    void changed();

private:
    struct Shown {
        bool isPresent = false;
        QString name;
        bool isUnreadable = false;
        bool isActive = false;
        bool isProxyGenerated = false;
        bool hasProxyFailed = false;
        int proxyPercent = 0;
        friend bool operator==(const Shown&, const Shown&) = default;
    };

    Shown look() const;
    void update();

    CompositorViewModel& m_session;
    const Side m_side;
    Shown m_shown;
};

}

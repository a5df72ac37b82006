// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QPointer>
#include <QQuickItem>
#include <qqmlregistration.h>

namespace zumeta {

/// Scrolls a text by keys. The item itself is the view; it has no look.
class ReadingScroller : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    /// What moves in the view; its place tells what is seen.
    Q_PROPERTY(QQuickItem* content READ content WRITE setContent NOTIFY contentChanged FINAL)
public:
    explicit ReadingScroller(QQuickItem* parent = nullptr);

    QQuickItem* content() const { return m_content; }
    void setContent(QQuickItem* content);
    /// Whether it is a key that scrolls, be it that the text stands at its end.
    Q_INVOKABLE bool pressKey(int key);

Q_SIGNALS:
    void contentChanged();
    /// The text shall be seen from here on.
    void scrollWanted(double top);

private:
    QPointer<QQuickItem> m_content;
};

}

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QPointer>
#include <QQuickItem>
#include <qqmlregistration.h>

namespace zumeta {

/// Brings into sight what the keyboard has come to. The item itself is the view; it has no look. What lies under a
/// pressed pointer stays where it is.
class FocusScroller : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    /// What moves in the view; its place tells what is seen.
    Q_PROPERTY(QQuickItem* content READ content WRITE setContent NOTIFY contentChanged FINAL)
public:
    explicit FocusScroller(QQuickItem* parent = nullptr);

    QQuickItem* content() const { return m_content; }
    void setContent(QQuickItem* content);
    /// An item of the content. What stands within an item that has the property `isSeenWhole` brings all of that along.
    Q_INVOKABLE void show(QQuickItem* part);
    /// A part of the content, as it stands in the window now.
    Q_INVOKABLE void showPart(const QRectF& part);

Q_SIGNALS:
    void contentChanged();
    /// The content shall be seen from here on. Not told when it is already.
    void scrollWanted(double top);

protected:
    void itemChange(ItemChange change, const ItemChangeData& data) override;

private:
    void followFocus();
    QQuickItem* wholeOf(QQuickItem* part) const;
    void bringIntoSight(double first, double last);

    QPointer<QQuickItem> m_content;
    QMetaObject::Connection m_following;
};

}

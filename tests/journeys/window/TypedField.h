// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <memory>

namespace zumeta::test {

inline QQmlEngine& engineOf(QQuickWindow& window)
{
    return *qmlEngine(window.contentItem()->childItems().constFirst());
}

/// A field in the window, with the focus and this text, all of it selected.
inline std::unique_ptr<QQuickItem> makeField(QQuickWindow& window, const char* text)
{
    QQmlComponent component(&engineOf(window));
    component.setData("import QtQuick\nTextInput { width: 200; height: 30; y: 400 }", {});
    std::unique_ptr<QQuickItem> field(qobject_cast<QQuickItem*>(component.create()));
    field->setParentItem(window.contentItem());
    field->forceActiveFocus();
    field->setProperty("text", QString::fromLatin1(text));
    QMetaObject::invokeMethod(field.get(), "selectAll");
    return field;
}

}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/window/EditedField.h"

#include <QMetaObject>
#include <QVariant>

namespace zumeta {

namespace {

/// The slot of Qt Quick's texts that does it; what they offer to C++ is private.
const char* slotOf(MenuCommand command)
{
    switch (command) {
    case MenuCommand::undo:
        return "undo";
    case MenuCommand::redo:
        return "redo";
    case MenuCommand::cut:
        return "cut";
    case MenuCommand::copy:
        return "copy";
    case MenuCommand::paste:
        return "paste";
    case MenuCommand::selectAll:
        return "selectAll";
    default:
        return nullptr;
    }
}

bool isText(const QObject& object)
{
    return object.inherits("QQuickTextInput") || object.inherits("QQuickTextEdit");
}

}

EditedField::EditedField(QObject* focusObject)
    : m_field(focusObject && isText(*focusObject) ? focusObject : nullptr)
{}

EditFacts EditedField::facts() const
{
    if (!m_field)
        return {};
    const bool isWritable = !m_field->property("readOnly").toBool();
    return {.canUndo = isWritable && m_field->property("canUndo").toBool(),
            .canRedo = isWritable && m_field->property("canRedo").toBool(),
            .canPaste = m_field->property("canPaste").toBool(),
            .hasSelection = !m_field->property("selectedText").toString().isEmpty(),
            .hasText = !m_field->property("text").toString().isEmpty()};
}

void EditedField::perform(MenuCommand command) const
{
    if (!m_field)
        return;
    if (command == MenuCommand::deleteSelection)
        QMetaObject::invokeMethod(m_field, "remove", Q_ARG(int, m_field->property("selectionStart").toInt()),
                                  Q_ARG(int, m_field->property("selectionEnd").toInt()));
    else if (const char* const slot = slotOf(command))
        QMetaObject::invokeMethod(m_field, slot);
}

}

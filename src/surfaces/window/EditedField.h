// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "surfaces/window/AppMenus.h"

#include <QObject>
#include <QPointer>

namespace zumeta {

/// The field that was being edited when a menu was opened. The menu borrows its focus; the text, the selection and the
/// history stay with the field, which may go away meanwhile.
class EditedField {
public:
    EditedField() = default;
    /// Of what has the keyboard's focus; anything but a text is no field.
    explicit EditedField(QObject* focusObject);

    EditFacts facts() const;
    /// One of the commands of the edit menu; nothing without a field.
    void perform(MenuCommand command) const;

private:
    QPointer<QObject> m_field;
};

}

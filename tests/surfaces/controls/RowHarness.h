// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/NotificationCenter.h"
#include "support/VirtualTime.h"
#include "surfaces/controls/Rows.h"
#include "surfaces/controls/TextFieldFocusTracker.h"
#include "surfaces/controls/ValueRowModel.h"

#include <gmock/gmock.h>
#include <memory>

namespace zumeta::test {

/// What a row has told the field, as "text|caret", "all", "leave".
struct FieldTold {
    explicit FieldTold(ValueRowModel& row)
    {
        QObject::connect(&row, &ValueRowModel::textShown, &row, [this](const QString& text, int caret) {
            told.push_back(text + QLatin1Char('|') + QString::number(caret));
        });
        QObject::connect(&row, &ValueRowModel::allSelected, &row, [this] { told.push_back(QStringLiteral("all")); });
        QObject::connect(&row, &ValueRowModel::fieldLeft, &row, [this] { told.push_back(QStringLiteral("leave")); });
    }
    std::vector<QString> told;
};

/// A row of a number that lives in the test.
struct RowTest : testing::Test {
    ValueRowModel& makeRow(const ValueRowRules& rowRules, double number)
    {
        rules = rowRules;
        value = number;
        ValueRowSource source;
        source.label = QStringLiteral("Zoom");
        source.rules = [this] { return rules; };
        source.value = [this] { return value; };
        source.setValue = [this](double set) {
            value = set;
            log.push_back(QStringLiteral("set %1").arg(set));
        };
        source.onInteraction = [this] { log.push_back(QStringLiteral("began")); };
        source.onEditingEnded = [this] { log.push_back(QStringLiteral("ended")); };
        row = std::make_unique<ValueRowModel>(std::move(source), ValueRowSurroundings{center, focus, time});
        field = std::make_unique<FieldTold>(*row);
        return *row;
    }
    void focusByMouse() { row->focusChanged(true, Qt::MouseFocusReason); }
    void leaveByMouse() { row->focusChanged(false, Qt::MouseFocusReason); }
    /// As a field does it: the text with the caret at its end.
    void type(const char16_t* text)
    {
        row->typed(QString::fromUtf16(text), int(QString::fromUtf16(text).size()), false);
    }

    VirtualTime time;
    NotificationCenter center;
    TextFieldFocusTracker focus;
    ValueRowRules rules;
    double value = 0;
    std::vector<QString> log; ///< of the callbacks
    std::unique_ptr<ValueRowModel> row;
    std::unique_ptr<FieldTold> field;
};

}

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "surfaces/controls/ValueRowModel.h"

#include <QList>
#include <QQmlListProperty>

class QJSEngine;
class QQmlEngine;

namespace zumeta {
class CompositorViewModel;

/// The rows by which the composite is adjusted in Step 3 and its range is set in Step 4. Each list is a model for a
/// Repeater.
class AdjustmentRows final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(QQmlListProperty<zumeta::ValueRowModel> basic READ basicRows CONSTANT FINAL)
    Q_PROPERTY(QQmlListProperty<zumeta::ValueRowModel> advanced READ advancedRows CONSTANT FINAL)
    Q_PROPERTY(QQmlListProperty<zumeta::ValueRowModel> trim READ trimRows CONSTANT FINAL)
public:
    AdjustmentRows(CompositorViewModel& session, const ValueRowSurroundings& surroundings, QObject* parent = nullptr);
    /// The engine's own; see SurfaceContext.
    static AdjustmentRows* create(QQmlEngine* engine, QJSEngine*);

    const QList<ValueRowModel*>& basic() const { return m_basic; }
    const QList<ValueRowModel*>& advanced() const { return m_advanced; }
    const QList<ValueRowModel*>& trim() const { return m_trim; }

private:
    using Getter = double (CompositorViewModel::*)() const;
    using Setter = void (CompositorViewModel::*)(double);
    struct Entry;

    QList<ValueRowModel*> rowsOf(const std::vector<Entry>& entries, const ValueRowSurroundings& surroundings);
    ValueRowSource sourceOf(const Entry& entry);
    void refresh();

    QQmlListProperty<ValueRowModel> basicRows() { return {this, &m_basic}; }
    QQmlListProperty<ValueRowModel> advancedRows() { return {this, &m_advanced}; }
    QQmlListProperty<ValueRowModel> trimRows() { return {this, &m_trim}; }

    CompositorViewModel& m_session;
    QList<ValueRowModel*> m_basic;
    QList<ValueRowModel*> m_advanced;
    QList<ValueRowModel*> m_trim;
};

}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/guides/ShortcutHelpModel.h"

#include "surfaces/keys/ShortcutHelp.h"

namespace zumeta {

QStringList splitKeys(const QString& keys)
{
    QStringList parts;
    for (const QString& part : keys.split(QLatin1Char(' '))) {
        if (part.size() == 1)
            parts.append(part);
        else
            parts.append(part.split(QLatin1Char('+')));
    }
    return parts;
}

ShortcutHelpModel::ShortcutHelpModel(QObject* parent)
    : QAbstractListModel(parent)
{}

void ShortcutHelpModel::setStep(int step)
{
    if (m_step == step)
        return;
    beginResetModel();
    m_step = step;
    m_rows.clear();
    for (const ShortcutHelpSection& section : step == 3 ? step3ShortcutHelp() : step4ShortcutHelp()) {
        m_rows.push_back({.isTitle = true, .textKey = section.titleKey, .keys = {}});
        for (const ShortcutHelpRow& row : section.rows)
            m_rows.push_back({.isTitle = false, .textKey = row.descriptionKey, .keys = splitKeys(row.keys)});
    }
    endResetModel();
    Q_EMIT stepChanged();
}

int ShortcutHelpModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

QVariant ShortcutHelpModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const Row& row = m_rows[size_t(index.row())];
    switch (role) {
    case IsTitle:
        return row.isTitle;
    case TextKey:
        return row.textKey;
    case Keys:
        return row.keys;
    default:
        return {};
    }
}

QHash<int, QByteArray> ShortcutHelpModel::roleNames() const
{
    return {{IsTitle, "isTitle"}, {TextKey, "textKey"}, {Keys, "keys"}};
}

}

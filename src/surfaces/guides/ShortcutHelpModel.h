// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QAbstractListModel>
#include <qqmlregistration.h>

namespace zumeta {

/// The shortcuts of Step 3 or Step 4 as QML lists them, one row after the other: a section's title, then its shortcuts.
class ShortcutHelpModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(int step READ step WRITE setStep NOTIFY stepChanged FINAL)
public:
    enum Role {
        IsTitle = Qt::UserRole,
        TextKey, ///< of the translations: the title, or what the shortcut does
        Keys     ///< what stands on the keys, with "/" and "+" between them; empty of a title
    };

    explicit ShortcutHelpModel(QObject* parent = nullptr);
    int step() const { return m_step; }
    void setStep(int step);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void stepChanged();

private:
    struct Row {
        bool isTitle = false;
        QString textKey;
        QStringList keys;
    };

    int m_step = 0;
    std::vector<Row> m_rows;
};

/// "Shift + ← / →" is "Shift", "+", "←", "/", "→"; "Ctrl+Z", which is pressed together, is "Ctrl", "Z".
QStringList splitKeys(const QString& keys);

}

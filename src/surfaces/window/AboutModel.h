// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "surfaces/window/LicenceBlocks.h"

#include <QAbstractListModel>
#include <qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

namespace zumeta {
struct BundleInfo;

/// The version with the number and the day of the build, as far as the build knows them.
QString versionText(const BundleInfo& bundle);

/// What the program says about itself. The rows are the terms that come with it, those of what it uses first, in the
/// words in which they are passed on: no translation of a licence counts.
class AboutModel final : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(QString version READ version CONSTANT FINAL)
public:
    enum Role { TitleRole = Qt::UserRole, WordsRole };

    /// No argument may be left out: QML would make one of its own where it could.
    explicit AboutModel(QObject* parent);
    static AboutModel* create(QQmlEngine* engine, QJSEngine*);

    QString version() const;
    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

private:
    std::vector<LicenceBlock> m_blocks;
};

}

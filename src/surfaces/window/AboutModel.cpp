// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/window/AboutModel.h"

#include "platform/BundleInfo.h"

#include <QFile>
#include <QQmlEngine>
#include <memory>

namespace zumeta {

namespace {

/// One of the files of the repository that are compiled in.
QString fileText(const char* name)
{
    QFile file(QStringLiteral(":/licences/") + QLatin1String(name));
    const bool isThere = file.open(QIODevice::ReadOnly);
    Q_ASSERT(isThere);
    return isThere ? QString::fromUtf8(file.readAll()) : QString();
}

}

QString versionText(const BundleInfo& bundle)
{
    QString text = bundle.shortVersion.value_or(QString());
    if (bundle.buildNumber)
        text += QStringLiteral(" (%1)").arg(*bundle.buildNumber);
    const QString date = bundle.settings.value(QStringLiteral("ZumetaBuildDate"));
    if (!date.isEmpty())
        text += QStringLiteral(" · ") + date;
    return text;
}

AboutModel::AboutModel(QObject* parent)
    : QAbstractListModel(parent)
    , m_blocks(blocksOfMarkdown(fileText("THIRD-PARTY.md")))
{
    const std::vector<LicenceBlock> own = blocksOfPlainText(fileText("LICENSE"));
    m_blocks.insert(m_blocks.end(), own.begin(), own.end());
}

AboutModel* AboutModel::create(QQmlEngine*, QJSEngine*)
{
    return std::make_unique<AboutModel>(nullptr).release(); // the engine takes it over
}

QString AboutModel::version() const
{
    return versionText(BundleInfo::main());
}

int AboutModel::rowCount(const QModelIndex&) const
{
    return int(m_blocks.size());
}

QVariant AboutModel::data(const QModelIndex& index, int role) const
{
    const LicenceBlock& block = m_blocks[size_t(index.row())];
    switch (role) {
    case TitleRole:
        return block.title;
    case WordsRole:
        return block.words;
    default:
        return {};
    }
}

QHash<int, QByteArray> AboutModel::roleNames() const
{
    return {{TitleRole, "title"}, {WordsRole, "words"}};
}

}

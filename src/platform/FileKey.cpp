// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/FileKey.h"

#include "platform/FileDescriptor.h"

#include <QCryptographicHash>
#include <QtEndian>
#include <array>

namespace zumeta {

QByteArray fileKey(const FileUrl& url)
{
    constexpr qsizetype kHeadBytes = 1'048'576;
    const FileDescriptor file = openForReading(url);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(readUpTo(file, kHeadBytes));
    std::array<char, sizeof(qint64)> length = {};
    qToLittleEndian<qint64>(fileLength(file), length.data());
    hash.addData(QByteArrayView(length.data(), qsizetype(length.size())));
    return hash.result().toHex();
}

}

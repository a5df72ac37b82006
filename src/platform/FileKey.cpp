// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/FileKey.h"

#include "platform/FileDescriptor.h"

#include <QCryptographicHash>
#include <QtEndian>
#include <algorithm>
#include <array>

namespace zumeta {

namespace {

constexpr qsizetype kHeadBytes = 1'048'576;

QByteArray keyOf(const QByteArray& head, int64_t length)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(head);
    std::array<char, sizeof(qint64)> bytes = {};
    qToLittleEndian<qint64>(length, bytes.data());
    hash.addData(QByteArrayView(bytes.data(), qsizetype(bytes.size())));
    return hash.result().toHex();
}

}

QByteArray fileKey(const FileUrl& url)
{
    const FileDescriptor file = openForReading(url);
    const QByteArray head = readUpTo(file, kHeadBytes);
    return keyOf(head, fileLength(file));
}

QByteArray fileKeyOfLength(const FileUrl& url, int64_t length)
{
    const qsizetype headBytes = qsizetype(std::clamp<int64_t>(length, 0, kHeadBytes));
    return keyOf(readUpTo(openForReading(url), headBytes), length);
}

}

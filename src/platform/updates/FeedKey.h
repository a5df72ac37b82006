// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QByteArray>
#include <QString>
#include <optional>

namespace zumeta {

/// The public half of the key with which feeds are signed: Ed25519.
class FeedKey {
public:
    /// Its 32 bytes in base64. Nothing when it is not that.
    static std::optional<FeedKey> fromBase64(const QString& text);

    /// Whether the holder of the other half has signed exactly these bytes. The signature is the content of its file:
    /// 64 bytes in base64, with or without a line's end.
    bool hasSigned(const QByteArray& bytes, const QByteArray& signatureFile) const;

private:
    explicit FeedKey(QByteArray bytes)
        : m_bytes(std::move(bytes))
    {}

    QByteArray m_bytes;
};

}

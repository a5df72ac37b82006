// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QByteArray>
#include <QString>

namespace zumeta::test {

/// Both halves of a key, made of a seed of 32 bytes.
class SigningKey {
public:
    explicit SigningKey(QByteArray seed)
        : m_seed(std::move(seed))
    {}
    /// One key for each letter.
    explicit SigningKey(char letter)
        : SigningKey(QByteArray(32, letter))
    {}
    /// In base64, as a build is given it.
    QString publicKey() const;
    /// The content of a signature's file.
    QByteArray signatureOf(const QByteArray& bytes) const;

private:
    QByteArray m_seed;
};

/// A feed as it should be, with this version.
QByteArray feedOf(const char* version);

}

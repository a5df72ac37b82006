// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/updates/SigningKey.h"

#include <memory>
#include <openssl/evp.h>
#include <stdexcept>

namespace zumeta::test {

namespace {

unsigned char* bytesOf(QByteArray& array)
{
    return reinterpret_cast<unsigned char*>(array.data());
}

std::shared_ptr<EVP_PKEY> keyOf(QByteArray seed)
{
    return {EVP_PKEY_new_raw_private_key(EVP_PKEY_ED25519, nullptr, bytesOf(seed), size_t(seed.size())), EVP_PKEY_free};
}

void require(int result)
{
    if (result != 1)
        throw std::runtime_error("OpenSSL cannot sign");
}

}

QString SigningKey::publicKey() const
{
    QByteArray bytes(32, 0);
    size_t length = size_t(bytes.size());
    require(EVP_PKEY_get_raw_public_key(keyOf(m_seed).get(), bytesOf(bytes), &length));
    return QString::fromLatin1(bytes.toBase64());
}

QByteArray SigningKey::signatureOf(const QByteArray& bytes) const
{
    const std::shared_ptr<EVP_PKEY> key = keyOf(m_seed);
    const std::shared_ptr<EVP_MD_CTX> digest(EVP_MD_CTX_new(), EVP_MD_CTX_free);
    require(EVP_DigestSignInit(digest.get(), nullptr, nullptr, nullptr, key.get()));
    QByteArray message = bytes;
    QByteArray signature(64, 0);
    size_t length = size_t(signature.size());
    require(EVP_DigestSign(digest.get(), bytesOf(signature), &length, bytesOf(message), size_t(message.size())));
    return signature.toBase64() + '\n';
}

QByteArray feedOf(const char* version)
{
    return QByteArrayLiteral(
               R"({"format": "zumeta-updates-1", "page": "https://zumeta.example/download", "version": ")") +
           version + "\"}\n";
}

}

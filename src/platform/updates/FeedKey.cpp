// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/updates/FeedKey.h"

#include <memory>
#include <openssl/evp.h>

namespace zumeta {

namespace {

constexpr int kKeyLength = 32;
constexpr int kSignatureLength = 64;

template <auto Free> struct FreesWith {
    template <class T> void operator()(T* handle) const noexcept { Free(handle); }
};
using Key = std::unique_ptr<EVP_PKEY, FreesWith<EVP_PKEY_free>>;
using Digest = std::unique_ptr<EVP_MD_CTX, FreesWith<EVP_MD_CTX_free>>;

/// Nothing unless it is base64 of this many bytes and nothing besides.
std::optional<QByteArray> decoded(const QByteArray& base64, int length)
{
    const auto result = QByteArray::fromBase64Encoding(base64, QByteArray::AbortOnBase64DecodingErrors);
    if (!result || result.decoded.size() != length)
        return std::nullopt;
    return result.decoded;
}

const unsigned char* bytesOf(const QByteArray& array)
{
    return reinterpret_cast<const unsigned char*>(array.constData());
}

}

std::optional<FeedKey> FeedKey::fromBase64(const QString& text)
{
    std::optional<QByteArray> bytes = decoded(text.toLatin1().trimmed(), kKeyLength);
    return bytes ? std::optional(FeedKey(std::move(*bytes))) : std::nullopt;
}

bool FeedKey::hasSigned(const QByteArray& bytes, const QByteArray& signatureFile) const
{
    const std::optional<QByteArray> signature = decoded(signatureFile.trimmed(), kSignatureLength);
    if (!signature)
        return false;
    const Key key(EVP_PKEY_new_raw_public_key(EVP_PKEY_ED25519, nullptr, bytesOf(m_bytes), size_t(m_bytes.size())));
    const Digest digest(EVP_MD_CTX_new());
    return key && digest && EVP_DigestVerifyInit(digest.get(), nullptr, nullptr, nullptr, key.get()) == 1 &&
           EVP_DigestVerify(digest.get(), bytesOf(*signature), size_t(signature->size()), bytesOf(bytes),
                            size_t(bytes.size())) == 1;
}

}

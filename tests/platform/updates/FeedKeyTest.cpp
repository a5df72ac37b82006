// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/updates/FeedKey.h"
#include "platform/updates/SigningKey.h"

#include <gtest/gtest.h>

namespace zumeta::test {
namespace {

/// The first two examples of RFC 8032.
struct Example {
    const char* seed;
    const char* publicKey;
    const char* message;
    const char* signature;
};
constexpr Example kExamples[] = {
    {"9d61b19deffd5a60ba844af492ec2cc44449c5697b326919703bac031cae7f60",
     "d75a980182b10ab7d54bfed3c964073a0ee172f3daa62325af021a68f707511a", "",
     "e5564300c360ac729086e2cc806e828a84877f1eb8e5d974d873e065224901555fb8821590a33bacc61e39701cf9b46bd25bf5f0595bbe24"
     "655141438e7a100b"},
    {"4ccd089b28ff96da9db6c346ec114e0f5b8a319f35aba624da8cf6ed4fb8a6fb",
     "3d4017c3e843895a92b70aa74d1b7ebc9c982ccf2ec4968cc0cd55f12af4660c", "72",
     "92a009a9f0d4cab8720e820b5f642540a2b27b5416503f8fb3762223ebdb69da085ac1e43e15996e458f3613d0f11d8c387b2eaeb4302aee"
     "b00d291612bb0c00"}};

FeedKey keyOf(const SigningKey& key)
{
    return *FeedKey::fromBase64(key.publicKey());
}

TEST(FeedKey, VerifiesThePublishedExamples)
{
    for (const Example& example : kExamples) {
        const QByteArray publicKey = QByteArray::fromHex(example.publicKey).toBase64();
        const QByteArray message = QByteArray::fromHex(example.message);
        const QByteArray signature = QByteArray::fromHex(example.signature).toBase64();
        const auto key = FeedKey::fromBase64(QString::fromLatin1(publicKey));
        ASSERT_TRUE(key);
        EXPECT_TRUE(key->hasSigned(message, signature));
        EXPECT_FALSE(key->hasSigned(message + ' ', signature));
        // And so the tests' own key is what it should be.
        const SigningKey signing(QByteArray::fromHex(example.seed));
        EXPECT_EQ(signing.publicKey().toLatin1(), publicKey);
        EXPECT_EQ(signing.signatureOf(message), signature + '\n');
    }
}

TEST(FeedKey, VerifiesWhatTheOpensslProgramHasSigned)
{
    // By the three commands in docs/update-feed.md.
    const auto key = FeedKey::fromBase64(QStringLiteral("UmK511YEDcMAkf7tAr3lsHpwv0C0R3pkJ47xHC2IMug=\n"));
    ASSERT_TRUE(key);
    EXPECT_TRUE(key->hasSigned(
        "{\"format\": \"zumeta-updates-1\", \"version\": \"1.3.0\", \"page\": \"https://zumeta.example/download\"}\n",
        "49itjQ0/SpufXWyRWcr3uXgsyIPTlcZ3ecbvj10EyvoZxyGUnepWp1YHJWjEtOevYw1j7C/sH+F1fxhNgbtCCA=="));
}

TEST(FeedKey, HasSignedExactlyTheseBytes)
{
    const SigningKey signing('a');
    const QByteArray bytes = feedOf("1.0");
    const QByteArray signature = signing.signatureOf(bytes);
    EXPECT_TRUE(keyOf(signing).hasSigned(bytes, signature));
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        QByteArray other = bytes;
        other[i] = char(other[i] ^ 1);
        EXPECT_FALSE(keyOf(signing).hasSigned(other, signature)) << i;
    }
    EXPECT_FALSE(keyOf(signing).hasSigned(bytes + '\n', signature));
    EXPECT_FALSE(keyOf(signing).hasSigned(bytes.chopped(1), signature));
    EXPECT_FALSE(keyOf(signing).hasSigned({}, signature));
}

TEST(FeedKey, NoBitOfASignatureMayDiffer)
{
    const SigningKey signing('a');
    const QByteArray bytes = feedOf("1.0");
    const QByteArray signature = QByteArray::fromBase64(signing.signatureOf(bytes));
    for (qsizetype i = 0; i < signature.size(); ++i) {
        QByteArray other = signature;
        other[i] = char(other[i] ^ 0x40);
        EXPECT_FALSE(keyOf(signing).hasSigned(bytes, other.toBase64())) << i;
    }
}

TEST(FeedKey, AnotherKeysSignatureIsNone)
{
    const QByteArray bytes = feedOf("1.0");
    EXPECT_FALSE(keyOf(SigningKey('a')).hasSigned(bytes, SigningKey('b').signatureOf(bytes)));
}

TEST(FeedKey, AnythingElseIsNoSignature)
{
    const SigningKey signing('a');
    const QByteArray bytes = feedOf("1.0");
    const QByteArray signature = signing.signatureOf(bytes).trimmed();
    EXPECT_TRUE(keyOf(signing).hasSigned(bytes, signature));
    EXPECT_TRUE(keyOf(signing).hasSigned(bytes, signature + "\r\n"));
    const QByteArray plain = QByteArray::fromBase64(signature);
    for (const QByteArray& other :
         {QByteArray(), QByteArray("\n"), plain, plain.toHex(), signature.chopped(1), signature + signature,
          signature + "\nmore", QByteArray(signature).insert(10, '!'), QByteArray(88, '='), QByteArray(100'000, 'A')})
        EXPECT_FALSE(keyOf(signing).hasSigned(bytes, other)) << other.left(100).constData();
}

TEST(FeedKey, IsThirtyTwoBytesInBase64)
{
    const QString good = SigningKey('a').publicKey();
    EXPECT_TRUE(FeedKey::fromBase64(good));
    EXPECT_TRUE(FeedKey::fromBase64(good + QLatin1Char('\n')));
    for (const QString& text :
         {QString(), QStringLiteral("AAAA"), good.chopped(2), good.left(40), good + good,
          QStringLiteral("!") + good.mid(1), QString::fromUtf8("ключ"), QString(44, QLatin1Char('='))})
        EXPECT_FALSE(FeedKey::fromBase64(text)) << text.toStdString();
}

}
}

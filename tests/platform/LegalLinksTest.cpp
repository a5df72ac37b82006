// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/LegalLinks.h"
#include "platform/BundleInfo.h"

#include <gtest/gtest.h>

namespace zumeta {
namespace {

BundleInfo deployedWith(const QMap<QString, QString>& settings)
{
    return BundleInfo::fromValues({}, {}, settings);
}

TEST(LegalLinks, ABuildWithoutTheKeysStillHasItsPages)
{
    const LegalLinks links = LegalLinks::configuredIn(deployedWith({}));
    for (const QUrl& page : {links.terms, links.privacy, links.support}) {
        EXPECT_TRUE(page.isValid());
        EXPECT_EQ(page.scheme(), QStringLiteral("https"));
    }
    EXPECT_TRUE(links.terms.path().endsWith(QStringLiteral("/terms")));
    EXPECT_TRUE(links.privacy.path().endsWith(QStringLiteral("/privacy")));
    EXPECT_TRUE(links.support.path().endsWith(QStringLiteral("/support")));
}

TEST(LegalLinks, EachKeyReplacesItsOwnPage)
{
    const QString page = QStringLiteral("https://pages.example/here?x=1");
    const LegalLinks standard = LegalLinks::configuredIn(deployedWith({}));
    const LegalLinks terms = LegalLinks::configuredIn(deployedWith({{QStringLiteral("ZumetaTermsURL"), page}}));
    EXPECT_EQ(terms.terms, QUrl(page));
    EXPECT_EQ(terms.privacy, standard.privacy);
    EXPECT_EQ(LegalLinks::configuredIn(deployedWith({{QStringLiteral("ZumetaPrivacyURL"), page}})).privacy, QUrl(page));
    EXPECT_EQ(LegalLinks::configuredIn(deployedWith({{QStringLiteral("ZumetaSupportURL"), page}})).support, QUrl(page));
}

TEST(LegalLinks, AValueThatIsNoAddressGivesTheFallback)
{
    const QString key = QStringLiteral("ZumetaTermsURL");
    const QUrl fallback(QStringLiteral("https://fallback.example/"));
    for (const char* const value : {"", "terms.html", "http://a b", "https://[half"})
        EXPECT_EQ(configuredURL(deployedWith({{key, QString::fromLatin1(value)}}), key, fallback), fallback) << value;
}

}
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/updates/ReleaseVersion.h"

#include <gtest/gtest.h>

namespace zumeta {
namespace {

std::optional<ReleaseVersion> version(const char* text)
{
    return ReleaseVersion::parsed(QString::fromUtf8(text));
}

TEST(ReleaseVersion, EachOfTheseIsNewerThanTheOneBeforeIt)
{
    const char* const ascending[] = {
        "0.9",      "1.0-0",      "1.0-2",       "1.0-10",   "1.0-alpha", "1.0-alpha.1", "1.0-alpha.beta",
        "1.0-beta", "1.0-beta.2", "1.0-beta.11", "1.0-rc-1", "1.0",       "1.0.0.1",     "1.0.1",
        "1.1-beta", "1.2",        "1.9",         "1.10",     "2",         "2026.1",      "999999999.0.0"};
    for (size_t i = 1; i < std::size(ascending); ++i) {
        ASSERT_TRUE(version(ascending[i - 1]) && version(ascending[i])) << ascending[i - 1] << ", " << ascending[i];
        EXPECT_LT(*version(ascending[i - 1]), *version(ascending[i])) << ascending[i - 1] << ", " << ascending[i];
        EXPECT_GT(*version(ascending[i]), *version(ascending[i - 1])) << ascending[i - 1] << ", " << ascending[i];
    }
}

TEST(ReleaseVersion, MissingNumbersAreNoughtAndNoughtsInFrontAreNothing)
{
    EXPECT_EQ(*version("1"), *version("1.0.0.0"));
    EXPECT_EQ(*version("1.2"), *version("1.2.0"));
    EXPECT_EQ(*version("1.02"), *version("1.2"));
    EXPECT_EQ(*version("1.2-beta.1"), *version("1.2.0-beta.01"));
}

TEST(ReleaseVersion, IsNothingElse)
{
    for (const char* const text :
         {"",     " ",    ".",   "1.",  ".1",    "1..2",       "1.2.3.4.5",    "1,2",          "v1.2",  "1.2 ",
          " 1.2", "1.2a", "+1",  "-1",  "1-",    "1-a.",       "1-.a",         "1-a..b",       "1-ä",   "1-a b",
          "1+5",  "0x1",  "1e3", "١.٢", "1.2\n", "1234567890", "1.9999999999", "1-1234567890", "latest"})
        EXPECT_FALSE(version(text)) << '"' << text << '"';
    EXPECT_TRUE(ReleaseVersion::parsed(QStringLiteral("1-") + QString(62, QLatin1Char('a'))));
    EXPECT_FALSE(ReleaseVersion::parsed(QStringLiteral("1-") + QString(63, QLatin1Char('a'))));
    EXPECT_FALSE(ReleaseVersion::parsed(QStringLiteral("1") + QChar(0) + QStringLiteral(".2")));
}

}
}

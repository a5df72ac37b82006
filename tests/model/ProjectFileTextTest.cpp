// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/ProjectFileText.h"

#include <gtest/gtest.h>

namespace zumeta {
namespace {

using namespace std::chrono;

}

TEST(ProjectFileDate, ReadsAndWritesWholeSecondsOfUtc)
{
    const sys_seconds date = sys_days(2026y / July / 14) + 9h + 30min + 5s;
    EXPECT_EQ(dateFromText("2026-07-14T09:30:05Z"), date);
    EXPECT_EQ(textFromDate(date), "2026-07-14T09:30:05Z");
    EXPECT_EQ(textFromDate(sys_seconds()), "1970-01-01T00:00:00Z");
    EXPECT_EQ(textFromDate(sys_seconds(-1s)), "1969-12-31T23:59:59Z");
}

TEST(ProjectFileDate, KnowsTheCalendar)
{
    EXPECT_TRUE(dateFromText("2024-02-29T00:00:00Z").has_value());
    EXPECT_TRUE(dateFromText("2000-02-29T23:59:59Z").has_value());
    for (const char* text :
         {"2023-02-29T00:00:00Z", "1900-02-29T00:00:00Z", "2026-04-31T00:00:00Z", "2026-13-01T00:00:00Z",
          "2026-00-10T00:00:00Z", "2026-01-00T00:00:00Z", "2026-01-32T00:00:00Z", "2026-01-01T24:00:00Z",
          "2026-01-01T00:60:00Z", "2026-01-01T00:00:60Z"})
        EXPECT_FALSE(dateFromText(text).has_value()) << text;
}

TEST(ProjectFileDate, RefusesEveryOtherForm)
{
    for (const char* text : {"",
                             "2026-07-14",
                             "2026-07-14T09:30:00",
                             "2026-07-14T09:30:00.000Z",
                             "2026-07-14T09:30:00.5Z",
                             "2026-07-14T09:30:00+00:00",
                             "2026-07-14T09:30:00+02:00",
                             "2026-07-14T09:30Z",
                             "2026-07-14 09:30:00Z",
                             " 2026-07-14T09:30:00Z",
                             "2026-07-14T09:30:00Z ",
                             "2026-07-14t09:30:00z",
                             "20260714T093000Z",
                             "2026-7-14T09:30:00Z",
                             "26-07-14T09:30:00Z",
                             "+026-07-14T09:30:00Z",
                             "-026-07-14T09:30:00Z",
                             "12026-07-14T09:30:00Z",
                             "2026-07-14T-9:30:00Z",
                             "2026-07-14T09:30: 0Z",
                             "774091800"})
        EXPECT_FALSE(dateFromText(text).has_value()) << text;
}

TEST(ProjectFileDate, TheYearsWithFourDigitsAreTheRange)
{
    EXPECT_EQ(textFromDate(*dateFromText("0000-01-01T00:00:00Z")), "0000-01-01T00:00:00Z");
    EXPECT_EQ(textFromDate(*dateFromText("9999-12-31T23:59:59Z")), "9999-12-31T23:59:59Z");
    EXPECT_EQ(textFromDate(*dateFromText("9999-12-31T23:59:59Z") + 1s), std::nullopt);
    EXPECT_EQ(textFromDate(*dateFromText("0000-01-01T00:00:00Z") - 1s), std::nullopt);
    EXPECT_EQ(textFromDate(sys_seconds::max()), std::nullopt);
    EXPECT_EQ(textFromDate(sys_seconds::min()), std::nullopt);
}

TEST(ProjectFileBase64, ReadsTheStandardForm)
{
    EXPECT_EQ(bytesFromBase64(""), QByteArray());
    EXPECT_EQ(bytesFromBase64("YQ=="), QByteArray("a"));
    EXPECT_EQ(bytesFromBase64("YWI="), QByteArray("ab"));
    EXPECT_EQ(bytesFromBase64("YWJj"), QByteArray("abc"));
    EXPECT_EQ(bytesFromBase64("+/+/"), QByteArray("\xfb\xff\xbf"));
}

TEST(ProjectFileBase64, RefusesWhatIsNearlyBase64)
{
    for (const char* text : {"Y", "YQ", "YQ=", "YWI", "YQ===", "=", "====", "Y===", "YQ==YQ==", "-_-_", "YW J",
                             "YWJj\n", " YWJj", "YW=j", "YR==", "YWJ=", "YW\xc3\xbc"})
        EXPECT_FALSE(bytesFromBase64(text).has_value()) << text;
}

TEST(ProjectFileUuid, ReadsEitherCaseAndWritesUpperCase)
{
    const auto id = uuidFromText("1b4e28ba-2fa1-11d2-883f-0016d3cca427");
    ASSERT_TRUE(id.has_value());
    EXPECT_EQ(uuidFromText("1B4E28BA-2FA1-11D2-883F-0016D3CCA427"), id);
    EXPECT_EQ(textFromUuid(*id), "1B4E28BA-2FA1-11D2-883F-0016D3CCA427");
    EXPECT_EQ(textFromUuid(QUuid()), "00000000-0000-0000-0000-000000000000");
    EXPECT_EQ(uuidFromText("00000000-0000-0000-0000-000000000000"), QUuid());
}

TEST(ProjectFileUuid, RefusesEveryOtherForm)
{
    for (const char* text : {"", "{1b4e28ba-2fa1-11d2-883f-0016d3cca427}", "1b4e28ba2fa111d2883f0016d3cca427",
                             "1b4e28ba-2fa1-11d2-883f-0016d3cca42", "1b4e28ba-2fa1-11d2-883f-0016d3cca4277",
                             "1b4e28bg-2fa1-11d2-883f-0016d3cca427", "1b4e28ba-2fa1-11d2-883f-0016d3cca427 ",
                             "1b4e28b-a2fa1-11d2-883f-0016d3cca427", "urn:uuid:1b4e28ba-2fa1-11d2-883f-0016d3cca427"})
        EXPECT_FALSE(uuidFromText(text).has_value()) << text;
}

}

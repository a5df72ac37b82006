// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/Json.h"
#include "model/ProjectFileError.h"

#include <QUtf8StringView>
#include <bit>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace zumeta {
namespace {

std::string written(double value)
{
    return JsonNumber::of(value).text;
}

std::string writtenString(const std::string& text)
{
    return jsonText({text}).toStdString();
}

std::string parsedString(const char* json)
{
    return std::get<std::string>(parseJson(json).value);
}

std::string failureOf(const QByteArray& json)
{
    try {
        parseJson(json);
    } catch (const ProjectFileError& error) {
        EXPECT_EQ(error.kind(), ProjectFileError::Kind::notJson);
        return error.what();
    }
    return {};
}

}

TEST(JsonNumber, IntegralDoublesHaveNoPoint)
{
    EXPECT_EQ(written(0), "0");
    EXPECT_EQ(written(16), "16");
    EXPECT_EQ(written(-500), "-500");
    EXPECT_EQ(written(100000), "100000");
    EXPECT_EQ(written(123456789012345), "123456789012345");
    EXPECT_EQ(written(0x1p53), "9007199254740992");
    EXPECT_EQ(written(-0.0), "-0");
}

TEST(JsonNumber, FractionsHaveTheShortestDigitsThatReadBack)
{
    EXPECT_EQ(written(0.1), "0.1");
    EXPECT_EQ(written(0.1 + 0.2), "0.30000000000000004");
    EXPECT_EQ(written(0.8), "0.8");
    EXPECT_EQ(written(1.0 / 3), "0.3333333333333333");
    EXPECT_EQ(written(29.97002997002997), "29.97002997002997");
    EXPECT_EQ(written(0.0001), "0.0001");
}

TEST(JsonNumber, VeryLargeAndVerySmallOnesHaveAPowerOfTen)
{
    EXPECT_EQ(written(1e300), "1e+300");
    EXPECT_EQ(written(0.00001), "1e-05");
    EXPECT_EQ(written(std::numeric_limits<double>::max()), "1.7976931348623157e+308");
    EXPECT_EQ(written(std::numeric_limits<double>::denorm_min()), "5e-324");
}

TEST(JsonNumber, EveryDoubleReadsBackAsItself)
{
    std::mt19937_64 random(7);
    for (int i = 0; i < 20'000; ++i) {
        const auto value = std::bit_cast<double>(uint64_t(random()));
        if (!std::isfinite(value))
            continue;
        const auto back = JsonNumber::of(value).toDouble();
        ASSERT_TRUE(back.has_value());
        ASSERT_EQ(std::bit_cast<uint64_t>(*back), std::bit_cast<uint64_t>(value)) << written(value);
    }
}

TEST(JsonNumber, WhatIsTooSmallIsZeroAndWhatIsTooLargeIsNothing)
{
    EXPECT_EQ(JsonNumber{"1e-400"}.toDouble(), 0.0);
    EXPECT_EQ(JsonNumber{"1e400"}.toDouble(), std::nullopt);
    EXPECT_EQ(JsonNumber{"-1e400"}.toDouble(), std::nullopt);
    EXPECT_EQ(JsonNumber{"1.7976931348623157e308"}.toDouble(), std::numeric_limits<double>::max());
}

TEST(JsonNumber, AnIntegerIsExactInEveryWayOfWritingIt)
{
    const auto integer = [](const char* text) { return std::get<int64_t>(JsonNumber{text}.toInteger()); };
    EXPECT_EQ(integer("0"), 0);
    EXPECT_EQ(integer("-0"), 0);
    EXPECT_EQ(integer("0.000e5"), 0);
    EXPECT_EQ(integer("1.0"), 1);
    EXPECT_EQ(integer("1e3"), 1000);
    EXPECT_EQ(integer("1.25E+2"), 125);
    EXPECT_EQ(integer("1200e-2"), 12);
    EXPECT_EQ(integer("-7.0"), -7);
    EXPECT_EQ(integer("9223372036854775807"), std::numeric_limits<int64_t>::max());
    EXPECT_EQ(integer("9223372036854775807.000"), std::numeric_limits<int64_t>::max());
    EXPECT_EQ(integer("-9223372036854775808"), std::numeric_limits<int64_t>::min());
    EXPECT_EQ(integer("9007199254740993"), INT64_C(9007199254740993));
    EXPECT_EQ(integer("9007199254740993.0"), INT64_C(9007199254740993));
    EXPECT_EQ(integer("0e99999999999999999999"), 0);
}

TEST(JsonNumber, FractionsAndNumbersPastInt64AreNoIntegers)
{
    using Fault = JsonNumber::IntegerFault;
    const auto fault = [](const char* text) { return std::get<Fault>(JsonNumber{text}.toInteger()); };
    EXPECT_EQ(fault("1.5"), Fault::notInteger);
    EXPECT_EQ(fault("1e-1"), Fault::notInteger);
    EXPECT_EQ(fault("1e-99999999999999999999"), Fault::notInteger);
    EXPECT_EQ(fault("9223372036854775808"), Fault::outOfRange);
    EXPECT_EQ(fault("-9223372036854775809"), Fault::outOfRange);
    EXPECT_EQ(fault("1e19"), Fault::outOfRange);
    EXPECT_EQ(fault("1e99999999999999999999"), Fault::outOfRange);
}

TEST(JsonText, EscapesQuotesBackslashesSlashesAndControlCharactersAndNothingElse)
{
    EXPECT_EQ(writtenString("a\"b\\c/d"), R"("a\"b\\c\/d")");
    EXPECT_EQ(writtenString(std::string("\0\b\t\n\f\r\x1b\x1f", 8)),
              R"("\u0000\u0008\u0009\u000a\u000c\u000d\u001b\u001f")");
    EXPECT_EQ(writtenString("\x7f\xc3\xbc\xe2\x80\xa8\xf0\x9f\x8f\x8a"),
              "\"\x7f\xc3\xbc\xe2\x80\xa8\xf0\x9f\x8f\x8a\"");
}

TEST(JsonText, SortsKeysAndIndentsByTwo)
{
    const JsonValue value = parseJson(R"({"b":[1,{"z":true,"a":null}],"a":"x","B":false})");
    EXPECT_EQ(jsonText(value), R"({
  "B" : false,
  "a" : "x",
  "b" : [
    1,
    {
      "a" : null,
      "z" : true
    }
  ]
})");
}

TEST(JsonText, AnEmptyListIsTwoBracketsAroundABlankLine)
{
    EXPECT_EQ(jsonText(parseJson("[]")), "[\n\n]");
    EXPECT_EQ(jsonText(parseJson(R"({"a":[],"b":{}})")), "{\n  \"a\" : [\n\n  ],\n  \"b\" : {\n\n  }\n}");
}

TEST(JsonParser, AcceptsAnyOrderSpacingAndEscape)
{
    EXPECT_EQ(parsedString(" \t\r\n\"x\"\n "), "x");
    EXPECT_EQ(parsedString(R"("\"\\\/\b\f\n\r\t")"), "\"\\/\b\f\n\r\t");
    EXPECT_EQ(parsedString(R"("\u00fc\u20AC\ud83c\uDFCA\u0041")"), "\xc3\xbc\xe2\x82\xac\xf0\x9f\x8f\x8a\x41");
    EXPECT_EQ(parsedString(R"("\u0000")"), std::string(1, '\0'));
    EXPECT_EQ(parsedString("\xef\xbb\xbf\"after a byte order mark\""), "after a byte order mark");
    EXPECT_TRUE(parseJson("null").isNull());
}

TEST(JsonParser, TheLastOfRepeatedKeysCounts)
{
    const JsonValue value = parseJson(R"({"a":1,"b":2,"a":3})");
    const JsonValue* member = findMember(std::get<JsonValue::Object>(value.value), "a");
    ASSERT_NE(member, nullptr);
    EXPECT_EQ(std::get<JsonNumber>(member->value).text, "3");
    EXPECT_EQ(findMember(std::get<JsonValue::Object>(value.value), "c"), nullptr);
}

TEST(JsonParser, RefusesWhatIsNotJson)
{
    for (const char* text : {"",
                             " ",
                             "x",
                             "tru",
                             "nul",
                             "NaN",
                             "Infinity",
                             "-",
                             "+1",
                             "01",
                             "-01",
                             "1.",
                             ".5",
                             "1e",
                             "1e+",
                             "0x10",
                             "1 2",
                             "[1,]",
                             "[,1]",
                             "[1",
                             "[1 2]",
                             "{",
                             "{}}",
                             "{\"a\"}",
                             "{\"a\":}",
                             "{\"a\":1,}",
                             "{a:1}",
                             "{'a':1}",
                             "\"a",
                             "\"a\\",
                             R"("\q")",
                             R"("\u12")",
                             R"("\u12g4")",
                             R"("\ud800")",
                             R"("\ud800x")",
                             R"("\ud800\u0041")",
                             R"("\udc00")",
                             "\"a\nb\"",
                             "\"\t\"",
                             "\"\xff\"",
                             "\"\xed\xa0\x80\"",
                             "\"\xc0\x80\"",
                             "\"\xe2\x82\"",
                             "// comment\n1",
                             "[1]]"})
        EXPECT_FALSE(failureOf(text).empty()) << text;
    EXPECT_FALSE(failureOf(QByteArray("1\0", 2)).empty());
}

TEST(JsonParser, NamesThePathTheLineAndTheReason)
{
    EXPECT_EQ(failureOf("{\n \"a\" : {\n  \"b\" : [ 1, 2, x ]\n } }"),
              "a.b[2]: not valid JSON in line 3: a value is expected");
    EXPECT_EQ(failureOf("{\"a\":1} x"), "not valid JSON in line 1: more text after the end");
    EXPECT_EQ(failureOf("{\"a\":"), "a: not valid JSON in line 1: it ends too early");
}

TEST(JsonParser, AKeyFromTheFileCannotBreakTheMessageIntoLines)
{
    const std::string failure = failureOf(R"({"a\n\u0001b)" + QByteArray("\xc3\xbc").repeated(100) + "\" : x}");
    EXPECT_TRUE(failure.starts_with("a??b\xc3\xbc")) << failure;
    EXPECT_LT(failure.size(), 150U);
    EXPECT_TRUE(QUtf8StringView(failure.data(), qsizetype(failure.size())).isValidUtf8());
}

TEST(JsonParser, DeepNestingIsRefusedAndNoDeeperThanTheStack)
{
    EXPECT_EQ(failureOf(QByteArray(150, '[') + QByteArray(150, ']')), "");
    EXPECT_NE(failureOf(QByteArray(1'000'000, '[')).find("nested too deeply"), std::string::npos);
    EXPECT_NE(failureOf(QByteArray("{\"a\":").repeated(100'000)).find("nested too deeply"), std::string::npos);
}

}

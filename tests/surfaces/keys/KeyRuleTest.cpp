// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/keys/KeyRule.h"

#include <gtest/gtest.h>
#include <map>
#include <set>

namespace zumeta {
namespace {

/// What has the focus: nothing, a control for text that takes no direct typing, or something that does.
enum class Focus { none, textLike, row, inputContext, textView };
constexpr Focus kAllFocuses[] = {Focus::none, Focus::textLike, Focus::row, Focus::inputContext, Focus::textView};
constexpr Focus kDirectFocuses[] = {Focus::row, Focus::inputContext, Focus::textView};

TextInputFacts factsOf(Focus focus)
{
    TextInputFacts facts;
    switch (focus) {
    case Focus::none:
        break;
    case Focus::textLike:
        facts.firstResponder = FirstResponder{.classNames = {QStringLiteral("CodeEditor")}};
        break;
    case Focus::row:
        facts.focusCount = 1;
        break;
    case Focus::inputContext:
        facts.hasInputContext = true;
        break;
    case Focus::textView:
        facts.firstResponder = FirstResponder{.classNames = {QStringLiteral("NSTextView")}};
        break;
    }
    return facts;
}

KeyEvent keyPress(int keyCode, KeyModifiers modifiers = {})
{
    return {KeyCode(keyCode), modifiers};
}

constexpr int kArrows[] = {123, 124, 125, 126};
constexpr int kLetters[] = {46, 34, 31, 49, 51, 117, 38, 40, 37};

// The whole rule once more, written out: what each key does without and with text input, by modifiers.
// The columns: none, Shift, Option, Option Shift, Command, Command Shift, Command Option, all three.
struct RuleRow {
    int keyCode;
    const char* plain;    ///< no text input
    const char* textLike; ///< text input, but no direct typing
    const char* direct;   ///< direct typing
};
constexpr RuleRow kRule[] = {
    {6, ". . . . undo redo undo redo", ". . . . undo redo undo redo", ". . . . undo redo undo redo"},
    {46, "mark mark mark mark . . . .", "mark mark mark mark . . . .", ". . . . . . . ."},
    {34, "in in in in . . . .", "in in in in . . . .", ". . . . . . . ."},
    {31, "out out out out . . . .", "out out out out . . . .", ". . . . . . . ."},
    {51, "del del del del . . . .", "del del del del . . . .", ". . . . . . . ."},
    {117, "del del del del . . . .", "del del del del . . . .", ". . . . . . . ."},
    {49, "play play play play . . . .", "play play play play . . . .", ". . . . . . . ."},
    {40, "stop stop stop stop . . . .", "stop stop stop stop . . . .", ". . . . . . . ."},
    {38, "slow slow slow slow . . . .", "slow slow slow slow . . . .", ". . . . . . . ."},
    {37, "fast fast fast fast . . . .", "fast fast fast fast . . . .", ". . . . . . . ."},
    {123, "-1 -10 . . . . . .", "less less! . . . . . .", "less less! . . . . . ."},
    {124, "+1 +10 . . . . . .", "more more! . . . . . .", "more more! . . . . . ."},
    {125, "next next . . . . . .", ". . . . . . . .", ". . . . . . . ."},
    {126, "previous previous . . . . . .", ". . . . . . . .", ". . . . . . . ."},
};

std::optional<KeyNotification> meaningOf(const QString& word)
{
    const auto post = [](const char* name, const QVariantMap& userInfo = {}) {
        return KeyNotification{QLatin1String("com.zumetaapp.") + QLatin1String(name), userInfo};
    };
    const auto with = [](const char* key, const QVariant& value) {
        return QVariantMap{{QString::fromLatin1(key), value}};
    };
    const auto adjust = [&](int direction, bool isLarge) {
        return post("adjustFocusedNumericField",
                    {{QStringLiteral("direction"), direction}, {QStringLiteral("isLargeStep"), isLarge}});
    };
    const std::map<QString, KeyNotification> meanings{
        {QStringLiteral("undo"), post("undoStepEdit")},
        {QStringLiteral("redo"), post("redoStepEdit")},
        {QStringLiteral("mark"), post("markSyncPoint")},
        {QStringLiteral("in"), post("setTrimPointToPlayhead", with("point", QStringLiteral("start")))},
        {QStringLiteral("out"), post("setTrimPointToPlayhead", with("point", QStringLiteral("end")))},
        {QStringLiteral("del"), post("deleteSelectedTrimMarker")},
        {QStringLiteral("play"), post("togglePlaybackShortcut")},
        {QStringLiteral("stop"), post("pausePlaybackShortcut")},
        {QStringLiteral("slow"), post("adjustPlaybackRateShortcut", with("faster", false))},
        {QStringLiteral("fast"), post("adjustPlaybackRateShortcut", with("faster", true))},
        {QStringLiteral("-1"), post("stepFrames", with("frames", -1))},
        {QStringLiteral("-10"), post("stepFrames", with("frames", -10))},
        {QStringLiteral("+1"), post("stepFrames", with("frames", 1))},
        {QStringLiteral("+10"), post("stepFrames", with("frames", 10))},
        {QStringLiteral("next"), post("navigateTrimMarker", with("direction", 1))},
        {QStringLiteral("previous"), post("navigateTrimMarker", with("direction", -1))},
        {QStringLiteral("less"), adjust(-1, false)},
        {QStringLiteral("less!"), adjust(-1, true)},
        {QStringLiteral("more"), adjust(1, false)},
        {QStringLiteral("more!"), adjust(1, true)},
    };
    return word == QLatin1String(".") ? std::nullopt : std::optional(meanings.at(word));
}

void expectSame(const std::optional<KeyNotification>& actual, const std::optional<KeyNotification>& expected,
                const std::string& where)
{
    ASSERT_EQ(actual.has_value(), expected.has_value()) << where;
    if (!actual)
        return;
    EXPECT_EQ(actual->name, expected->name) << where;
    EXPECT_EQ(actual->userInfo, expected->userInfo) << where;
    for (auto entry = expected->userInfo.begin(); entry != expected->userInfo.end(); ++entry)
        EXPECT_EQ(actual->userInfo.value(entry.key()).typeId(), entry.value().typeId()) << where;
}

void expectRow(int keyCode, Focus focus, const char* words)
{
    const QStringList columns = QString::fromLatin1(words).split(QLatin1Char(' '));
    ASSERT_EQ(columns.size(), 8) << keyCode;
    for (int column = 0; column < 8; ++column) {
        for (const bool control : {false, true}) {
            const KeyModifiers modifiers{.shift = (column & 1) != 0,
                                         .control = control,
                                         .option = (column & 2) != 0,
                                         .command = (column & 4) != 0};
            const std::string where = "key " + std::to_string(keyCode) + ", focus " + std::to_string(int(focus)) +
                                      ", column " + std::to_string(column) + (control ? ", Control" : "");
            expectSame(handleKeyEvent(keyPress(keyCode, modifiers), factsOf(focus)), meaningOf(columns[column]), where);
        }
    }
}

TEST(KeyRule, EveryKeyWithEveryModifierInEveryFocusIsAsWrittenOut)
{
    for (const RuleRow& row : kRule) {
        expectRow(row.keyCode, Focus::none, row.plain);
        expectRow(row.keyCode, Focus::textLike, row.textLike);
        for (const Focus focus : kDirectFocuses)
            expectRow(row.keyCode, focus, row.direct);
    }
}

TEST(KeyRule, AnyOtherKeyIsPassedOn)
{
    std::set<int> known;
    for (const RuleRow& row : kRule)
        known.insert(row.keyCode);
    for (int keyCode = -1; keyCode < 256; ++keyCode) {
        if (known.contains(keyCode))
            continue;
        for (const Focus focus : kAllFocuses)
            expectRow(keyCode, focus, ". . . . . . . .");
    }
}

TEST(KeyRule, ShiftMAndShiftIAndControlSpaceStillFire)
{
    EXPECT_EQ(handleKeyEvent(keyPress(46, {.shift = true}), {})->name, QStringLiteral("com.zumetaapp.markSyncPoint"));
    EXPECT_EQ(handleKeyEvent(keyPress(34, {.shift = true}), {})->userInfo.value(QStringLiteral("point")),
              QVariant(QStringLiteral("start")));
    EXPECT_EQ(handleKeyEvent(keyPress(49, {.control = true}), {})->name,
              QStringLiteral("com.zumetaapp.togglePlaybackShortcut"));
}

TEST(KeyRule, CommandOptionZIsUndoAndWithShiftRedo)
{
    EXPECT_EQ(handleKeyEvent(keyPress(6, {.option = true, .command = true}), {})->name,
              QStringLiteral("com.zumetaapp.undoStepEdit"));
    EXPECT_EQ(handleKeyEvent(keyPress(6, {.shift = true, .option = true, .command = true}), {})->name,
              QStringLiteral("com.zumetaapp.redoStepEdit"));
}

TEST(KeyRule, AFocusedRowGetsItsLettersAndIsAdjustedByArrowsWhereasCommandZUndoesAStepEdit)
{
    const TextInputFacts row{.focusCount = 1};
    for (const int letter : kLetters)
        EXPECT_FALSE(handleKeyEvent(keyPress(letter), row)) << letter;
    for (const int arrow : {123, 124})
        EXPECT_EQ(handleKeyEvent(keyPress(arrow), row)->name,
                  QStringLiteral("com.zumetaapp.adjustFocusedNumericField"));
    EXPECT_EQ(handleKeyEvent(keyPress(6, {.command = true}), row)->name, QStringLiteral("com.zumetaapp.undoStepEdit"));
}

TEST(KeyRule, ACompositionKeepsItsLetters)
{
    const TextInputFacts composing{.hasInputContext = true};
    for (const int letter : kLetters)
        EXPECT_FALSE(handleKeyEvent(keyPress(letter), composing)) << letter;
}

TEST(KeyRule, WithoutAnActiveWindowKeysActUnlessARowHasTheFocus)
{
    TextInputFacts noWindow;
    EXPECT_TRUE(handleKeyEvent(keyPress(46), noWindow));
    EXPECT_EQ(handleKeyEvent(keyPress(123), noWindow)->name, QStringLiteral("com.zumetaapp.stepFrames"));
    noWindow.focusCount = 1;
    EXPECT_FALSE(handleKeyEvent(keyPress(46), noWindow));
    EXPECT_EQ(handleKeyEvent(keyPress(123), noWindow)->name, QStringLiteral("com.zumetaapp.adjustFocusedNumericField"));
}

TEST(KeyRule, AHeldKeyIsTheSameKey)
{
    for (const RuleRow& row : kRule) {
        KeyEvent event = keyPress(row.keyCode, {.command = row.keyCode == 6});
        const std::optional<KeyNotification> first = handleKeyEvent(event, {});
        event.isAutoRepeat = true;
        EXPECT_TRUE(first) << row.keyCode;
        EXPECT_EQ(handleKeyEvent(event, {}), first) << row.keyCode;
    }
}

TEST(SwallowedKeys, AreThirteen)
{
    std::set<int> swallowed;
    for (int keyCode = -1; keyCode < 256; ++keyCode) {
        if (shouldConsumeAppShortcut(keyPress(keyCode), 0))
            swallowed.insert(keyCode);
    }
    std::set<int> expected(std::begin(kArrows), std::end(kArrows));
    expected.insert(std::begin(kLetters), std::end(kLetters));
    EXPECT_EQ(expected.size(), 13U);
    EXPECT_EQ(swallowed, expected);
}

TEST(SwallowedKeys, AreLeftAloneWithCommandOrOptionOrInAField)
{
    std::set<int> keys(std::begin(kArrows), std::end(kArrows));
    keys.insert(std::begin(kLetters), std::end(kLetters));
    for (const int keyCode : keys) {
        for (int bits = 0; bits < 16; ++bits) {
            const KeyModifiers modifiers{(bits & 1) != 0, (bits & 2) != 0, (bits & 4) != 0, (bits & 8) != 0};
            EXPECT_EQ(shouldConsumeAppShortcut(keyPress(keyCode, modifiers), 0), bits < 4) << keyCode << ' ' << bits;
            EXPECT_FALSE(shouldConsumeAppShortcut(keyPress(keyCode, modifiers), 1)) << keyCode << ' ' << bits;
        }
    }
}

}
}

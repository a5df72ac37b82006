// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/keys/KeyTranslation.h"

#include <gtest/gtest.h>
#include <map>

namespace zumeta {
namespace {

// X11's codes of the places.
constexpr uint32_t kPlaceOfZ = 52;
constexpr uint32_t kPlaceOfY = 29;
constexpr uint32_t kPlaceOfM = 58;
constexpr uint32_t kPlaceOfSemicolon = 47;
constexpr uint32_t kMod5 = 0x80;

const std::map<int, int> kCodeOfKey{
    {Qt::Key_Z, 6},          {Qt::Key_M, 46},       {Qt::Key_I, 34},     {Qt::Key_O, 31},     {Qt::Key_J, 38},
    {Qt::Key_K, 40},         {Qt::Key_L, 37},       {Qt::Key_Space, 49}, {Qt::Key_Left, 123}, {Qt::Key_Right, 124},
    {Qt::Key_Backspace, 51}, {Qt::Key_Delete, 117}, {Qt::Key_Down, 125}, {Qt::Key_Up, 126},   {Qt::Key_Escape, 53}};

constexpr int kLetterKeys[] = {Qt::Key_Z, Qt::Key_M, Qt::Key_I, Qt::Key_O, Qt::Key_J, Qt::Key_K, Qt::Key_L};

struct Typed {
    char32_t sign;
    uint32_t place;
};

int codeOf(const PressedKey& pressed)
{
    const std::optional<KeyEvent> event = translatedKey(pressed);
    return event ? int(event->keyCode) : -1;
}

TEST(KeyTranslation, KeysHaveTheStatedCodes)
{
    for (const auto& [key, code] : kCodeOfKey)
        EXPECT_EQ(codeOf({.key = key}), code) << key;
}

TEST(KeyTranslation, AnyOtherKeyIsNone)
{
    for (int key = 1; key < 0x100; ++key) {
        if (kCodeOfKey.contains(key))
            continue;
        EXPECT_EQ(codeOf({.key = key}), -1) << key;
    }
    for (int key = 0x01000000; key < 0x01001300; ++key) {
        if (kCodeOfKey.contains(key))
            continue;
        EXPECT_EQ(codeOf({.key = key, .nativeScanCode = kPlaceOfM}), -1) << key;
    }
}

TEST(KeyTranslation, CtrlIsCommandAltIsOptionAndMetaIsControl)
{
    const auto modifiersOf = [](Qt::KeyboardModifiers modifiers) {
        return translatedKey({.key = Qt::Key_Space, .modifiers = modifiers})->modifiers;
    };
    EXPECT_EQ(modifiersOf(Qt::NoModifier), KeyModifiers{});
    EXPECT_EQ(modifiersOf(Qt::ShiftModifier), KeyModifiers{.shift = true});
    EXPECT_EQ(modifiersOf(Qt::ControlModifier), KeyModifiers{.command = true});
    EXPECT_EQ(modifiersOf(Qt::AltModifier), KeyModifiers{.option = true});
    EXPECT_EQ(modifiersOf(Qt::MetaModifier), KeyModifiers{.control = true});
    EXPECT_EQ(modifiersOf(Qt::KeypadModifier), KeyModifiers{});
}

TEST(KeyTranslation, ARepeatedPressStaysOne)
{
    EXPECT_FALSE(translatedKey({.key = Qt::Key_M})->isAutoRepeat);
    EXPECT_TRUE(translatedKey({.key = Qt::Key_M, .isAutoRepeat = true})->isAutoRepeat);
    EXPECT_TRUE(translatedKey({.key = Qt::Key_Left, .isAutoRepeat = true})->isAutoRepeat);
}

TEST(KeyTranslation, LettersFollowALatinLayoutAndNotThePlace)
{
    EXPECT_EQ(codeOf({.key = Qt::Key_Z, .nativeScanCode = kPlaceOfY}), 6);
    EXPECT_EQ(codeOf({.key = Qt::Key_Y, .nativeScanCode = kPlaceOfZ}), -1);
    EXPECT_EQ(codeOf({.key = Qt::Key_M, .nativeScanCode = kPlaceOfSemicolon}), 46);
}

TEST(KeyTranslation, ASignOnALettersPlaceDoesNotMakeItThatLetter)
{
    EXPECT_EQ(codeOf({.key = Qt::Key_Comma, .nativeScanCode = kPlaceOfM}), -1);
    EXPECT_EQ(codeOf({.key = Qt::Key_Semicolon, .nativeScanCode = kPlaceOfZ}), -1);
    EXPECT_EQ(codeOf({.key = Qt::Key_Dead_Acute, .nativeScanCode = kPlaceOfM}), -1);
    EXPECT_EQ(codeOf({.key = Qt::Key_Eacute, .nativeScanCode = kPlaceOfM}), -1);
}

TEST(KeyTranslation, ShiftIOnATurkishKeyboardIsStillI)
{
    EXPECT_EQ(translatedKey({.key = int(U'İ'), .modifiers = Qt::ShiftModifier, .nativeScanCode = 31}),
              (KeyEvent{KeyCode::i, {.shift = true}}));
}

TEST(KeyTranslation, WhereTheLayoutWritesAnotherScriptThePlaceCounts)
{
    const auto expectLetters = [](std::initializer_list<Typed> typed, const char* script) {
        const int expected[] = {6, 46, 34, 31, 38, 40, 37};
        size_t letter = 0;
        for (const Typed& key : typed)
            EXPECT_EQ(codeOf({.key = int(key.sign), .nativeScanCode = key.place}), expected[letter++]) << script;
        EXPECT_EQ(letter, 7U) << script;
    };
    // In the order of Z, M, I, O, J, K, L.
    expectLetters({{U'Я', 52}, {U'Ь', 58}, {U'Ш', 31}, {U'Щ', 32}, {U'О', 44}, {U'Л', 45}, {U'Д', 46}}, "Cyrillic");
    expectLetters({{U'Ζ', 52}, {U'Μ', 58}, {U'Ι', 31}, {U'Ο', 32}, {U'Ξ', 44}, {U'Κ', 45}, {U'Λ', 46}}, "Greek");
    expectLetters({{U'ז', 52}, {U'צ', 58}, {U'ן', 31}, {U'ם', 32}, {U'ח', 44}, {U'ל', 45}, {U'ך', 46}}, "Hebrew");
    expectLetters({{U'ผ', 52}, {U'ท', 58}, {U'ร', 31}, {U'น', 32}, {U'\u0E48', 44}, {U'า', 45}, {U'ส', 46}}, "Thai");
    expectLetters({{U'ツ', 52}, {U'モ', 58}, {U'ニ', 31}, {U'ラ', 32}, {U'マ', 44}, {U'ノ', 45}, {U'リ', 46}}, "kana");
}

TEST(KeyTranslation, AnotherScriptElsewhereOnTheKeyboardIsNone)
{
    for (uint32_t place = 0; place < 256; ++place) {
        const bool isLetter = place == 52 || place == 58 || place == 31 || place == 32 || (place >= 44 && place <= 46);
        EXPECT_EQ(codeOf({.key = int(U'Ж'), .nativeScanCode = place}) != -1, isLetter) << place;
    }
}

TEST(KeyTranslation, AKeyThatTheDesktopCannotNameGoesByItsPlace)
{
    EXPECT_EQ(codeOf({.key = 0, .nativeScanCode = kPlaceOfM}), 46);
    EXPECT_EQ(codeOf({.key = Qt::Key_unknown, .nativeScanCode = kPlaceOfZ}), 6);
    EXPECT_EQ(codeOf({.key = Qt::Key_unknown}), -1);
}

TEST(KeyTranslation, UndoWorksInAnotherScript)
{
    const std::optional<KeyEvent> event = translatedKey(
        {.key = int(U'Я'), .modifiers = Qt::ControlModifier | Qt::ShiftModifier, .nativeScanCode = kPlaceOfZ});
    EXPECT_EQ(event, (KeyEvent{KeyCode::z, {.shift = true, .command = true}}));
}

TEST(KeyTranslation, LettersWithAltArePassed)
{
    for (const int key : kLetterKeys) {
        EXPECT_EQ(codeOf({.key = key, .modifiers = Qt::AltModifier}), -1) << key;
        EXPECT_EQ(codeOf({.key = key, .modifiers = Qt::AltModifier | Qt::ShiftModifier}), -1) << key;
    }
    EXPECT_EQ(codeOf({.key = int(U'Ь'), .modifiers = Qt::AltModifier, .nativeScanCode = kPlaceOfM}), -1);
}

TEST(KeyTranslation, LettersWithAltGrArePassed)
{
    for (const int key : kLetterKeys) {
        EXPECT_EQ(codeOf({.key = key, .nativeModifiers = kMod5}), -1) << key;
        EXPECT_EQ(codeOf({.key = key, .modifiers = Qt::GroupSwitchModifier}), -1) << key;
        EXPECT_EQ(codeOf({.key = key, .modifiers = Qt::ControlModifier, .nativeModifiers = kMod5}), -1) << key;
    }
}

// The capital of the micro sign is a Greek letter, and AltGr+M types that sign on many Latin layouts.
TEST(KeyTranslation, TheMicroSignIsNoMarker)
{
    EXPECT_EQ(codeOf({.key = 0x039C, .nativeScanCode = kPlaceOfM, .nativeModifiers = kMod5}), -1);
    EXPECT_EQ(codeOf({.key = Qt::Key_mu, .nativeScanCode = kPlaceOfM, .nativeModifiers = kMod5}), -1);
}

TEST(KeyTranslation, OtherModifiersOfTheDesktopDoNotDisturb)
{
    constexpr uint32_t capsLock = 0x02;
    constexpr uint32_t numLock = 0x10;
    EXPECT_EQ(codeOf({.key = Qt::Key_M, .nativeModifiers = capsLock | numLock}), 46);
}

TEST(KeyTranslation, CtrlAltZStaysUndo)
{
    EXPECT_EQ(translatedKey({.key = Qt::Key_Z, .modifiers = Qt::ControlModifier | Qt::AltModifier}),
              (KeyEvent{KeyCode::z, {.option = true, .command = true}}));
}

TEST(KeyTranslation, FindsTheLetterQByItsLetterAndInOtherScriptsByItsPlace)
{
    constexpr uint32_t placeOfQ = 24;
    EXPECT_TRUE(isLetterQ({.key = Qt::Key_Q, .nativeScanCode = placeOfQ}));
    EXPECT_TRUE(isLetterQ({.key = Qt::Key_Q, .nativeScanCode = 38})) << "a French keyboard";
    EXPECT_FALSE(isLetterQ({.key = Qt::Key_A, .nativeScanCode = placeOfQ})) << "the same one";
    EXPECT_TRUE(isLetterQ({.key = 0x0419, .nativeScanCode = placeOfQ})) << "a Russian one";
    EXPECT_FALSE(isLetterQ({.key = 0x0419, .nativeScanCode = 25}));
}

TEST(KeyTranslation, ArrowsWithAltGoToTheRule)
{
    EXPECT_EQ(codeOf({.key = Qt::Key_Left, .modifiers = Qt::AltModifier}), 123);
}

}
}

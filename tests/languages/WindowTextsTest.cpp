// SPDX-License-Identifier: GPL-3.0-or-later
#include "languages/Translations.h"

#include <gtest/gtest.h>

namespace zumeta {
namespace {

TEST(WindowTexts, StandInAllNineLanguages)
{
    const Translations& window = Translations::ofTheWindow();
    ASSERT_FALSE(window.data.isEmpty());
    for (const QString& key : window.data.keys()) {
        for (const AppLanguage language : kAllAppLanguages) {
            const QString text = window.extraData.value(key).value(language, window.data.value(key).value(language));
            SCOPED_TRACE(testing::Message() << key.toStdString() << " in " << rawValue(language).toStdString());
            EXPECT_FALSE(text.isEmpty());
            EXPECT_EQ(text, text.trimmed());
            EXPECT_EQ(text.count(QStringLiteral("%@")), key.count(QStringLiteral("%@")));
        }
    }
}

TEST(WindowTexts, ShareNoKeyWithTheOtherTable)
{
    for (const QString& key : Translations::ofTheWindow().data.keys())
        EXPECT_FALSE(Translations::compiled().contains(key)) << key.toStdString();
}

}
}

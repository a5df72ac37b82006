// SPDX-License-Identifier: GPL-3.0-or-later
#include "journeys/desktop/OwnScreen.h"
#include "journeys/window/WindowJourney.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <gmock/gmock.h>
#include <unistd.h>

namespace zumeta {
namespace {

using namespace test;

struct ReadThing {
    QString role;
    QString name;
    QString description;
    bool isFocusable = false;
    friend bool operator==(const ReadThing&, const ReadThing&) = default;
};

void PrintTo(const ReadThing& thing, std::ostream* out)
{
    *out << thing.role.toStdString() << " \"" << thing.name.toStdString() << "\" \"" << thing.description.toStdString()
         << (thing.isFocusable ? "\" focusable" : "\"");
}

struct ReadByAScreenReader : WindowJourney {
    ReadByAScreenReader() { alarm(85); }
    ~ReadByAScreenReader() override { alarm(0); }

    /// Everything that is shown, as the other program hears it.
    std::vector<ReadThing> read()
    {
        QProcess reader;
        EXPECT_TRUE(startBound(reader, QStringLiteral(SCREEN_READER), {QCoreApplication::applicationName()}));
        // It asks this process, which answers from its event loop.
        QEventLoop loop;
        QObject::connect(&reader, &QProcess::finished, &loop, &QEventLoop::quit);
        loop.exec();
        EXPECT_EQ(reader.exitCode(), 0) << reader.readAllStandardError().toStdString();
        std::vector<ReadThing> things;
        const QStringList lines = QString::fromUtf8(reader.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
        for (const QString& line : lines) {
            const QStringList parts = line.split(u'\t');
            things.push_back({parts.value(0), parts.value(1), parts.value(2), !parts.value(3).isEmpty()});
        }
        return things;
    }
};

/// As a screen reader says them.
const char* const kStepThree[] = {
    "menu bar Zumeta",
    "menu item Zumeta",
    "menu item File",
    "menu item Edit",
    "menu item Window",
    "menu item Help",
    "menu item Playback",
    "label Above Video: clip1.mp4",
    "push button Remove video: Above Video",
    "label Below Video: clip2.mp4",
    "push button Remove video: Below Video",
    "graphic Video preview",
    "push button Play",
    "label 00:00.00",
    "slider Playhead",
    "label 00:03.00",
    "push button Enter Full Screen",
    "push button Keep This Composition",
    "push button Restore Composition",
    "push button Change camera",
    "push button Language",
    "page tab Above",
    "page tab Below",
    "page tab Adjust",
    "page tab Export",
    "heading Step 3: Fine Tune",
    "push button Shortcuts",
    "check box Loop Playback",
    "check box 0.5x Slow",
    "label Basic Adjustments",
    "push button Decrease Waterline",
    "text Waterline",
    "push button Increase Waterline",
    "slider Waterline",
    "push button Decrease Person Vertical",
    "text Person Vertical",
    "push button Increase Person Vertical",
    "slider Person Vertical",
    "push button Decrease Horizontal Position",
    "text Horizontal Position",
    "push button Increase Horizontal Position",
    "slider Horizontal Position",
    "push button Advanced Adjustments",
    "push button Reset Values",
    "push button Go to Step 4",
    "push button Start Over",
};

TEST_F(ReadByAScreenReader, StepThreeIsReadWholeAndInTheOrderOfTheScreen)
{
    openStep(3);
    ASSERT_TRUE(waitFor([&] { return !item("aboveProxyBadge") && !item("belowProxyBadge"); }, 30000));
    std::vector<std::string> heard;
    for (const ReadThing& thing : read()) {
        EXPECT_FALSE(thing.name.isEmpty()) << thing.role.toStdString() << " without a name";
        heard.push_back((thing.role + u' ' + thing.name).toStdString());
    }
    ASSERT_GE(heard.size(), 2U);
    EXPECT_EQ(heard[1], "frame Zumeta");
    heard.erase(heard.begin(), heard.begin() + 2); // this program and its window
    EXPECT_THAT(heard, testing::ElementsAreArray(kStepThree));
}

TEST_F(ReadByAScreenReader, WhatTheKeyboardReachesIsSaidToBeReached)
{
    openStep(3);
    const std::vector<ReadThing> things = read();
    EXPECT_THAT(things, testing::Contains(ReadThing{QStringLiteral("text"), QStringLiteral("Waterline"), {}, true}));
    EXPECT_THAT(things, testing::Contains(ReadThing{QStringLiteral("push button"), QStringLiteral("Play"), {}, true}));
    for (const ReadThing& thing : things) {
        EXPECT_TRUE(thing.isFocusable || thing.role != QStringLiteral("push button")) << thing.name.toStdString();
    }
}

}
}

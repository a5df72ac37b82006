// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/WindowDialogs.h"

#include "languages/LanguageManager.h"
#include "support/MemoryUserDefaults.h"
#include "support/TemporaryFolder.h"
#include "surfaces/window/AlertQueue.h"
#include "surfaces/window/ModalState.h"

#include <QApplication>
#include <QFileDialog>
#include <QTest>
#include <fstream>
#include <gmock/gmock.h>

namespace zumeta {
namespace {

using testing::ElementsAre;

struct Panels : testing::Test {
    test::TemporaryFolder folder;
    test::MemoryUserDefaults settings;
    LanguageManager languages{settings, [] { return QStringList(QStringLiteral("en")); }};
    AlertQueue alerts{nullptr};
    ModalState modality{nullptr};
    QWindow window;
    WindowDialogs dialogs{alerts, modality, settings, languages};
    std::optional<std::optional<FileUrl>> place;
    std::optional<std::vector<FileUrl>> files;

    Panels() { dialogs.setWindow(window); }
    Task<> askForPlace(bool callerAsks = false)
    {
        SavePanel panel{QStringLiteral("Swim.mp4"), QStringLiteral("mp4")};
        panel.callerAsksToReplace = callerAsks;
        place = co_await dialogs.showSavePanel(std::move(panel));
    }
    Task<> askForFiles()
    {
        OpenPanel panel;
        panel.extensions << QStringLiteral("mp4") << QStringLiteral("mov");
        panel.allowsMultiple = true;
        files = co_await dialogs.showOpenPanel(std::move(panel));
    }
    /// The panel that is open.
    QFileDialog* panel()
    {
        for (QWidget* const widget : QApplication::topLevelWidgets()) {
            if (auto* const dialog = qobject_cast<QFileDialog*>(widget); dialog && dialog->isVisible())
                return dialog;
        }
        return nullptr;
    }
    std::string write(const char* name)
    {
        const std::filesystem::path path = folder.file(name);
        std::ofstream(path) << "x";
        return path.native();
    }
    void choose(const std::string& path)
    {
        ASSERT_TRUE(panel());
        panel()->selectFile(QString::fromStdString(path));
        static_cast<QDialog*>(panel())->accept();
    }
    bool waitFor(const std::function<bool()>& condition) { return QTest::qWaitFor(condition, 5000); }
};

TEST(ChosenPlace, GetsTheExtensionThatTheDesktopDidNotAdd)
{
    const QString mp4 = QStringLiteral("mp4");
    EXPECT_EQ(withExtension(FileUrl("/a/Swim"), mp4), FileUrl("/a/Swim.mp4"));
    EXPECT_EQ(withExtension(FileUrl("/a/Swim.MP4"), mp4), FileUrl("/a/Swim.MP4"));
    EXPECT_EQ(withExtension(FileUrl("/a/Swim.v2"), mp4), FileUrl("/a/Swim.v2.mp4"));
}

TEST_F(Panels, StandOverTheWindowAndCloseItsGate)
{
    askForFiles();
    ASSERT_TRUE(panel());
    EXPECT_EQ(panel()->windowHandle()->transientParent(), &window);
    EXPECT_TRUE(modality.gate().isFileDialogOpen);
    panel()->reject();
    ASSERT_TRUE(waitFor([&] { return files.has_value(); }));
    EXPECT_TRUE(files->empty());
    EXPECT_FALSE(modality.gate().isFileDialogOpen);
}

TEST_F(Panels, TakeExtensionsInBothCases)
{
    askForFiles();
    ASSERT_TRUE(panel());
    EXPECT_EQ(panel()->nameFilters().join(QLatin1Char(' ')), QStringLiteral("MP4, MOV (*.mp4 *.MP4 *.mov *.MOV)"));
    panel()->reject();
    ASSERT_TRUE(waitFor([&] { return files.has_value(); }));
}

TEST_F(Panels, BeginWhereTheLastFileOfTheirKindWasChosen)
{
    const std::string video = write("above.mp4");
    askForFiles();
    choose(video);
    ASSERT_TRUE(waitFor([&] { return files.has_value(); }));
    EXPECT_THAT(*files, ElementsAre(FileUrl(video)));
    askForFiles();
    EXPECT_EQ(panel()->directory().absolutePath(), QString::fromStdString(folder.path().native()));
    panel()->reject();
    askForPlace();
    EXPECT_NE(panel()->directory().absolutePath(), QString::fromStdString(folder.path().native()));
    panel()->reject();
    ASSERT_TRUE(waitFor([&] { return place.has_value(); }));
    EXPECT_FALSE(place->has_value());
}

TEST_F(Panels, AskAboutAFileThatThePanelCouldNotSee)
{
    const std::string existing = write("Swim.mp4");
    const std::string typed = folder.file("Swim").native();
    for (const int answer : {1, 0}) {
        place.reset();
        askForPlace();
        choose(typed);
        ASSERT_TRUE(waitFor([&] { return alerts.isOpen(); }));
        EXPECT_EQ(alerts.buttons(), QStringList({QStringLiteral("Replace"), QStringLiteral("Cancel")}));
        EXPECT_TRUE(alerts.isDestructive());
        alerts.answer(answer);
        ASSERT_TRUE(waitFor([&] { return place.has_value(); }));
        EXPECT_EQ(*place, answer == 0 ? std::optional(FileUrl(existing)) : std::nullopt);
    }
}

TEST_F(Panels, AskNothingAboutAnotherNameOrForACallerWhoAsksHimself)
{
    const std::string existing = write("Swim.mp4");
    askForPlace();
    choose(folder.file("Other").native());
    ASSERT_TRUE(waitFor([&] { return place.has_value(); }));
    EXPECT_EQ(*place, FileUrl(folder.file("Other.mp4")));
    place.reset();
    askForPlace(true);
    choose(folder.file("Swim").native());
    ASSERT_TRUE(waitFor([&] { return place.has_value(); }));
    EXPECT_EQ(*place, FileUrl(existing));
    EXPECT_FALSE(alerts.isOpen());
}

}
}

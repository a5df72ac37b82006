// SPDX-License-Identifier: GPL-3.0-or-later
#include "journeys/window/WindowJourney.h"

#include "journeys/window/Browser.h"
#include "journeys/window/TypedField.h"
#include "platform/BundleInfo.h"
#include "platform/LegalLinks.h"

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QLineEdit>
#include <QTest>

namespace zumeta {
namespace {

using namespace test;
using WorkflowStep = CompositorViewModel::WorkflowStep;

constexpr int kFile = 1;
constexpr int kEdit = 2;
constexpr int kWindow = 3;
constexpr int kHelp = 4;
constexpr int kPlayback = 5;

struct Menus : WindowJourney {
    /// The workplace, with nothing loaded.
    void begin(WorkflowStep step = WorkflowStep::step1, QSize size = {1400, 900})
    {
        open(size);
        confirmCamera();
        app().session().setCurrentStep(step);
        ASSERT_TRUE(waitFor([&] { return title(0) != nullptr; }));
        QTest::mouseMove(&window(), {700, 500});
    }
    QQuickItem* title(int menu) { return item(qPrintable(QStringLiteral("menuTitle%1").arg(menu))); }
    QQuickItem* line(int row) { return item(qPrintable(QStringLiteral("menuItem%1").arg(row))); }
    bool isOpen() { return item("openMenu") != nullptr; }
    /// The menu that is open, -1 for none.
    int openMenu()
    {
        for (int menu = 0; title(menu); ++menu) {
            if (title(menu)->property("isOpen").toBool())
                return menu;
        }
        return -1;
    }
    int currentRow()
    {
        for (int row = 0; line(row); ++row) {
            if (line(row)->property("isCurrent").toBool())
                return row;
        }
        return -1;
    }
    bool isEnabled(int row) { return line(row)->property("isEnabled").toBool(); }
    void openMenuByClick(int menu)
    {
        click(title(menu));
        ASSERT_TRUE(waitFor([&] { return isOpen() && openMenu() == menu; }));
    }
    void choose(int menu, int row)
    {
        openMenuByClick(menu);
        click(line(row));
        EXPECT_TRUE(waitFor([&] { return !isOpen(); }));
    }
    void moveOver(QQuickItem* target)
    {
        for (int x = 0; x < 3; ++x)
            movePointer(middleOf(target) + QPoint(x, 0));
    }
    /// Types it into the panel, whatever that proposes, and accepts.
    void chooseInPanel(const std::filesystem::path& path)
    {
        ASSERT_TRUE(waitFor([&] { return fileDialog() != nullptr; }));
        fileDialog()->findChild<QLineEdit*>()->setText(QString::fromStdString(path.native()));
        static_cast<QDialog*>(fileDialog())->accept();
    }
    /// How often this is posted.
    std::shared_ptr<int> countOf(const QString& notification)
    {
        auto count = std::make_shared<int>(0);
        app().notifications().observe(notification, &m_owner, [count](const QVariantMap&) { ++*count; });
        return count;
    }

private:
    QObject m_owner;
};

TEST_F(Menus, LookAsTheyWereDrawn)
{
    begin(WorkflowStep::step3, {1024, 680});
    for (const AppLanguage language : {AppLanguage::english, AppLanguage::japanese, AppLanguage::german}) {
        app().languages().setLanguage(language);
        const QString name = QStringLiteral("menu-%1-%2").arg(app().languages().localeIdentifier());
        movePointer({700, 500});
        expectPicture(qPrintable(name.arg(QStringLiteral("bar"))), item("menuBar"));
        for (int menu = 0; menu <= kPlayback; ++menu) {
            openMenuByClick(menu);
            press(Qt::Key_Home);
            expectPicture(qPrintable(name.arg(menu)), item("openMenu"));
            press(Qt::Key_Escape);
            ASSERT_TRUE(waitFor([&] { return !isOpen(); }));
        }
    }
}

TEST_F(Menus, OpenAtAClickAndCloseAtTheNext)
{
    begin();
    openMenuByClick(kFile);
    EXPECT_EQ(currentRow(), -1);
    click(title(kFile));
    EXPECT_TRUE(waitFor([&] { return !isOpen(); }));
}

TEST_F(Menus, FollowThePointerFromTitleToTitle)
{
    begin();
    movePointer(middleOf(title(kEdit)));
    EXPECT_FALSE(isOpen());
    openMenuByClick(kFile);
    for (const int menu : {kEdit, kHelp, kWindow}) {
        movePointer(middleOf(title(menu)));
        EXPECT_TRUE(waitFor([&] { return openMenu() == menu; }));
        EXPECT_TRUE(itemWithText(menu == kEdit   ? QStringLiteral("Cut")
                                 : menu == kHelp ? QStringLiteral("Terms")
                                                 : QStringLiteral("Minimize")));
    }
}

TEST_F(Menus, CloseByAPressBesideThem)
{
    begin();
    for (const QPoint place : {QPoint(1200, 15), QPoint(600, 500)}) {
        openMenuByClick(kFile);
        QTest::mouseClick(&window(), Qt::LeftButton, {}, place);
        EXPECT_TRUE(waitFor([&] { return !isOpen() && app().modality().isOpen(); }));
    }
}

TEST_F(Menus, ThePointerChoosesALineOnceItMoves)
{
    begin();
    openMenuByClick(kFile);
    moveOver(line(3));
    EXPECT_EQ(currentRow(), 3);
    moveOver(line(0)); // cannot act
    EXPECT_EQ(currentRow(), -1);
    moveOver(line(1));
    EXPECT_EQ(currentRow(), 1);
    movePointer({900, 600});
    EXPECT_EQ(currentRow(), -1);
}

TEST_F(Menus, AreWalkedByTheKeyboard)
{
    begin(WorkflowStep::step3);
    press(Qt::Key_F10);
    ASSERT_TRUE(waitFor([&] { return isOpen(); }));
    EXPECT_EQ(openMenu(), 0);
    EXPECT_EQ(currentRow(), 0);
    press(Qt::Key_Right);
    EXPECT_EQ(openMenu(), kFile);
    press(Qt::Key_Down);
    press(Qt::Key_Down); // over the divider
    EXPECT_EQ(currentRow(), 3);
    press(Qt::Key_Down); // around the end
    EXPECT_EQ(currentRow(), 0);
    press(Qt::Key_End);
    EXPECT_EQ(currentRow(), 3);
    press(Qt::Key_Home);
    EXPECT_EQ(currentRow(), 0);
    press(Qt::Key_Up);
    EXPECT_EQ(currentRow(), 3);
    press(Qt::Key_Left);
    press(Qt::Key_Left);
    EXPECT_EQ(openMenu(), kPlayback);
    press(Qt::Key_Escape);
    EXPECT_TRUE(waitFor([&] { return !isOpen(); }));
    press(Qt::Key_F10);
    ASSERT_TRUE(waitFor([&] { return isOpen(); }));
    press(Qt::Key_F10);
    EXPECT_TRUE(waitFor([&] { return !isOpen(); }));
}

TEST_F(Menus, ReturnActsAndNothingReachesTheShortcutsMeanwhile)
{
    begin(WorkflowStep::step3);
    const auto guides = countOf(notifications::kShowFirstRunGuide);
    const auto steps = countOf(notifications::kStepFrames);
    const auto toggles = countOf(notifications::kTogglePlaybackShortcut);
    openMenuByClick(kHelp);
    press(Qt::Key_M);
    press(Qt::Key_End);
    press(Qt::Key_Left);
    press(Qt::Key_Right);
    press(Qt::Key_End);
    press(Qt::Key_Return);
    EXPECT_TRUE(waitFor([&] { return *guides == 1; }));
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(*steps, 0);
    EXPECT_EQ(*toggles, 0);
    press(Qt::Key_Right);
    EXPECT_EQ(*steps, 1);
}

TEST_F(Menus, ShowWhatCannotActAndDoNotDoIt)
{
    begin();
    openMenuByClick(kFile);
    EXPECT_FALSE(isEnabled(0));
    EXPECT_TRUE(isEnabled(2) == false && isEnabled(3));
    click(line(0));
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(currentRow(), -1);
    press(Qt::Key_Down);
    EXPECT_EQ(currentRow(), 1);
    press(Qt::Key_Escape);
    openMenuByClick(kPlayback);
    for (const int row : {0, 2, 3, 4, 5, 6, 7, 8})
        EXPECT_FALSE(isEnabled(row)) << row;
}

TEST_F(Menus, OpenTheirPages)
{
    const Browser browser;
    const LegalLinks links = LegalLinks::configuredIn(BundleInfo::main());
    begin();
    for (const int row : {0, 1, 2})
        choose(kHelp, row);
    EXPECT_THAT(browser.opened, testing::ElementsAre(links.support, links.privacy, links.terms));
}

TEST_F(Menus, EditTheFieldWhoseFocusTheyBorrow)
{
    begin(WorkflowStep::step3);
    const auto ended = countOf(notifications::kClearTextFieldFocus);
    const std::unique_ptr<QQuickItem> field = makeField(window(), "1.25");
    choose(kEdit, 2); // cut
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("1.25"));
    EXPECT_EQ(field->property("text").toString(), QString());
    EXPECT_TRUE(waitFor([&] { return field->hasActiveFocus(); }));
    choose(kEdit, 4); // paste
    choose(kEdit, 4);
    EXPECT_EQ(field->property("text").toString(), QStringLiteral("1.251.25"));
    choose(kEdit, 0); // undo
    EXPECT_NE(field->property("text").toString(), QStringLiteral("1.251.25"));
    choose(kEdit, 1); // redo
    EXPECT_EQ(field->property("text").toString(), QStringLiteral("1.251.25"));
    choose(kEdit, 6); // select all
    EXPECT_EQ(field->property("selectedText").toString(), QStringLiteral("1.251.25"));
    QGuiApplication::clipboard()->setText(QString());
    choose(kEdit, 3); // copy
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("1.251.25"));
    EXPECT_EQ(field->property("selectedText").toString(), QStringLiteral("1.251.25"));
    choose(kEdit, 5); // delete
    EXPECT_EQ(field->property("text").toString(), QString());
    EXPECT_TRUE(waitFor([&] { return field->hasActiveFocus(); }));
    EXPECT_EQ(*ended, 0) << "a press on the menu bar ends no editing";
}

TEST_F(Menus, HaveNothingToEditWithoutAField)
{
    begin(WorkflowStep::step3);
    openMenuByClick(kEdit);
    for (int row = 0; row < 7; ++row)
        EXPECT_FALSE(isEnabled(row)) << row;
}

TEST_F(Menus, TheFieldMayGoAwayWhileAMenuIsOpen)
{
    begin(WorkflowStep::step3);
    std::unique_ptr<QQuickItem> field = makeField(window(), "12");
    openMenuByClick(kEdit);
    EXPECT_TRUE(isEnabled(2));
    field.reset();
    click(line(2));
    press(Qt::Key_Escape);
    EXPECT_TRUE(waitFor([&] { return !isOpen() && app().modality().isOpen(); }));
}

TEST_F(Menus, KeysActAsTheItemsDo)
{
    begin(WorkflowStep::step3);
    const std::unique_ptr<QQuickItem> field = makeField(window(), "7");
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("7"));
    press(Qt::Key_V, Qt::ControlModifier);
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(field->property("text").toString(), QStringLiteral("77"));
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(field->property("text").toString(), QString());
    press(Qt::Key_M, Qt::ControlModifier);
    EXPECT_TRUE(window().windowStates().testFlag(Qt::WindowMinimized));
    window().showNormal();
    window().requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    press(Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(window().isVisible());
}

TEST_F(Menus, WindowItemsActOnTheWindow)
{
    begin();
    choose(kWindow, 1);
    EXPECT_TRUE(window().windowStates().testFlag(Qt::WindowMaximized));
    choose(kWindow, 1);
    EXPECT_FALSE(window().windowStates().testFlag(Qt::WindowMaximized));
    choose(kWindow, 2);
    EXPECT_TRUE(window().isActive());
    choose(kWindow, 0);
    EXPECT_TRUE(window().windowStates().testFlag(Qt::WindowMinimized));
}

TEST_F(Menus, CloseTheWindow)
{
    begin();
    choose(kFile, 3);
    EXPECT_FALSE(window().isVisible());
}

TEST_F(Menus, TellWhatTheProgramIs)
{
    begin();
    choose(0, 0);
    ASSERT_TRUE(waitFor([&] { return item("aboutClose") && item("aboutClose")->hasActiveFocus(); }));
    EXPECT_FALSE(app().modality().isOpen());
    press(Qt::Key_Escape);
    EXPECT_TRUE(waitFor([&] { return !item("aboutClose") && app().modality().isOpen(); }));
}

TEST_F(Menus, KeepACompositionAndRestoreIt)
{
    const TemporaryFolder folder;
    begin(WorkflowStep::step3);
    choose(kFile, 0);
    ASSERT_TRUE(waitFor([&] { return fileDialog() != nullptr; }));
    EXPECT_FALSE(app().modality().isOpen());
    chooseInPanel(folder.file("swim"));
    EXPECT_TRUE(waitFor([&] { return folder.names() == std::vector<std::string>{"swim.zumetaproj"}; }));
    EXPECT_FALSE(app().session().showSaveProjectPanel());
    bool isRestored = false;
    QObject::connect(&app().session(), &CompositorViewModel::projectRestored, &app().session(),
                     [&] { isRestored = true; });
    window().requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    press(Qt::Key_O, Qt::ControlModifier);
    chooseInPanel(folder.file("swim.zumetaproj"));
    EXPECT_TRUE(waitFor([&] { return isRestored; }));
    EXPECT_FALSE(app().session().showOpenProjectPanel());
}

TEST_F(Menus, DrivePlayback)
{
    openStep(3);
    CompositorViewModel& session = app().session();
    // The step's own beginning comes in a later turn.
    ASSERT_TRUE(waitFor([&] {
        session.seek(0.5, true);
        QTest::qWait(200);
        return std::abs(session.currentTime() - 0.5) < 1e-3;
    }));
    choose(kPlayback, 2);
    const double frame = session.currentTime() - 0.5;
    EXPECT_NEAR(frame, 1 / 30.0, 1e-3);
    choose(kPlayback, 4);
    EXPECT_NEAR(session.currentTime(), 0.5 + 11 * frame, 1e-3);
    choose(kPlayback, 5);
    EXPECT_NEAR(session.currentTime(), 0.5 + frame, 1e-3);
    choose(kPlayback, 3);
    EXPECT_NEAR(session.currentTime(), 0.5, 1e-3);
    choose(kPlayback, 0);
    EXPECT_TRUE(session.isPlaying());
    choose(kPlayback, 6);
    EXPECT_FALSE(session.isPlaying());
    choose(kPlayback, 8);
    EXPECT_GT(session.activePlaybackRate(), 0);
    choose(kPlayback, 6);
    choose(kPlayback, 7);
    EXPECT_LT(session.abovePlayerService().player().rate(), 0.5);
}

TEST_F(Menus, RestWhileSomethingCoversTheWindow)
{
    begin(WorkflowStep::step3);
    for (const ModalState::Kind kind : {ModalState::Popover, ModalState::Sheet, ModalState::Alert,
                                        ModalState::MissingMediaCard, ModalState::FileDialog}) {
        app().modality().enter(kind);
        press(Qt::Key_F10);
        QTest::mouseClick(&window(), Qt::LeftButton, {}, middleOf(title(kFile)));
        press(Qt::Key_S, Qt::ControlModifier);
        press(Qt::Key_O, Qt::ControlModifier);
        press(Qt::Key_W, Qt::ControlModifier);
        press(Qt::Key_M, Qt::ControlModifier);
        EXPECT_FALSE(isOpen()) << kind;
        EXPECT_FALSE(app().session().showOpenProjectPanel()) << kind;
        EXPECT_TRUE(window().isVisible()) << kind;
        EXPECT_FALSE(window().windowStates().testFlag(Qt::WindowMinimized)) << kind;
        EXPECT_FALSE(app().modality().acceptsDrops()) << kind;
        app().modality().leave(kind);
    }
    openMenuByClick(kFile);
    app().modality().enter(ModalState::Alert);
    EXPECT_TRUE(waitFor([&] { return !isOpen(); }));
    app().modality().leave(ModalState::Alert);
}

}
}

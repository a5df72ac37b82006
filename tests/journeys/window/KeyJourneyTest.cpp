// SPDX-License-Identifier: GPL-3.0-or-later
#include "journeys/window/TypedField.h"
#include "journeys/window/WindowJourney.h"

#include <QTest>

namespace zumeta {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;
using WorkflowStep = CompositorViewModel::WorkflowStep;

/// A notification as it was posted.
struct Posted {
    QString name;
    QVariantMap userInfo;
    friend bool operator==(const Posted&, const Posted&) = default;
    friend void PrintTo(const Posted& posted, std::ostream* stream) { *stream << posted.name.toStdString(); }
};

/// What one key means, while nothing is typed and while a field has the focus.
struct KeyRow {
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    std::optional<Posted> plain;
    std::optional<Posted> typing;
};

Posted withFrames(int frames)
{
    return {notifications::kStepFrames, {{QStringLiteral("frames"), frames}}};
}

Posted withDirection(int direction)
{
    return {notifications::kNavigateTrimMarker, {{QStringLiteral("direction"), direction}}};
}

Posted adjusting(int direction, bool isLarge)
{
    return {notifications::kAdjustFocusedNumericField,
            {{QStringLiteral("direction"), direction}, {QStringLiteral("isLargeStep"), isLarge}}};
}

std::vector<KeyRow> keyTable()
{
    const Posted undo{notifications::kUndoStepEdit, {}};
    const Posted redo{notifications::kRedoStepEdit, {}};
    const Posted mark{notifications::kMarkSyncPoint, {}};
    const Posted start{notifications::kSetTrimPointToPlayhead, {{QStringLiteral("point"), QStringLiteral("start")}}};
    const Posted end{notifications::kSetTrimPointToPlayhead, {{QStringLiteral("point"), QStringLiteral("end")}}};
    const Posted remove{notifications::kDeleteSelectedTrimMarker, {}};
    const Posted toggle{notifications::kTogglePlaybackShortcut, {}};
    const Posted pause{notifications::kPausePlaybackShortcut, {}};
    const Posted slower{notifications::kAdjustPlaybackRateShortcut, {{QStringLiteral("faster"), false}}};
    const Posted faster{notifications::kAdjustPlaybackRateShortcut, {{QStringLiteral("faster"), true}}};
    constexpr auto kShift = Qt::ShiftModifier;
    constexpr auto kControl = Qt::ControlModifier;
    constexpr auto kAlt = Qt::AltModifier;
    return {
        {Qt::Key_Z, kControl | kShift, redo, redo},
        {Qt::Key_Z, kControl | kShift | kAlt, redo, redo},
        {Qt::Key_Z, kControl, undo, undo},
        {Qt::Key_Z, kControl | kAlt, undo, undo},
        {Qt::Key_M, {}, mark, {}},
        {Qt::Key_M, kShift, mark, {}},
        {Qt::Key_M, kAlt, {}, {}},
        {Qt::Key_I, {}, start, {}},
        {Qt::Key_I, kShift, start, {}},
        {Qt::Key_I, kControl, {}, {}},
        {Qt::Key_O, {}, end, {}},
        {Qt::Key_Backspace, {}, remove, {}},
        {Qt::Key_Delete, {}, remove, {}},
        {Qt::Key_Delete, kControl, {}, {}},
        {Qt::Key_Space, {}, toggle, {}},
        {Qt::Key_Space, Qt::MetaModifier, toggle, {}},
        {Qt::Key_Space, kControl, {}, {}},
        {Qt::Key_K, {}, pause, {}},
        {Qt::Key_K, kControl, {}, {}},
        {Qt::Key_J, {}, slower, {}},
        {Qt::Key_L, {}, faster, {}},
        {Qt::Key_Left, {}, withFrames(-1), adjusting(-1, false)},
        {Qt::Key_Right, {}, withFrames(1), adjusting(1, false)},
        {Qt::Key_Left, kShift, withFrames(-10), adjusting(-1, true)},
        {Qt::Key_Right, kShift, withFrames(10), adjusting(1, true)},
        {Qt::Key_Down, {}, withDirection(1), {}},
        {Qt::Key_Down, kShift, withDirection(1), {}},
        {Qt::Key_Up, {}, withDirection(-1), {}},
        {Qt::Key_Left, kControl, {}, {}},
        {Qt::Key_Right, kAlt, {}, {}},
        {Qt::Key_Up, kControl, {}, {}},
        {Qt::Key_B, {}, {}, {}},
    };
}

struct Keys : WindowJourney {
    void begin(WorkflowStep step = WorkflowStep::step3)
    {
        open();
        confirmCamera();
        app().session().setCurrentStep(step);
        for (const QString& name :
             {notifications::kStepFrames, notifications::kMarkSyncPoint, notifications::kTogglePlaybackShortcut,
              notifications::kPausePlaybackShortcut, notifications::kAdjustPlaybackRateShortcut,
              notifications::kNavigateTrimMarker, notifications::kSetTrimPointToPlayhead,
              notifications::kDeleteSelectedTrimMarker, notifications::kUndoStepEdit, notifications::kRedoStepEdit,
              notifications::kAdjustFocusedNumericField})
            app().notifications().observe(name, &m_owner, [this, name](const QVariantMap& userInfo) {
                posted.push_back({name, userInfo});
            });
    }
    std::unique_ptr<QQuickItem> makeField() { return test::makeField(window(), "1.5"); }
    SurfaceContext& context() { return SurfaceContext::of(engineOf(window())); }
    std::vector<Posted> takePosted() { return std::exchange(posted, {}); }
    /// The press again and again, as a held key comes.
    void holdOn(Qt::Key key, int times, const QString& text = {})
    {
        for (int i = 0; i < times; ++i) {
            QKeyEvent repeated(QEvent::KeyPress, key, {}, text, true);
            QCoreApplication::sendEvent(&window(), &repeated);
        }
    }

    std::vector<Posted> posted;

private:
    QObject m_owner;
};

std::string nameOf(const KeyRow& row)
{
    return QKeySequence(int(row.key) | int(row.modifiers.toInt())).toString().toStdString();
}

TEST_F(Keys, MeanWhatTheTableSaysWhileNothingIsTyped)
{
    begin();
    for (const KeyRow& row : keyTable()) {
        press(row.key, row.modifiers);
        const std::vector<Posted> expected = row.plain ? std::vector{*row.plain} : std::vector<Posted>();
        EXPECT_EQ(takePosted(), expected) << nameOf(row);
    }
}

TEST_F(Keys, MeanWhatTheTableSaysWhileAFieldHasTheFocus)
{
    begin();
    const std::unique_ptr<QQuickItem> field = makeField();
    for (const KeyRow& row : keyTable()) {
        press(row.key, row.modifiers);
        const std::vector<Posted> expected = row.typing ? std::vector{*row.typing} : std::vector<Posted>();
        EXPECT_EQ(takePosted(), expected) << nameOf(row);
        EXPECT_TRUE(field->hasActiveFocus()) << nameOf(row);
    }
}

TEST_F(Keys, ThatAreTypedReachTheField)
{
    begin();
    const std::unique_ptr<QQuickItem> field = makeField();
    press(Qt::Key_End);
    for (const Qt::Key key : {Qt::Key_M, Qt::Key_I, Qt::Key_Space, Qt::Key_K, Qt::Key_Backspace})
        press(key);
    EXPECT_EQ(field->property("text").toString(), QStringLiteral("1.5mi "));
    press(Qt::Key_Left);
    EXPECT_EQ(field->property("cursorPosition").toInt(), 6) << "the arrow belongs to the value";
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(field->property("text").toString(), QStringLiteral("1.5mi ")) << "undo means the step edits";
}

TEST_F(Keys, CountTheRowsThatSayTheyAreEdited)
{
    begin();
    context().fieldFocus().arrived();
    press(Qt::Key_M);
    EXPECT_THAT(takePosted(), IsEmpty());
    press(Qt::Key_Right);
    EXPECT_THAT(takePosted(), ElementsAre(adjusting(1, false)));
    context().fieldFocus().left();
    press(Qt::Key_M);
    EXPECT_EQ(takePosted().size(), 1U);
}

TEST_F(Keys, UndoAndRedoStepEditsAlsoFromAField)
{
    begin();
    CompositorViewModel& session = app().session();
    const double before = session.aboveZoom();
    session.recordStepEditUndoSnapshot();
    session.setAboveZoom(before + 5);
    ASSERT_TRUE(session.canUndoStepEdit());
    const std::unique_ptr<QQuickItem> field = makeField();
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(session.aboveZoom(), before);
    press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(session.aboveZoom(), before + 5);
}

TEST_F(Keys, HeldSwitchOnceAndStepOn)
{
    begin();
    press(Qt::Key_Space);
    holdOn(Qt::Key_Space, 3, QStringLiteral(" "));
    EXPECT_EQ(takePosted().size(), 1U);
    press(Qt::Key_Right);
    holdOn(Qt::Key_Right, 3);
    EXPECT_EQ(takePosted().size(), 4U);
}

TEST_F(Keys, OfAButtonWithTheFocusAreStillShortcuts)
{
    begin();
    press(Qt::Key_Tab);
    press(Qt::Key_Space);
    EXPECT_THAT(takePosted(), ElementsAre(Posted{notifications::kTogglePlaybackShortcut, {}}));
}

TEST_F(Keys, RestWhileSomethingStandsInFront)
{
    begin();
    for (int kind = ModalState::Menu; kind <= ModalState::InactiveWindow; ++kind) {
        app().modality().enter(ModalState::Kind(kind));
        for (const KeyRow& row : keyTable()) {
            // Moving the focus is not what a test of one row is about.
            if (row.plain)
                press(row.key, row.modifiers);
        }
        EXPECT_THAT(takePosted(), IsEmpty()) << kind;
        app().modality().leave(ModalState::Kind(kind));
    }
    press(Qt::Key_M);
    EXPECT_EQ(takePosted().size(), 1U);
}

TEST_F(Keys, RestOnTheStartScreen)
{
    begin();
    app().session().setCameraSelectionConfirmed(false);
    press(Qt::Key_M);
    press(Qt::Key_Z, Qt::ControlModifier);
    press(Qt::Key_F10);
    press(Qt::Key_O, Qt::ControlModifier);
    EXPECT_THAT(takePosted(), IsEmpty());
    EXPECT_FALSE(item("openMenu"));
    EXPECT_FALSE(app().session().showOpenProjectPanel());
}

TEST_F(Keys, F11TogglesTheWindowsOwnFullScreen)
{
    begin();
    press(Qt::Key_F11);
    EXPECT_TRUE(window().windowStates().testFlag(Qt::WindowFullScreen));
    EXPECT_FALSE(app().session().isFullScreen());
    press(Qt::Key_M);
    EXPECT_EQ(takePosted().size(), 1U);
    press(Qt::Key_F11);
    EXPECT_FALSE(window().windowStates().testFlag(Qt::WindowFullScreen));
}

TEST_F(Keys, GoOnInTheFullScreenPreviewAlsoWhenThePanelHadTheFocus)
{
    begin();
    press(Qt::Key_Tab);
    app().session().setFullScreen(true);
    EXPECT_TRUE(waitFor([&] { return !item("menuBar"); }));
    press(Qt::Key_Right);
    EXPECT_THAT(takePosted(), ElementsAre(withFrames(1)));
    press(Qt::Key_F10);
    EXPECT_FALSE(item("openMenu"));
    press(Qt::Key_O, Qt::ControlModifier);
    ASSERT_TRUE(waitFor([&] { return app().modality().gate().isFileDialogOpen; }));
    dismissFileDialog();
    EXPECT_TRUE(waitFor([&] { return !app().session().showOpenProjectPanel(); }));
}

TEST_F(Keys, AFieldThatTheFullScreenPreviewTakesAwayLeavesTheKeysFree)
{
    begin();
    std::unique_ptr<QQuickItem> field = makeField();
    app().session().setFullScreen(true);
    field.reset();
    press(Qt::Key_M);
    EXPECT_EQ(takePosted().size(), 1U);
}

TEST_F(Keys, EscapeEndsOneThingAtATime)
{
    begin();
    app().session().setFullScreen(true);
    std::unique_ptr<QQuickItem> field = makeField();
    press(Qt::Key_Escape); // the field's own
    EXPECT_TRUE(app().session().isFullScreen());
    field.reset();
    Alert alert;
    alert.buttons << QStringLiteral("Go on") << QStringLiteral("Cancel");
    app().dialogs().showAlert(alert);
    ASSERT_TRUE(waitFor([&] { return item("alertButton0") && item("alertButton0")->hasActiveFocus(); }));
    press(Qt::Key_Escape);
    EXPECT_TRUE(waitFor([&] { return !item("alertButton0") && app().modality().isOpen(); }));
    EXPECT_TRUE(app().session().isFullScreen());
    press(Qt::Key_Escape, Qt::ControlModifier);
    EXPECT_TRUE(app().session().isFullScreen());
    press(Qt::Key_Escape);
    EXPECT_FALSE(app().session().isFullScreen());
    press(Qt::Key_Escape);
    EXPECT_TRUE(window().isVisible());
}

TEST_F(Keys, EscapeClosesAMenuAndLeavesTheFieldBehindItAlone)
{
    begin();
    const std::unique_ptr<QQuickItem> field = makeField();
    press(Qt::Key_F10);
    ASSERT_TRUE(waitFor([&] { return item("openMenu") != nullptr; }));
    EXPECT_FALSE(field->hasActiveFocus());
    press(Qt::Key_Escape);
    EXPECT_TRUE(waitFor([&] { return !item("openMenu") && field->hasActiveFocus(); }));
}

TEST_F(Keys, PulsesGoOnWithTheUsersInput)
{
    begin();
    movePointer({300, 300});
    EXPECT_TRUE(context().motion().pulses());
    context().motion().setWindowActive(false);
    EXPECT_FALSE(context().motion().pulses());
}

}
}

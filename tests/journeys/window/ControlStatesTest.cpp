// SPDX-License-Identifier: GPL-3.0-or-later
#include "journeys/window/WindowJourney.h"
#include "surfaces/theme/SurfaceContext.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QTest>

namespace zumeta {
namespace {

using namespace test;

struct Control {
    const char* name;
    const char* qml;
    bool canBeDisabled = true;
};

void PrintTo(const Control& control, std::ostream* out)
{
    *out << control.name;
}

enum class State { normal, hovered, pressed, focused, disabled };
constexpr State kStates[] = {State::normal, State::hovered, State::pressed, State::focused, State::disabled};

/// One control on an empty ground, brought into each state by the mouse and the keyboard's focus.
class ControlStates : public WindowJourney, public testing::WithParamInterface<Control> {
protected:
    void SetUp() override
    {
        open({400, 200});
        QQmlComponent component(qmlEngine(&window()));
        component.setData(QByteArray("import QtQuick\nimport Zumeta\nRectangle { width: 400; height: 200; z: 1000;"
                                     " color: Theme.panel; MouseArea { anchors.fill: parent; hoverEnabled: true }\n") +
                              GetParam().qml + "}",
                          {});
        m_owner.reset(component.create());
        m_ground = qobject_cast<QQuickItem*>(m_owner.get());
        ASSERT_TRUE(m_ground) << component.errorString().toStdString();
        m_ground->setParentItem(window().contentItem());
        m_control = m_ground->childItems().constLast();
    }

    QImage pictureIn(State state)
    {
        const QPoint middle = middleOf(m_control);
        movePointer({1, 1});
        m_ground->setFocus(false);
        switch (state) {
        case State::normal:
            break;
        case State::hovered:
            movePointer(middle);
            break;
        case State::pressed:
            movePointer(middle);
            QTest::mousePress(&window(), Qt::LeftButton, {}, middle);
            break;
        case State::focused:
            SurfaceContext::of(*qmlEngine(&window())).keyboardFocus().noteKey(Qt::Key_Tab);
            m_control->forceActiveFocus(Qt::TabFocusReason);
            break;
        case State::disabled:
            m_control->setEnabled(false);
            break;
        }
        QImage shown = picture();
        if (state == State::pressed)
            QTest::mouseRelease(&window(), Qt::LeftButton, {}, {1, 1}); // beside it: no click
        if (state == State::focused)
            m_ground->forceActiveFocus();
        return shown;
    }

private:
    std::unique_ptr<QObject> m_owner;
    QQuickItem* m_ground = nullptr;
    QQuickItem* m_control = nullptr;
};

TEST_P(ControlStates, AllLookDifferent)
{
    std::vector<QImage> pictures;
    for (const State state : kStates) {
        if (state == State::disabled && !GetParam().canBeDisabled)
            continue;
        const QImage shown = pictureIn(state);
        for (size_t earlier = 0; earlier < pictures.size(); ++earlier)
            EXPECT_NE(shown, pictures[earlier])
                << GetParam().name << ": state " << int(state) << " looks like " << earlier;
        pictures.push_back(shown);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Every, ControlStates,
    testing::Values(
        Control{"ActionButton", "ActionButton { x: 40; y: 60; width: 300; icon: 'lock-circle'; title: 'Lock' }"},
        Control{"FilledButton", "ActionButton { x: 40; y: 60; width: 300; title: 'Export'; isFilled: true }"},
        Control{"IconButton", "IconButton { x: 40; y: 60; icon: 'folder' }"},
        Control{"StepPill", "StepPill { x: 40; y: 60; step: 2; label: 'Below'; currentStep: 1; maxReachedStep: 3 }",
                false},
        Control{"CurrentPill", "StepPill { x: 40; y: 60; step: 1; label: 'Above'; currentStep: 1; maxReachedStep: 3 }",
                false},
        Control{"ToggleOn",
                "Step3PlaybackButton { x: 40; y: 60; width: 170; icon: 'repeat'; title: 'Loop'; isOn: true }", false},
        Control{"ToggleOff", "Step3PlaybackButton { x: 40; y: 60; width: 170; icon: 'repeat'; title: 'Loop' }", false},
        Control{"MarkerButton", "TrimMarkerButton { x: 40; y: 60; width: 170; icon: 'trash'; title: 'Delete' }", false},
        Control{"QuietReset", "PartialResetButton { x: 40; y: 60; width: 300; title: 'Redo' }", false},
        Control{"StartOver", "ResetButton { x: 40; y: 60; width: 300 }", false},
        Control{"HelpButton",
                "FocusScope { x: 40; y: 60; width: 28; height: 28; ShortcutHelpButton { step: 3; focus: true } }",
                false},
        Control{"SelectionRow", "SelectionRow { x: 40; y: 60; width: 300; title: 'Row' }", false},
        Control{"LanguagePicker", "LanguagePicker { x: 40; y: 60 }", false}),
    [](const auto& control) { return std::string(control.param.name); });

}
}

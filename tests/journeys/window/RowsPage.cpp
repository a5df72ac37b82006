// SPDX-License-Identifier: GPL-3.0-or-later
#include "journeys/window/RowsPage.h"

#include "surfaces/controls/ValueRowModel.h"

#include <QInputMethodEvent>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QTest>

namespace zumeta::test {

namespace {

constexpr char kPage[] = R"(
import QtQuick
import Zumeta

Flickable {
    id: root

    required property ValueRowModel longRow

    width: 390
    height: 640
    contentHeight: 900
    clip: true

    Rectangle {
        width: 390
        height: 900
        color: Theme.panel

        Column {
            id: column

            x: 20
            y: 20
            width: 350
            spacing: 11

            component FramedRow: StepperSliderRow {
                width: column.width

                Item {
                    objectName: parent.objectName + " frame"
                    anchors.fill: parent
                    anchors.margins: -8
                }
            }
            component Row: FramedRow {
                required property ValueRowModel modelData

                row: modelData
            }

            Repeater { model: AdjustmentRows.basic; Row {} }
            Repeater { model: AdjustmentRows.advanced; Row {} }
            Repeater { model: AdjustmentRows.trim; Row {} }
            FramedRow { row: root.longRow }
            Item {
                objectName: "menuOpener"

                function openMenu() { menu.open(); }

                ChoiceMenu { id: menu; items: ["one", "two"] }
            }
        }
    }
}
)";

}

RowsPage::RowsPage() = default;

RowsPage::~RowsPage()
{
    m_page.reset(); // before the engine
}

void RowsPage::openPage(int step)
{
    if (step == 3) {
        open();
        confirmCamera();
        session().setCurrentStep(CompositorViewModel::WorkflowStep::step3);
    } else {
        openStep(step);
    }
    QQmlEngine& engine = *qmlEngine(&window());
    SurfaceContext& surfaces = SurfaceContext::of(engine);
    surfaces.motion().setReduced(true); // the caret of a picture stands
    ValueRowSource source;
    source.label = QString::fromUtf8(kLongLabel);
    source.rules = [] { return ValueRowRules{.lower = -100, .upper = 100}; };
    source.value = [] { return -40.0; };
    source.setValue = [](double) {};
    m_longRow = std::make_unique<ValueRowModel>(
        std::move(source), ValueRowSurroundings{surfaces.notifications(), surfaces.fieldFocus(), surfaces.clock()});
    QQmlComponent component(&engine);
    component.setData(kPage, QUrl(QStringLiteral("qrc:/RowsPage.qml")));
    const QVariantMap properties{{QStringLiteral("longRow"), QVariant::fromValue(m_longRow.get())}};
    m_page.reset(qobject_cast<QQuickItem*>(component.createWithInitialProperties(properties)));
    ASSERT_TRUE(m_page) << component.errorString().toStdString();
    m_page->setParentItem(window().contentItem());
    QTest::qWait(20); // for the first layout
}

void RowsPage::closePage()
{
    m_page.reset();
}

QQuickItem* RowsPage::part(const std::string& name)
{
    // Delegates of a Repeater are children on the screen alone.
    std::vector<QQuickItem*> items{m_page.get()};
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (items[i]->objectName().toStdString() == name)
            return items[i];
        for (QQuickItem* const child : items[i]->childItems())
            items.push_back(child);
    }
    ADD_FAILURE() << "there is no " << name;
    return nullptr;
}

std::string RowsPage::selection(const std::string& key)
{
    return field(key)->property("selectedText").toString().toStdString();
}

void RowsPage::focus(const std::string& key)
{
    field(key)->forceActiveFocus(Qt::TabFocusReason);
}

void RowsPage::type(const char* characters)
{
    for (const char* c = characters; *c; ++c)
        QTest::keyClick(&window(), *c);
}

void RowsPage::type(const std::string& key, const char* characters)
{
    focus(key);
    type(characters);
}

void RowsPage::compose(const std::string& key, const char16_t* committed, const char16_t* composed)
{
    QInputMethodEvent event(QString::fromUtf16(composed), {});
    event.setCommitString(QString::fromUtf16(committed));
    QCoreApplication::sendEvent(field(key), &event);
}

int RowsPage::focusCount()
{
    return SurfaceContext::of(*qmlEngine(&window())).fieldFocus().focusCount();
}

void RowsPage::post(const QString& notification, const QVariantMap& userInfo)
{
    SurfaceContext::of(*qmlEngine(&window())).notifications().post(notification, userInfo);
}

}

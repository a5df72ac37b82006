// SPDX-License-Identifier: GPL-3.0-or-later
#include "journeys/window/LayoutWalk.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QTest>
#include <gmock/gmock.h>

namespace zumeta::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// What the walk finds in a window of 400 x 300 that holds this.
std::vector<std::string> faultsIn(const char* qml)
{
    QQmlEngine engine;
    QQmlComponent component(&engine);
    component.setData(QByteArray("import QtQuick\nimport QtQuick.Templates as T\nWindow { width: 400; height: 300; ") +
                          qml + " }",
                      {});
    const std::unique_ptr<QObject> root(component.create());
    EXPECT_TRUE(root) << component.errorString().toStdString();
    auto& window = *qobject_cast<QQuickWindow*>(root.get());
    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
    window.grabWindow();
    std::vector<std::string> faults;
    for (const QString& fault : layoutFaults(window))
        faults.push_back(fault.toStdString());
    return faults;
}

TEST(LayoutWalk, FindsNothingWhereAllIsWell)
{
    EXPECT_THAT(faultsIn("Text { text: 'One' } Text { y: 40; text: 'Two'; width: 200; elide: Text.ElideRight }"),
                IsEmpty());
}

TEST(LayoutWalk, FindsATextThatIsCutOff)
{
    EXPECT_THAT(faultsIn("Text { text: 'A long word'; width: 30; elide: Text.ElideRight }"),
                ElementsAre("QQuickText 'A long word' is cut off"));
}

TEST(LayoutWalk, LetsNamesOfFilesBeShortenedInTheirMiddle)
{
    EXPECT_THAT(faultsIn("Text { text: 'A long word'; width: 50; elide: Text.ElideMiddle }"), IsEmpty());
}

TEST(LayoutWalk, FindsATextThatIsWiderThanItsItem)
{
    EXPECT_THAT(faultsIn("Text { text: 'A long word'; width: 20 }"),
                ElementsAre("QQuickText 'A long word' is painted outside its item"));
}

TEST(LayoutWalk, FindsATextInAnItemThatClipsIt)
{
    EXPECT_THAT(faultsIn("Item { width: 20; height: 20; clip: true; Text { text: 'Long' + ' word' } }"),
                ElementsAre("QQuickText 'Long word' is clipped"));
}

TEST(LayoutWalk, LetsATextBeScrolledIntoView)
{
    EXPECT_THAT(faultsIn("Flickable { width: 100; height: 20; clip: true; Text { y: 10; text: 'Word' } }"), IsEmpty());
}

TEST(LayoutWalk, FindsATextOutsideTheWindow)
{
    EXPECT_THAT(faultsIn("Text { x: 390; text: 'Word' }"), ElementsAre("QQuickText 'Word' stands outside the window"));
}

TEST(LayoutWalk, FindsALetterThatIsTooSmall)
{
    EXPECT_THAT(faultsIn("Text { text: 'Word'; font.pixelSize: 10 }"),
                ElementsAre("QQuickText 'Word' is only 10 high"));
}

TEST(LayoutWalk, FindsTextsOverEachOther)
{
    EXPECT_THAT(faultsIn("Text { text: 'One' } Text { x: 5; text: 'Two' }"),
                ElementsAre("QQuickText 'One' and QQuickText 'Two' overlap"));
}

TEST(LayoutWalk, FindsControlsOverEachOther)
{
    EXPECT_THAT(faultsIn("Item { objectName: 'a'; width: 50; height: 20; activeFocusOnTab: true }"
                         "Item { objectName: 'b'; x: 40; width: 50; height: 20; activeFocusOnTab: true }"),
                ElementsAre("QQuickItem 'a' and QQuickItem 'b' overlap"));
}

TEST(LayoutWalk, LooksOnlyAtWhatCanBeSeen)
{
    EXPECT_THAT(faultsIn("Text { text: 'One' } Text { x: 5; text: 'Two'; visible: false }"
                         "Item { opacity: 0; Text { text: 'Three' } }"),
                IsEmpty());
}

TEST(LayoutWalk, LooksOnlyAtTheGuideWhileItIsShown)
{
    const std::string window = "Text { text: 'One' } Text { x: 5; text: 'Two' }"
                               "Item { objectName: 'onboardingOverlay'; visible: %;"
                               " Text { text: 'Three'; font.pixelSize: 9 } }";
    const auto with = [&](const char* visible) { return std::string(window).replace(window.find('%'), 1, visible); };
    EXPECT_THAT(faultsIn(with("true").c_str()), ElementsAre("QQuickText 'Three' is only 9 high"));
    EXPECT_THAT(faultsIn(with("false").c_str()), ElementsAre("QQuickText 'One' and QQuickText 'Two' overlap"));
}

TEST(LayoutWalk, LooksOnlyAtWhatAModalPopupLeavesInReach)
{
    EXPECT_THAT(faultsIn("Text { text: 'One' } Text { x: 5; text: 'Two' }"
                         "T.Popup { visible: true; modal: true; width: 100; height: 50; parent: T.Overlay.overlay;"
                         " contentItem: Item { Text { text: 'Three'; font.pixelSize: 9 } } }"),
                ElementsAre("QQuickText 'Three' is only 9 high"));
}

}
}

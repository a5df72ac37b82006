// SPDX-License-Identifier: GPL-3.0-or-later
#include "journeys/window/LayoutWalk.h"
#include "journeys/window/WindowJourney.h"

#include <QTest>

namespace zumeta {
namespace {

using namespace test;

struct Layout : WindowJourney {
    /// In every language and at every size of the window, as soon as it stands still.
    void expectNoFaults(const char* state)
    {
        for (const QSize size : {QSize(1024, 680), QSize(1400, 900), QSize(3840, 2160)}) {
            window().resize(size);
            ASSERT_TRUE(waitFor([&] { return window().contentItem()->size() == QSizeF(size); }));
            for (const AppLanguage language : kAllAppLanguages) {
                app().languages().setLanguage(language);
                expectNoFaults(state, size, language);
            }
        }
    }

private:
    void expectNoFaults(const char* state, QSize size, AppLanguage language)
    {
        QStringList faults;
        // What was just relabelled is laid out in the next frames.
        waitFor(
            [&] {
                QTest::qWait(20);
                faults = layoutFaults(window());
                return faults.isEmpty();
            },
            600);
        for (const QString& fault : faults)
            ADD_FAILURE() << state << " at " << size.width() << " x " << size.height() << " in "
                          << rawValue(language).toStdString() << ": " << fault.toStdString();
    }
};

TEST_F(Layout, OfTheStartScreenHoldsInEveryLanguage)
{
    open();
    expectNoFaults("start");
}

TEST_F(Layout, OfTheStepsHoldsInEveryLanguage)
{
    for (const int step : {1, 2, 3, 4}) {
        openStep(step);
        expectNoFaults(("step " + std::to_string(step)).c_str());
        close();
    }
}

TEST_F(Layout, OfWhatOpensOverTheStepsHoldsInEveryLanguage)
{
    openStep(4);
    app().session().addTrimMarkerAtCurrentTime();
    app().session().setShowExportSheet(true);
    ASSERT_TRUE(waitFor([&] { return item("exportSheetExport") != nullptr; }));
    expectNoFaults("export sheet");
    app().session().setShowExportSheet(false);
    ASSERT_TRUE(waitFor([&] { return !item("exportSheetExport"); }));
    click(item("shortcutHelpButton"));
    ASSERT_TRUE(waitFor([&] { return item("shortcutHelp") != nullptr; }));
    expectNoFaults("shortcuts");
}

}
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "journeys/desktop/OwnScreen.h"
#include "journeys/portal/LentDialogs.h"
#include "journeys/reader/OwnBus.h"
#include "platform/portal/PortalDialogs.h"

#include <QApplication>
#include <QtQml/qqmlextensionplugin.h>
#include <cstdio>
#include <gmock/gmock.h>
#include <optional>

Q_IMPORT_QML_PLUGIN(ZumetaPlugin)

int main(int argc, char** argv)
{
    ::testing::InitGoogleMock(&argc, argv);
    if (GTEST_FLAG_GET(list_tests)) // the build does that, which may have no X server
        return RUN_ALL_TESTS();
    using namespace zumeta::test;
    std::optional<OwnBus> bus;
    std::optional<OwnScreen> screen;
    try {
        bus.emplace();
        screen.emplace();
        LentDialogs::start();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    zumeta::borrowDialogsOfPortal(); // as the program does
    const QApplication application(argc, argv);
    const int result = RUN_ALL_TESTS();
    LentDialogs::end();
    return result;
}

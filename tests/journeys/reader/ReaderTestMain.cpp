// SPDX-License-Identifier: GPL-3.0-or-later
#include "journeys/desktop/OwnScreen.h"
#include "journeys/reader/OwnBus.h"

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
    qputenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1"); // no desktop is there to say that a reader listens
    std::optional<zumeta::test::OwnBus> bus;
    std::optional<zumeta::test::OwnScreen> screen;
    try {
        bus.emplace();
        screen.emplace();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "journeys/wayland/OwnCompositor.h"

#include <QApplication>
#include <QtQml/qqmlextensionplugin.h>
#include <cstdio>
#include <gmock/gmock.h>
#include <optional>

Q_IMPORT_QML_PLUGIN(ZumetaPlugin)

int main(int argc, char** argv)
{
    ::testing::InitGoogleMock(&argc, argv);
    if (GTEST_FLAG_GET(list_tests)) // the build does that, which may have no compositor
        return RUN_ALL_TESTS();
    std::optional<zumeta::test::OwnCompositor> compositor;
    try {
        compositor.emplace();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include <QApplication>
#include <QtQml/qqmlextensionplugin.h>
#include <gmock/gmock.h>

Q_IMPORT_QML_PLUGIN(ZumetaPlugin)

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen"); // the build runs this too, to list the tests
    const QApplication application(argc, argv);
    ::testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}

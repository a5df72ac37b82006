// SPDX-License-Identifier: GPL-3.0-or-later
#include <QCoreApplication>
#include <gmock/gmock.h>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    ::testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}

// SPDX-License-Identifier: GPL-3.0-or-later
// usage: one-instance FOLDER NAME [TOKEN]
//
// Starts as an application does. The first one says "first", then "again TOKEN" for each later start, until it is
// killed. A later one says "served".
#include "platform/instance/SingleInstance.h"

#include <QCoreApplication>
#include <cstdio>

int main(int argc, char** argv)
{
    using zumeta::SingleInstance;
    const QCoreApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    const auto say = [](const QByteArray& line) {
        std::puts(line.constData());
        std::fflush(stdout);
    };
    SingleInstance instance(words.value(1), words.value(2));
    QObject::connect(&instance, &SingleInstance::startedAgain,
                     [say](const QByteArray& token) { say("again " + token); });
    switch (instance.start(words.value(3).toUtf8())) {
    case SingleInstance::Start::isFirst:
        say("first");
        return QCoreApplication::exec();
    case SingleInstance::Start::isServed:
        say("served");
        return 0;
    case SingleInstance::Start::goesAlone:
        say("alone");
        return 0;
    }
}

// SPDX-License-Identifier: GPL-3.0-or-later
// Only a keyboard: nothing in Debian moves a pointer of a compositor without a screen.
#include "journeys/desktop/RealInput.h"
#include "support/ChildProcess.h"

#include <QStringList>
#include <stdexcept>

namespace zumeta::test::realinput {

namespace {

void send(std::vector<std::string> words)
{
    runOrThrow({"wtype", std::move(words), std::chrono::seconds(10), {}, {}});
}

[[noreturn]] void refusePointer()
{
    throw std::logic_error("there is no pointer on this screen");
}

}

int latency()
{
    return 60; // each program that types brings its keyboard along
}

void parkPointer() {}

void movePointer(QPoint)
{
    refusePointer();
}

void pressButton()
{
    refusePointer();
}

void releaseButton()
{
    refusePointer();
}

void pressKey(const QString& key)
{
    QStringList modifiers = key.split(u'+');
    const QString last = modifiers.takeLast();
    std::vector<std::string> words;
    for (const QString& modifier : modifiers)
        words.insert(words.end(), {"-M", modifier.toStdString()});
    words.insert(words.end(), {"-k", last.toStdString()});
    for (const QString& modifier : modifiers)
        words.insert(words.end(), {"-m", modifier.toStdString()});
    send(std::move(words));
}

void type(const QString& text)
{
    send({"-d", "5", text.toStdString()});
}

}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "journeys/desktop/RealInput.h"
#include "support/ChildProcess.h"

namespace zumeta::test::realinput {

namespace {

void send(std::vector<std::string> words)
{
    runOrThrow({"xdotool", std::move(words), std::chrono::seconds(10), {}, {}});
}

}

int latency()
{
    return 20;
}

void parkPointer()
{
    movePointer({1599, 999});
}

void movePointer(QPoint place)
{
    send({"mousemove", std::to_string(place.x()), std::to_string(place.y())});
}

void pressButton()
{
    send({"mousedown", "1"});
}

void releaseButton()
{
    send({"mouseup", "1"});
}

void pressKey(const QString& key)
{
    send({"key", key.toStdString()});
}

void type(const QString& text)
{
    send({"type", "--delay", "5", text.toStdString()});
}

}

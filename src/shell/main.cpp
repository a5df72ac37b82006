// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/portal/PortalDialogs.h"
#include "shell/ApplicationIdentity.h"
#include "shell/Program.h"

#include <QApplication>
#include <csignal>

int main(int argc, char** argv)
{
    // A file that grows past a limit is an error of the write, told like a full disk, and no reason to be killed.
    std::signal(SIGXFSZ, SIG_IGN);
    zumeta::nameApplication();
    zumeta::borrowDialogsOfPortal();
    // The desktop's own file dialogs are widgets.
    QApplication application(argc, argv);
    zumeta::giveApplicationItsIcon();
    return zumeta::runProgram(application);
}

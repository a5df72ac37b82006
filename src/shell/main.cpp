// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/ApplicationIdentity.h"
#include "shell/RendererChoice.h"
#include "shell/ZumetaApp.h"

#include <QApplication>
#include <csignal>
#include <cstdlib>

int main(int argc, char** argv)
{
    // A file that grows past a limit is an error of the write, told like a full disk, and no reason to be killed.
    std::signal(SIGXFSZ, SIG_IGN);
    zumeta::nameApplication();
    // The desktop's own file dialogs are widgets.
    const QApplication application(argc, argv);
    zumeta::giveApplicationItsIcon();
    zumeta::chooseSceneGraph();
    zumeta::ZumetaApp zumeta;
    if (!zumeta.window())
        return EXIT_FAILURE;
    zumeta.showWindow();
    return QApplication::exec();
}

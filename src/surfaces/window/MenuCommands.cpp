// SPDX-License-Identifier: GPL-3.0-or-later
// What the items of the menus do.
#include "platform/BundleInfo.h"
#include "platform/LegalLinks.h"
#include "platform/NotificationCenter.h"
#include "session/CompositorViewModel.h"
#include "surfaces/theme/SurfaceContext.h"
#include "surfaces/window/CheckForUpdatesViewModel.h"
#include "surfaces/window/MenuModel.h"

#include <QDesktopServices>
#include <QGuiApplication>
#include <QWindow>

namespace zumeta {

namespace {

void toggleMaximised(QWindow& window)
{
    if (window.windowStates() == Qt::WindowMaximized)
        window.showNormal();
    else
        window.showMaximized();
}

}

MenuFacts MenuModel::facts() const
{
    const CompositorViewModel& session = m_context.session();
    using Step = PublishedFields::WorkflowStep;
    const Step step = session.currentStep();
    return {.isWindowFree = m_context.modality().enablesMenuItems(),
            .isCompositeStep = step >= Step::step3,
            .hasTimeline = session.duration() > 0,
            .isSideLocked = (step == Step::step1 && session.manualSyncTimeAbove()) ||
                            (step == Step::step2 && session.manualSyncTimeBelow()),
            .canCheckForUpdates = m_context.updates() && m_context.updates()->canCheckForUpdates(),
            .edited = m_edited.facts()};
}

void MenuModel::perform(MenuCommand command)
{
    switch (command) {
    case MenuCommand::about:
        m_isAboutShown = true;
        Q_EMIT isAboutShownChanged();
        return;
    case MenuCommand::checkForUpdates:
        return m_context.updates()->checkForUpdates(); // without them there is no such item
    case MenuCommand::saveProject:
        return m_context.session().prepareProjectForSave();
    case MenuCommand::openProject:
        return m_context.session().setShowOpenProjectPanel(true);
    case MenuCommand::help:
        QDesktopServices::openUrl(LegalLinks::configuredIn(BundleInfo::main()).support);
        return;
    case MenuCommand::privacyPolicy:
        QDesktopServices::openUrl(LegalLinks::configuredIn(BundleInfo::main()).privacy);
        return;
    case MenuCommand::terms:
        QDesktopServices::openUrl(LegalLinks::configuredIn(BundleInfo::main()).terms);
        return;
    case MenuCommand::showFirstRunGuide:
        return m_context.notifications().post(notifications::kShowFirstRunGuide);
    case MenuCommand::undo:
    case MenuCommand::redo:
    case MenuCommand::cut:
    case MenuCommand::copy:
    case MenuCommand::paste:
    case MenuCommand::deleteSelection:
    case MenuCommand::selectAll:
        return m_edited.perform(command);
    default:
        performOnWindow(command);
        performOnPlayback(command);
    }
}

void MenuModel::performOnWindow(MenuCommand command)
{
    QWindow* const window = QGuiApplication::focusWindow();
    if (!window)
        return;
    switch (command) {
    case MenuCommand::closeWindow:
        window->close();
        return;
    case MenuCommand::minimize:
        return window->showMinimized();
    case MenuCommand::zoom:
        return toggleMaximised(*window);
    case MenuCommand::bringAllToFront:
        window->raise();
        return window->requestActivate();
    default:
        return;
    }
}

void MenuModel::performOnPlayback(MenuCommand command)
{
    CompositorViewModel& session = m_context.session();
    switch (command) {
    case MenuCommand::playPause:
        return session.togglePlayPause();
    case MenuCommand::stepForward:
        return session.step(1);
    case MenuCommand::stepBackward:
        return session.step(-1);
    case MenuCommand::stepForward10:
        return session.step(10);
    case MenuCommand::stepBackward10:
        return session.step(-10);
    case MenuCommand::stop:
        return session.pause();
    case MenuCommand::rewind:
        return session.adjustPlaybackRate(false);
    case MenuCommand::fastForward:
        return session.adjustPlaybackRate(true);
    default:
        return;
    }
}

}

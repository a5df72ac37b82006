// SPDX-License-Identifier: GPL-3.0-or-later
#include "zumeta-render/ProjectRender.h"

#include "platform/interrupts/InterruptWatcher.h"
#include "zumeta-render/HeadlessSession.h"
#include "zumeta-render/RenderJob.h"

namespace zumeta {

namespace {

void restore(HeadlessSession& headless, const FileUrl& project)
{
    CompositorViewModel& session = headless.session();
    bool isRestored = false;
    std::optional<QString> error;
    const QObject here;
    QObject::connect(&session, &CompositorViewModel::projectRestored, &here, [&isRestored] { isRestored = true; });
    QObject::connect(&session, &CompositorViewModel::projectLoadFailed, &here,
                     [&error](const QString& text) { error = text; });
    session.loadProject(project);
    headless.runUntil([&] { return isRestored || error; });
    if (error)
        throw RenderFailure(error->toStdString());
}

void checkSide(const std::optional<VideoAsset>& asset, bool isMissing, const std::string& side)
{
    if (!asset)
        throw RenderFailure("the project has no " + side + " video");
    if (isMissing)
        throw RenderFailure("the " + side + " video of the project cannot be found: " + asset->fileName.toStdString());
}

void exportAndWait(HeadlessSession& headless, ProgressDisplay::Style progressStyle)
{
    CompositorViewModel& session = headless.session();
    // From here on an interruption ends the export, which leaves no file.
    const InterruptWatcher interrupts;
    QObject::connect(&interrupts, &InterruptWatcher::interrupted, &session, &CompositorViewModel::cancelExport);
    ProgressDisplay progress(progressStyle);
    QObject::connect(&session, &CompositorViewModel::exportProgressChanged, &interrupts,
                     [&] { progress.show(session.exportProgress()); });
    session.exportVideo(false);
    headless.runUntil([&] { return session.exportNotification() || headless.refusal(); });
    progress.end();
    if (headless.refusal())
        throw RenderFailure(headless.refusal()->toStdString());
    if (session.exportNotification()->isError)
        throw RenderFailure(session.exportNotification()->message.toStdString());
}

}

void renderProject(const RenderRequest& request, ProgressDisplay::Style progressStyle)
{
    checkPlaces(request);
    HeadlessSession headless(request.output);
    CompositorViewModel& session = headless.session();
    session.setSelectedCamera(request.camera);
    restore(headless, *request.project);
    checkSide(session.projectState().aboveVideo, session.isAboveMissing(), "above");
    checkSide(session.projectState().belowVideo, session.isBelowMissing(), "below");
    if (request.resolution)
        session.setSelectedResolution(*request.resolution);
    exportAndWait(headless, progressStyle);
}

}

// SPDX-License-Identifier: GPL-3.0-or-later
// The export with a preset of the encoder in place of the house's settings: what is left to compare with a general
// command at that preset is everything but the encoder.
#include "platform/Log.h"
#include "render/export/ExportService.h"
#include "zumeta-render/RenderJob.h"

#include <QCoreApplication>
#include <cstdio>

using namespace zumeta;

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const LogCapture noLines([](const QString&) {});
    if (argc < 2) {
        std::fputs("usage: export-at-preset PRESET [what zumeta-render takes]\n", stderr);
        return 2;
    }
    const auto parsed = parseRenderArguments({argv + 2, argv + argc});
    const auto* const request = std::get_if<RenderRequest>(&parsed);
    if (!request)
        return 2;
    const RenderJob job = prepareRenderJob(*request);
    ExportEnvironment environment = environmentOf(job);
    environment.encoderPreset = argv[1];
    ExportService service(environment);
    const ExportOutcome outcome = service.start(job.params, request->output, [](double) {}).result();
    if (!outcome)
        return 0;
    std::fprintf(stderr, "%s\n", outcome->what());
    return 1;
}

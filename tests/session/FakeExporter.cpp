// SPDX-License-Identifier: GPL-3.0-or-later
#include "FakeExporter.h"

namespace zumeta::test {

Task<std::optional<StorageRequirement>>
FakeExporter::storageRequirement(double exportDuration, ExportResolutionType resolution, FileUrl output)
{
    question = StorageQuestion{exportDuration, resolution, output};
    co_await m_time.pass(m_script.storageDelay);
    co_return m_script.storage;
}

Task<ExportOutcome> FakeExporter::exportComposite(ExportParameters parameters, FileUrl output,
                                                  std::function<void(double)> progress)
{
    params = parameters;
    outputURL = output;
    progressHandler = progress;
    constexpr int kFrames = 1000;
    for (int frame = 1; frame <= kFrames && !m_isCancelled; ++frame) {
        co_await m_time.pass(m_script.seconds / kFrames);
        if (frame % (kFrames / 10) == 0 && !m_script.error)
            progress(double(frame) / kFrames);
    }
    if (m_isCancelled)
        co_await m_time.pass(m_script.endingDelay);
    hasEnded = true;
    if (m_isCancelled && !m_script.finishesInSpiteOfCancel)
        co_return ExportError(ExportError::Case::exportCancelled);
    co_return m_script.error;
}

}

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "render/export/Exporter.h"
#include "support/VirtualTime.h"

#include <optional>

namespace zumeta::test {

/// How an export goes. Times in seconds.
struct ExportScript {
    std::optional<StorageRequirement> storage;
    double storageDelay = 0.1;
    double seconds = 10;       ///< to the end, telling each tenth
    double endingDelay = 0.03; ///< from a cancel to the end
    std::optional<ExportError> error;
    bool finishesInSpiteOfCancel = false;
};

/// An export in virtual time.
class FakeExporter final : public Exporter {
public:
    FakeExporter(VirtualTime& time, ExportScript script)
        : m_time(time)
        , m_script(std::move(script))
    {}
    Task<std::optional<StorageRequirement>> storageRequirement(double exportDuration, ExportResolutionType resolution,
                                                               FileUrl outputURL) override;
    Task<ExportOutcome> exportComposite(ExportParameters params, FileUrl outputURL,
                                        std::function<void(double)> progressHandler) override;
    void cancel() override { m_isCancelled = true; }
    bool isCancelled() const override { return m_isCancelled; }

    // What it was asked.
    struct StorageQuestion {
        double exportDuration = 0;
        ExportResolutionType resolution = ExportResolutionType::hd720;
        FileUrl outputURL;
    };
    std::optional<StorageQuestion> question;
    std::optional<ExportParameters> params; ///< once it has started
    FileUrl outputURL;
    std::function<void(double)> progressHandler;
    bool hasEnded = false;

private:
    VirtualTime& m_time;
    const ExportScript m_script;
    bool m_isCancelled = false;
};

}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/ProxyExport.h"

namespace zumeta {

ProxyExportOpener transcodingExports(PictureScalingMaker scaling)
{
    return [scaling = std::move(scaling)](const FileUrl& source, int threads, std::stop_token stop) {
        TranscoderOptions options;
        options.threads = threads;
        options.scaling = scaling;
        const std::shared_ptr<Transcoder> transcoder = Transcoder::open(source, std::move(options), std::move(stop));
        return [transcoder](const FileUrl& output, const std::function<void(double)>& progress) {
            transcoder->write(output, progress);
        };
    };
}

}

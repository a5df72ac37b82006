// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/Transcoder.h"

#include <functional>
#include <stop_token>

namespace zumeta {

/// Writes one proxy to a new file, telling the fraction done as it goes on. Throws; a MovieError has the words.
using ProxyExport = std::function<void(const FileUrl& output, const std::function<void(double)>& progress)>;

/// Opens a source for a proxy that is to be made on so many threads. Throws when none can be made of it. Both functions
/// run on a worker thread, several at once.
using ProxyExportOpener = std::function<ProxyExport(const FileUrl& source, int threads, std::stop_token stop)>;

/// The real one: fitted into 1280 x 720 by a Transcoder. `scaling` as in its options.
ProxyExportOpener transcodingExports(PictureScalingMaker scaling = {});

}

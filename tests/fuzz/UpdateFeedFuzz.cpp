// SPDX-License-Identifier: GPL-3.0-or-later
// Whatever the bytes are, reading them ends in a feed or in a problem; a feed has a page that a browser may be sent to,
// and a version that reads like its text.
#include "platform/updates/FeedAddress.h"
#include "platform/updates/UpdateFeed.h"

#include <cstdlib>

namespace {

void require(bool condition)
{
    if (!condition)
        std::abort();
}

}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const auto parsed = zumeta::UpdateFeed::parsed(QByteArray(reinterpret_cast<const char*>(data), qsizetype(size)));
    if (const auto* const feed = std::get_if<zumeta::UpdateFeed>(&parsed)) {
        require(zumeta::isDownloadPage(feed->page));
        require(zumeta::ReleaseVersion::parsed(feed->versionText) == feed->version);
    } else {
        require(std::get<zumeta::UpdateProblem>(parsed).kind == zumeta::UpdateProblem::Kind::feedUnreadable);
    }
    return 0;
}

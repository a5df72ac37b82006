// SPDX-License-Identifier: GPL-3.0-or-later
// Whatever the bytes are, reading them ends in a state or in a ProjectFileError; a state that was read is written again
// and reads back equal, and its bytes do not change any more.
#include "model/ProjectFileError.h"
#include "model/ProjectState.h"

#include <cstdlib>
#include <optional>

namespace {

std::optional<zumeta::ProjectState> decoded(const QByteArray& bytes)
{
    try {
        return zumeta::ProjectState::decode(bytes);
    } catch (const zumeta::ProjectFileError&) {
        return std::nullopt;
    }
}

void require(bool condition)
{
    if (!condition)
        std::abort();
}

}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const auto state = decoded(QByteArray(reinterpret_cast<const char*>(data), qsizetype(size)));
    if (!state)
        return 0;
    const QByteArray written = state->encode();
    const auto again = decoded(written);
    require(again.has_value());
    require(*again == *state);
    require(again->encode() == written);
    return 0;
}

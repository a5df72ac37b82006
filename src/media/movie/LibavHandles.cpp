// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/movie/LibavHandles.h"

#include <array>

namespace zumeta {

void quietLibav()
{
    av_log_set_level(AV_LOG_QUIET);
}

std::string avErrorText(int code)
{
    std::array<char, AV_ERROR_MAX_STRING_SIZE> text{};
    av_strerror(code, text.data(), text.size());
    return text.data();
}

int checkAv(int code, MovieError::Kind kind, const std::string& what)
{
    if (code < 0)
        throw MovieError(kind, what + ": " + avErrorText(code));
    return code;
}

}

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <stdexcept>
#include <string>

namespace zumeta {

/// What went wrong with a media file, by what a caller can do about it. The text is one line for people.
class MovieError : public std::runtime_error {
public:
    enum class Kind {
        cannotOpen,   ///< missing, unreadable, or not a media file
        noVideoTrack, ///< a media file without a picture
        cannotDecode, ///< no decoder for the track
        cannotEncode, ///< the encoder refused the settings or a frame
        cannotWrite,  ///< the output could not be made or written, a full disk among the reasons
        cannotStart,  ///< the output was made, but nothing could be written to it
        cancelled     ///< given up on request
    };

    MovieError(Kind kind, const std::string& text)
        : std::runtime_error(text)
        , m_kind(kind)
    {}
    Kind kind() const noexcept { return m_kind; }

private:
    Kind m_kind;
};

}

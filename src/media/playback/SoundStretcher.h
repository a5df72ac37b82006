// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/AudioReader.h"

#include <span>

namespace zumeta {

/// Makes sound faster or slower and keeps its pitch. Output sample n is what the input has around sample n * tempo:
/// nothing adds up, however long it runs. Interleaved stereo at AudioSource's rate.
///
/// Short pieces of the input, each taken from where the tempo says or a little beside it, are faded into each other.
/// The place beside is the one whose wave goes on best from the piece before. Pieces are short, so that a sharp sound
/// stays within 17 ms of its moment at half speed; longer ones are smoother in music and smear what one looks for in a
/// swim, a beep and a splash.
class SoundStretcher {
public:
    explicit SoundStretcher(double tempo);

    /// Takes more input and gives the output that can be made of it.
    std::vector<int16_t> stretch(std::span<const int16_t> input);
    /// The rest, after the last input.
    std::vector<int16_t> finish();

private:
    std::vector<int16_t> makeOutput(int64_t outputEnd);
    int64_t plannedStart(int64_t piece) const;
    int64_t bestStart(int64_t planned, int64_t continuation) const;
    double likeness(int64_t start, int64_t continuation, int64_t stride) const;
    void forgetUsed();
    int64_t inputEnd() const { return m_inputStart + int64_t(m_mono.size()); }
    const int16_t* frame(int64_t index) const;
    float mono(int64_t index) const { return m_mono[size_t(index - m_inputStart)]; }

    double m_tempo;
    std::vector<int16_t> m_input;
    std::vector<float> m_mono; ///< the same, both channels in one
    int64_t m_inputStart;      ///< the input sample that stands first in both
    int64_t m_inputCount = 0;  ///< samples that were put in, without padding
    int64_t m_piece = 0;
    int64_t m_continuation = 0; ///< where the piece before goes on in the input
};

}

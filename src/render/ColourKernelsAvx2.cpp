// SPDX-License-Identifier: GPL-3.0-or-later
// Compiled for AVX2: reached only through avx2ColourKernels().
#include "render/ColourLoops.h"

namespace zumeta {

const ColourKernels& avx2ColourKernels()
{
    return kColourKernels;
}

}

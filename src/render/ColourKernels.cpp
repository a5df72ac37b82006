// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/ColourKernels.h"

#include "render/ColourLoops.h"

namespace zumeta {

const ColourKernels& portableColourKernels()
{
    return kColourKernels;
}

const ColourKernels& bestColourKernels()
{
#if defined(__x86_64__)
    static const bool hasAvx2 = __builtin_cpu_supports("avx2");
    if (hasAvx2)
        return avx2ColourKernels();
#endif
    return portableColourKernels();
}

}

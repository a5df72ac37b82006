// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/preview/ScreenKernels.h"

#include "render/preview/ScreenLoops.h"

namespace zumeta {

const ScreenKernels& portableScreenKernels()
{
    return kScreenKernels;
}

const ScreenKernels& bestScreenKernels()
{
#if defined(__x86_64__)
    static const bool hasAvx2 = __builtin_cpu_supports("avx2");
    if (hasAvx2)
        return avx2ScreenKernels();
#endif
    return portableScreenKernels();
}

}

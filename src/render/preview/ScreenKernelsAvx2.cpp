// SPDX-License-Identifier: GPL-3.0-or-later
// Compiled for AVX2: reached only through avx2ScreenKernels().
#include "render/preview/ScreenLoops.h"

namespace zumeta {

const ScreenKernels& avx2ScreenKernels()
{
    return kScreenKernels;
}

}

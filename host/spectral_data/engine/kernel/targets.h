// SPDX-License-Identifier: GPL-3.0-or-later
// Instruction sets the kernels are built for. To be included before any header of the vector library.
#pragma once

// The kernels keep vectors in structs and ask for the lane count at compile time, so scalable vectors are
// out; the first generation of x86 shuffles is not worth its compile time.
#define HWY_DISABLED_TARGETS (HWY_SSSE3 | HWY_SVE | HWY_SVE2 | HWY_SVE_256 | HWY_SVE2_128 | HWY_RVV)

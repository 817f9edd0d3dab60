// SPDX-License-Identifier: GPL-3.0-or-later
// What was chosen in a spectrum view, and choosing it again.
#pragma once

#include "host/review/app/spectrum_look.h"

class Spectrum;

namespace orvanta::review {

SpectrumLook LookOf(const Spectrum& view);
/// Computes nothing.
void Choose(Spectrum& view, const SpectrumLook& look);

} // namespace orvanta::review

// SPDX-License-Identifier: GPL-3.0-or-later
// How far apart two colours look, also to eyes that lack one kind of cone.
#pragma once

#include "host/toolkit/geometry.h"

namespace orvanta::test {

enum class Vision { Normal, Protan, Deutan, Tritan };

/// Relative luminance, 0 black to 1 white (sRGB, IEC 61966-2-1).
double Luminance(owl::TColor color);

/// Contrast ratio of two luminances, 1 to 21 (WCAG 2).
double Contrast(double a, double b);

struct Lab {
    double l = 0;
    double a = 0;
    double b = 0;
};

/// CIE L*a*b* under D65, as seen with the given vision: complete protanopia, deuteranopia or tritanopia by
/// the matrices of Machado, Oliveira and Fernandes 2009 (IEEE Trans Vis Comput Graph 15:1291).
Lab LabOf(owl::TColor color, Vision vision = Vision::Normal);

/// CIEDE2000 with unit weights (Sharma, Wu and Dalal 2005, Color Res Appl 30:21).
double ColorDifference(const Lab& x, const Lab& y);

} // namespace orvanta::test

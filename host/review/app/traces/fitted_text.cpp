// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/fitted_text.h"

#include "host/toolkit/cut_text.h"

namespace orvanta::review {

std::string FittedText(const owl::TDC& dc, const std::string& text, int width) {
    if (dc.GetTextExtent(text).cx <= width) {
        return text;
    }
    // The longest part that fits lies between these many bytes.
    std::size_t fits = 0;
    std::size_t tooLong = text.size();
    const auto cut = [&text](std::size_t bytes) { return owl::CutAt(text, bytes) + "…"; };
    while (tooLong - fits > 1) {
        const std::size_t middle = fits + (tooLong - fits) / 2;
        (dc.GetTextExtent(cut(middle)).cx <= width ? fits : tooLong) = middle;
    }
    const std::string shortened = cut(fits);
    return fits > 0 && shortened.size() > 3 && dc.GetTextExtent(shortened).cx <= width ? shortened
                                                                                       : std::string();
}

} // namespace orvanta::review

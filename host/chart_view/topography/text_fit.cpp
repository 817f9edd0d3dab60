// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/topography/text_fit.h"

#include "host/toolkit/cut_text.h"

#include <algorithm>

namespace orvanta::chart {

std::string Elided(const owl::TDC& dc, std::string_view text, int width) {
    if (dc.GetTextExtent(text).cx <= width) {
        return std::string(text);
    }
    std::size_t fits = 0;
    std::size_t tooLong = text.size();
    const auto cut = [&](std::size_t bytes) {
        std::string shorter = owl::CutAt(std::string(text), bytes);
        while (shorter.ends_with(' ')) {
            shorter.pop_back();
        }
        return shorter + "…";
    };
    while (fits + 1 < tooLong) {
        const std::size_t middle = (fits + tooLong) / 2;
        (dc.GetTextExtent(cut(middle)).cx <= width ? fits : tooLong) = middle;
    }
    const std::string elided = cut(fits);
    return elided == "…" ? std::string() : elided;
}

std::vector<std::string> Wrapped(const owl::TDC& dc, std::string_view text, int width) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(' '), text.size());
        const std::string_view word = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (word.empty()) {
            continue;
        }
        const std::string longer = lines.empty() ? "" : lines.back() + ' ' + std::string(word);
        if (!lines.empty() && dc.GetTextExtent(longer).cx <= width) {
            lines.back() = longer;
        } else {
            lines.push_back(Elided(dc, word, width));
        }
    }
    return lines;
}

} // namespace orvanta::chart

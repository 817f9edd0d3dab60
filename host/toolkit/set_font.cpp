// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/set_font.h"

#include "host/toolkit/qt_painting.h"

#include <QCoreApplication>

#include <algorithm>
#include <vector>

namespace owl {

namespace {

constexpr std::size_t kFontsKept = 16;
constexpr std::size_t kTextsKept = 4096;

using Fonts = std::vector<std::shared_ptr<SetFont>>;

Fonts& KeptFonts() {
    static Fonts fonts;
    return fonts;
}

/// Fonts must not outlive the application object.
void ForgetFonts() {
    KeptFonts().clear();
}

} // namespace

SetFont::SetFont(const TFont& font)
    : description_(font), font_(ToQFont(font)), metrics_(font_), ascent_(metrics_.ascent()) {}

TSize SetFont::Extent(std::string_view text) {
    const auto known = widths_.find(text);
    if (known != widths_.end()) {
        return {known->second, metrics_.height()};
    }
    if (widths_.size() >= kTextsKept) {
        widths_.clear();
    }
    const int width = metrics_.horizontalAdvance(ToQString(text));
    widths_.emplace(text, width);
    return {width, metrics_.height()};
}

std::shared_ptr<SetFont> FontFor(const TFont& font) {
    Fonts& fonts = KeptFonts();
    const auto known =
        std::find_if(fonts.begin(), fonts.end(),
                     [&font](const std::shared_ptr<SetFont>& kept) { return kept->Description() == font; });
    if (known != fonts.end()) {
        return *known;
    }
    if (fonts.empty()) {
        qAddPostRoutine(ForgetFonts);
    }
    if (fonts.size() >= kFontsKept) {
        fonts.erase(fonts.begin());
    }
    fonts.push_back(std::make_shared<SetFont>(font));
    return fonts.back();
}

} // namespace owl

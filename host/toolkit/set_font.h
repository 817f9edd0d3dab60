// SPDX-License-Identifier: GPL-3.0-or-later
// Fonts and the extents of texts, looked up once.
#pragma once

#include "host/toolkit/dc.h"

#include <QFont>
#include <QFontMetrics>

#include <functional>
#include <memory>
#include <string>
#include <unordered_map>

namespace owl {

/// A font as Qt has it, and the extents of texts in it that were asked for. GUI thread.
class ORVANTA_TOOLKIT_API SetFont {
public:
    explicit SetFont(const TFont& font);

    const TFont& Description() const { return description_; }
    const QFont& Font() const { return font_; }
    int Ascent() const { return ascent_; }
    TSize Extent(std::string_view text);

private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
    };

    TFont description_;
    QFont font_;
    QFontMetrics metrics_;
    int ascent_;
    std::unordered_map<std::string, int, Hash, std::equal_to<>> widths_;
};

/// The font, kept from one painting to the next for as long as the application runs.
ORVANTA_TOOLKIT_API std::shared_ptr<SetFont> FontFor(const TFont& font);

} // namespace owl

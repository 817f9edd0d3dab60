// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/painting/measures_box.h"

#include "spectrum_view/painting/band_colors.h"
#include "spectrum_view/painting/plot_box.h"

#include <algorithm>
#include <array>

namespace orvanta::spectrum_view {

namespace {

constexpr std::array kOneCell{1, 2, 3, 4, 5};
constexpr std::array kFewCells{1, 3, 5};

constexpr owl::TColor kGrey = owl::Rgb(216, 216, 216);
constexpr std::uint8_t kOpacity = 160;
/// Under the coloured names, of which some are as light as the box.
constexpr owl::TColor kShadow = owl::Rgb(70, 70, 70);
/// Nobody reads smaller figures.
constexpr int kSmallestFont = 6;

bool IsDefined(const MeasuresRow& band) {
    return band.hi - band.lo > 0.01;
}

std::uint64_t CellsOf(const MeasuresBoxInput& input) {
    return input.columns <= 2 && input.rows <= 2 ? input.columns * input.rows : 0;
}

bool IsRowShown(const MeasuresBoxInput& input, int band) {
    return band < BandsLookedAt(input) && IsDefined(input.bands[static_cast<std::size_t>(band)]);
}

/// True when every text is narrower than its column.
bool FitColumns(const owl::TDC& dc, const MeasuresBoxInput& input, const MeasuresBoxGeometry& geometry) {
    const auto fits = [&](const std::string& text) {
        return dc.GetTextExtent(text).cx < geometry.columnWidth;
    };
    for (const int measure : MeasuresShown(CellsOf(input))) {
        if (!fits(input.measures[static_cast<std::size_t>(measure)])) {
            return false;
        }
    }
    for (int band = 0; band < static_cast<int>(input.bands.size()); ++band) {
        const MeasuresRow& row = input.bands[static_cast<std::size_t>(band)];
        const auto isTooWide = [&](int measure) {
            return !fits(row.values[static_cast<std::size_t>(measure)]);
        };
        const auto measures = MeasuresShown(CellsOf(input));
        if (IsRowShown(input, band) &&
            (!fits(row.name) || std::any_of(measures.begin(), measures.end(), isTooWide))) {
            return false;
        }
    }
    return true;
}

owl::TFont FontOf(const MeasuresBoxInput& input) {
    owl::TFont font = input.font;
    font.height = MeasuresFontHeight(input);
    return font;
}

MeasuresBoxGeometry GeometryIn(owl::TDC& dc, const MeasuresBoxInput& input) {
    dc.SelectFont(FontOf(input));
    return MeasuresBoxGeometryOf(input, dc.GetTextExtent(input.measures[0]).cy);
}

bool IsPainted(const owl::TDC& dc, const MeasuresBoxInput& input, const MeasuresBoxGeometry& geometry) {
    const owl::TRect& box = geometry.box;
    return geometry.columns > 0 && MeasuresFontHeight(input) >= kSmallestFont &&
           box.left >= input.cell.left && box.right <= input.cell.right && box.bottom <= input.cell.bottom &&
           FitColumns(dc, input, geometry);
}

void PaintBackground(owl::TDC& dc, const owl::TRect& box) {
    dc.BlendRect(box, kGrey, kOpacity);
    dc.SelectPen({kGrey, 1, owl::PenStyle::Solid});
    dc.Polyline(std::array<owl::TPoint, 5>{{{box.left, box.top},
                                            {box.right, box.top},
                                            {box.right, box.bottom},
                                            {box.left, box.bottom},
                                            {box.left, box.top}}});
}

void PaintRow(owl::TDC& dc, const MeasuresBoxInput& input, const MeasuresBoxGeometry& geometry, int band) {
    const MeasuresRow& row = input.bands[static_cast<std::size_t>(band)];
    const int y = geometry.RowTop(band);
    const auto place = static_cast<std::size_t>(band);
    dc.SetTextColor(kShadow);
    dc.TextOut({geometry.NameRight() + 1, y + 1}, row.name);
    dc.SetTextColor(place < kBandColors.size() ? kBandColors[place] : kBlack);
    dc.TextOut({geometry.NameRight(), y}, row.name);
    dc.SetTextColor(kBlack);
    int column = 0;
    for (const int measure : MeasuresShown(CellsOf(input))) {
        dc.TextOut({geometry.ColumnRight(column++), y}, row.values[static_cast<std::size_t>(measure)]);
    }
}

} // namespace

std::span<const int> MeasuresShown(std::uint64_t cells) {
    if (cells == 1) {
        return kOneCell;
    }
    return cells >= 2 && cells <= 4 ? std::span<const int>(kFewCells) : std::span<const int>();
}

int BandsLookedAt(const MeasuresBoxInput& input) {
    const std::uint64_t cells = CellsOf(input);
    if (cells == 1) {
        return static_cast<int>(std::count_if(input.bands.begin(), input.bands.end(), IsDefined));
    }
    return cells == 0 ? 0 : static_cast<int>(kBandColors.size());
}

int MeasuresFontHeight(const MeasuresBoxInput& input) {
    return static_cast<int>(input.font.height * std::min(input.cell.Width(), input.cell.Height()) * 1.0 *
                            0.025 / 14.0);
}

MeasuresBoxGeometry MeasuresBoxGeometryOf(const MeasuresBoxInput& input, int lineHeight) {
    MeasuresBoxGeometry geometry;
    geometry.right = SlotX(input.cell, 0.92);
    geometry.top = SlotY(input.cell, 0.05 + 0.08);
    geometry.columnWidth = SlotX(input.firstCell, 0.08);
    geometry.lineHeight = lineHeight;
    geometry.columns = static_cast<int>(MeasuresShown(CellsOf(input)).size());
    const int left = geometry.right - (geometry.columns + 1) * geometry.columnWidth;
    const int width = static_cast<int>(geometry.columnWidth * (geometry.columns + 1.1));
    const int height = static_cast<int>(lineHeight * 1.3 * (BandsLookedAt(input) + 1));
    geometry.box = {left, geometry.top, left + width, geometry.top + height};
    return geometry;
}

owl::TRect MeasuresBoxRect(owl::TDC& dc, const MeasuresBoxInput& input) {
    const MeasuresBoxGeometry geometry = GeometryIn(dc, input);
    return IsPainted(dc, input, geometry) ? geometry.box : owl::TRect();
}

void PaintMeasuresBox(owl::TDC& dc, const MeasuresBoxInput& input) {
    const MeasuresBoxGeometry geometry = GeometryIn(dc, input);
    if (!IsPainted(dc, input, geometry)) {
        return;
    }
    const owl::TextAlign before = dc.SetTextAlign(owl::TextAlign::Right);
    PaintBackground(dc, geometry.box);
    dc.SetTextColor(kBlack);
    int column = 0;
    for (const int measure : MeasuresShown(CellsOf(input))) {
        dc.TextOut({geometry.ColumnRight(column++), geometry.top},
                   input.measures[static_cast<std::size_t>(measure)]);
    }
    for (int band = 0; band < BandsLookedAt(input); ++band) {
        if (IsRowShown(input, band)) {
            PaintRow(dc, input, geometry, band);
        }
    }
    dc.SetTextAlign(before);
}

} // namespace orvanta::spectrum_view

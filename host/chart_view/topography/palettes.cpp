// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/topography/palettes.h"

#include <algorithm>
#include <cmath>

namespace orvanta::chart {

namespace {

/// Every fifth colour, 0xRRGGBB. What lies between is on the straight line, off by at most 1 of 255, in
/// cividis by 4.
constexpr std::size_t kStep = 5;
using Stops = std::array<std::uint32_t, kPaletteColors / kStep + 1>;

// Of matplotlib (S. van der Walt, N. Smith; CC0).
constexpr Stops kViridis = {0x440154, 0x46085C, 0x471063, 0x481769, 0x481D6F, 0x482475, 0x472A7A, 0x46307E,
                            0x453781, 0x433D84, 0x414287, 0x3F4889, 0x3D4E8A, 0x3A538B, 0x38598C, 0x355E8D,
                            0x33638D, 0x31688E, 0x2E6D8E, 0x2C718E, 0x2A768E, 0x297B8E, 0x27808E, 0x25848E,
                            0x23898E, 0x218E8D, 0x20928C, 0x1F978B, 0x1E9C89, 0x1FA188, 0x21A585, 0x24AA83,
                            0x28AE80, 0x2EB37C, 0x35B779, 0x3DBC74, 0x46C06F, 0x50C46A, 0x5AC864, 0x65CB5E,
                            0x70CF57, 0x7CD250, 0x89D548, 0x95D840, 0xA2DA37, 0xB0DD2F, 0xBDDF26, 0xCAE11F,
                            0xD8E219, 0xE5E419, 0xF1E51D, 0xFDE725};
constexpr Stops kInferno = {0x000004, 0x02020C, 0x050417, 0x0A0722, 0x10092D, 0x160B39, 0x1E0C45, 0x260C51,
                            0x2F0A5B, 0x380962, 0x400A67, 0x490B6A, 0x510E6C, 0x59106E, 0x61136E, 0x69166E,
                            0x71196E, 0x781C6D, 0x801F6C, 0x88226A, 0x902568, 0x982766, 0xA02A63, 0xA82E5F,
                            0xB0315B, 0xB73557, 0xBF3952, 0xC63D4D, 0xCC4248, 0xD34743, 0xD94D3D, 0xDF5337,
                            0xE45A31, 0xE9612B, 0xED6925, 0xF1711F, 0xF47918, 0xF78212, 0xF98B0B, 0xFA9407,
                            0xFB9D07, 0xFCA60C, 0xFCB014, 0xFBBA1F, 0xFAC42A, 0xF8CD37, 0xF6D746, 0xF4E156,
                            0xF2EA69, 0xF2F27D, 0xF5F992, 0xFCFFA4};

// J. R. Nuñez, C. R. Anderton, R. S. Renslow, PLOS ONE 13 (2018) e0199239: the same to normal and to
// red-green colour vision.
constexpr Stops kCividis = {0x00224E, 0x002656, 0x002A5F, 0x002D68, 0x003070, 0x083370, 0x163770, 0x203A6F,
                            0x273E6E, 0x2E416D, 0x34456C, 0x3A486C, 0x3F4C6C, 0x444F6C, 0x49536C, 0x4E566C,
                            0x535A6D, 0x575D6D, 0x5C616E, 0x60646F, 0x656870, 0x696B71, 0x6D6F72, 0x727274,
                            0x767676, 0x7A7A78, 0x7E7D78, 0x838179, 0x888578, 0x8D8878, 0x928C78, 0x969077,
                            0x9B9476, 0xA09875, 0xA59C74, 0xAAA073, 0xAFA471, 0xB5A86F, 0xBAAC6D, 0xBFB06B,
                            0xC4B468, 0xC9B965, 0xCFBD62, 0xD4C15F, 0xDAC65B, 0xDFCA57, 0xE5CF52, 0xEAD34C,
                            0xF0D846, 0xF6DD3F, 0xFCE236, 0xFEE838};

// A. Mikhailov, 2019: the hues of a rainbow without its false edges.
constexpr Stops kTurbo = {0x30123B, 0x36215F, 0x3B2F80, 0x3F3E9C, 0x424BB5, 0x4559CB, 0x4666DD, 0x4773EB,
                          0x4680F6, 0x458CFD, 0x4099FF, 0x38A5FB, 0x2FB2F4, 0x27BEE9, 0x1FC9DD, 0x1AD4D0,
                          0x18DDC2, 0x1AE4B6, 0x22EBAA, 0x2FF19B, 0x3FF68A, 0x52FA7A, 0x65FD69, 0x79FE59,
                          0x8BFF4B, 0x9CFE40, 0xA9FB39, 0xB7F735, 0xC3F134, 0xD0EA34, 0xDBE236, 0xE5D938,
                          0xEECF3A, 0xF5C53A, 0xFABA39, 0xFDAE35, 0xFEA130, 0xFE932A, 0xFC8423, 0xF9751D,
                          0xF46617, 0xEF5811, 0xE84B0C, 0xE14109, 0xD83706, 0xCE2D04, 0xC32503, 0xB71D02,
                          0xA91601, 0x9B0F01, 0x8B0902, 0x7A0403};

double Channel(std::uint32_t color, unsigned shift) {
    return color >> shift & 0xFFU;
}

owl::TColor Between(std::uint32_t from, std::uint32_t to, double share) {
    const auto channel = [&](unsigned shift) {
        return static_cast<std::uint8_t>(
            std::lround(std::lerp(Channel(from, shift), Channel(to, shift), share)));
    };
    return owl::Rgb(channel(16), channel(8), channel(0));
}

Colors OfStops(const Stops& stops) {
    Colors colors{};
    for (std::size_t i = 0; i < kPaletteColors; ++i) {
        const std::size_t stop = std::min(i / kStep, stops.size() - 2);
        const double share = static_cast<double>(i - stop * kStep) / kStep;
        colors[i] = Between(stops[stop], stops[stop + 1], share);
    }
    return colors;
}

/// White in the middle, both halves equally far from it: a difference of 0 is white and the sign is a hue.
Colors Difference() {
    constexpr std::array<std::uint32_t, 5> kHalfAnchors = {0x0B2A6F, 0x2F6FC4, 0xF7F7F7, 0xD6493B, 0x6E0A1E};
    Colors colors{};
    for (std::size_t i = 0; i < kPaletteColors; ++i) {
        const double at = static_cast<double>(i) / (kPaletteColors - 1) * (kHalfAnchors.size() - 1);
        const auto anchor = std::min(static_cast<std::size_t>(at), kHalfAnchors.size() - 2);
        colors[i] = Between(kHalfAnchors[anchor], kHalfAnchors[anchor + 1], at - static_cast<double>(anchor));
    }
    return colors;
}

Colors Grey() {
    Colors colors{};
    for (std::size_t i = 0; i < kPaletteColors; ++i) {
        colors[i] = owl::Rgb(static_cast<std::uint8_t>(i), static_cast<std::uint8_t>(i),
                             static_cast<std::uint8_t>(i));
    }
    return colors;
}

} // namespace

std::span<const Palette> Palettes() {
    static const std::array<Palette, 6> palettes = {
        Palette{"viridis", OfStops(kViridis)}, Palette{"cividis", OfStops(kCividis)},
        Palette{"inferno", OfStops(kInferno)}, Palette{"difference", Difference()},
        Palette{"turbo", OfStops(kTurbo)},     Palette{"grey", Grey()},
    };
    return palettes;
}

const Palette* FindPalette(std::string_view name) {
    const auto all = Palettes();
    const auto found =
        std::find_if(all.begin(), all.end(), [name](const Palette& palette) { return palette.name == name; });
    return found == all.end() ? nullptr : &*found;
}

std::size_t ColorIndex(double value, double low, double high) {
    if (!(high > low)) {
        return value > low ? kPaletteColors - 1 : value < low ? 0 : kPaletteColors / 2;
    }
    const double share = std::clamp((value - low) / (high - low), 0.0, 1.0);
    return static_cast<std::size_t>(std::lround(share * (kPaletteColors - 1)));
}

} // namespace orvanta::chart

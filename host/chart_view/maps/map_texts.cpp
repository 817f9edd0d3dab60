// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/maps/map_texts.h"

#include "host/toolkit/form_texts.h"
#include "host/toolkit/message_module.h"
#include "spectra_contract/platform.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <limits>
#include <numeric>

namespace orvanta::chart {

std::string MapText(const char* key, const std::string& builtIn) {
    return owl::TextOr(PModule::Named("Orvanta"), "Maps", key, builtIn);
}

int DecimalsFor(const ValueRange& scale) {
    constexpr int kDigits = 3;
    constexpr int kDigitsOfWidth = 2;
    constexpr int kMostDecimals = 9;
    const double largest = std::max(std::abs(scale.low), std::abs(scale.high));
    if (!(largest > 0) || !std::isfinite(largest)) {
        return 1;
    }
    const auto decimals = [](double number, int digits) {
        return digits - 1 - static_cast<int>(std::floor(std::log10(number)));
    };
    const double width = std::min(scale.high - scale.low, std::numeric_limits<double>::max());
    return std::clamp(std::max(decimals(largest, kDigits), width > 0 ? decimals(width, kDigitsOfWidth) : 0),
                      0, kMostDecimals);
}

std::string NumberText(const GenericPlatform* platform, double value, int decimals) {
    if (std::abs(value) < 0.5 * std::pow(10, -decimals)) {
        value = 0; // and not "-0.0"
    }
    std::array<char, 64> text{};
    if (platform != nullptr) {
        platform->FloatToStrLoc(text.data(), static_cast<int>(text.size()), value, decimals);
    } else {
        std::snprintf(text.data(), text.size(), std::isfinite(value) ? "%.*f" : "n/a", decimals, value);
    }
    return text.data();
}

ColorScale ColorScaleOf(const GenericPlatform* platform, const ValueRange& scale, const std::string& unit) {
    const int decimals = DecimalsFor(scale);
    ColorScale shown{scale.low, scale.high, {}, unit};
    if (scale.high > scale.low) {
        for (const double value : {scale.low, std::midpoint(scale.low, scale.high), scale.high}) {
            shown.numbers.push_back(NumberText(platform, value, decimals));
        }
    } else {
        shown.numbers.push_back(NumberText(platform, scale.low, decimals));
    }
    return shown;
}

} // namespace orvanta::chart

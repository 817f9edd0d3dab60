// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/statistics/regression.h"

#include "host/spectral_data/not_computable.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace orvanta::spectral {

void LineFit::Add(double x, double y) {
    if (!std::isfinite(x) || !std::isfinite(y)) {
        return;
    }
    if (count_ == 0) {
        originX_ = x;
        originY_ = y;
    }
    ++count_;
    const double fromOriginX = x - originX_;
    const double fromOriginY = y - originY_;
    const double dx = fromOriginX - meanX_; // from the mean without this pair
    const double dy = fromOriginY - meanY_;
    const auto count = static_cast<double>(count_);
    meanX_ += dx / count;
    meanY_ += dy / count;
    xx_ += dx * (fromOriginX - meanX_);
    yy_ += dy * (fromOriginY - meanY_);
    xy_ += dx * (fromOriginY - meanY_);
}

Line LineFit::Result() const {
    Line line{kNaN, kNaN, kNaN, count_};
    // Equal values deviate by exactly 0 from their mean, which lies at the origin.
    if (count_ >= 2 && xx_ > 0) {
        line.slope = xy_ / xx_;
        line.intercept = (originY_ + meanY_) - line.slope * (originX_ + meanX_);
        if (yy_ > 0) {
            line.r = std::clamp(xy_ / std::sqrt(xx_) / std::sqrt(yy_), -1.0, 1.0);
        }
    }
    return line;
}

Line FitLine(std::span<const double> x, std::span<const double> y) {
    if (x.size() != y.size()) {
        throw std::invalid_argument("FitLine: x and y differ in length");
    }
    LineFit fit;
    for (std::size_t i = 0; i < x.size(); ++i) {
        fit.Add(x[i], y[i]);
    }
    return fit.Result();
}

} // namespace orvanta::spectral

// SPDX-License-Identifier: GPL-3.0-or-later
// What is gathered over epochs.
#pragma once

#include "host/spectral_data/engine/aligned_array.h"
#include "host/spectral_data/engine/engine.h"
#include "host/spectral_data/engine/setup.h"

namespace orvanta::spectral {

/// Moments of columns of values for the sensors (group by group, a row of lanes for each column) and then for
/// the derived rows (column beside column, rounded up to whole vectors).
class MomentTable {
public:
    MomentTable() = default;
    template <class T>
    MomentTable(const Setup<T>& setup, std::size_t columns)
        : lanes_(setup.lanes), groups_(setup.groups), columns_(columns),
          pitch_((columns + lanes_ - 1) / lanes_ * lanes_),
          mean_(CheckedProduct(columns, groups_ * lanes_) + CheckedProduct(setup.derivedRows, pitch_)),
          m2_(mean_.size()) {}

    std::size_t Bytes() const { return 2 * sizeof(double) * mean_.size(); }
    std::size_t GroupAt(std::size_t group) const { return group * columns_ * lanes_; }
    std::size_t DerivedAt(std::size_t row) const { return groups_ * columns_ * lanes_ + row * pitch_; }
    std::size_t GroupValues() const { return columns_ * lanes_; }
    std::size_t DerivedValues() const { return pitch_; }
    double* Mean(std::size_t at) { return mean_.data() + at; }
    double* M2(std::size_t at) { return m2_.data() + at; }

    void Clear();
    /// Merges the moments of later epochs.
    void Merge(const MomentTable& later, std::uint64_t before, std::uint64_t added);
    /// Rows of \p sensors sensors and the derived ones.
    Moments Rows(std::size_t sensors, std::size_t derivedRows, bool none) const;

private:
    std::size_t lanes_ = 1;
    std::size_t groups_ = 0;
    std::size_t columns_ = 0;
    std::size_t pitch_ = 0;
    AlignedArray<double> mean_;
    AlignedArray<double> m2_;
};

/// Everything a request gathers over a run of epochs.
struct Accumulators {
    template <class T>
    explicit Accumulators(const Setup<T>& setup);

    void Clear();
    void Merge(const Accumulators& later);
    std::size_t Bytes() const;

    std::uint64_t epochs = 0;
    MomentTable power, amplitude, logPower, bandPower;
    AlignedArray<double> cross; ///< per pair, pitch real and pitch imaginary sums
};

extern template Accumulators::Accumulators(const Setup<float>&);
extern template Accumulators::Accumulators(const Setup<double>&);

/// Writes all but the stored powers. Without epochs every number is NaN.
template <class T>
void WriteResult(const Setup<T>& setup, const Accumulators& all, EngineResult& result);

extern template void WriteResult(const Setup<float>&, const Accumulators&, EngineResult&);
extern template void WriteResult(const Setup<double>&, const Accumulators&, EngineResult&);

} // namespace orvanta::spectral

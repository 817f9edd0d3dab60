// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/engine/kernel/moments.h"

#include "host/spectral_data/engine/kernel/targets.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "host/spectral_data/engine/kernel/moments.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include <hwy/contrib/math/math-inl.h>

#include "host/spectral_data/engine/kernel/vector-inl.h"

#include <limits>

HWY_BEFORE_NAMESPACE();
namespace orvanta::spectral {
namespace HWY_NAMESPACE {

template <class T, Quantity kQuantity>
HWY_INLINE typename Tag<T>::V Of(typename Tag<T>::V value) {
    const typename Tag<T>::D d;
    if constexpr (kQuantity == Quantity::Root) {
        return hn::Sqrt(value);
    } else if constexpr (kQuantity == Quantity::Logarithm) {
        return hn::IfThenElse(hn::Gt(value, hn::Zero(d)), hn::Log(d, value),
                              hn::Set(d, std::numeric_limits<T>::quiet_NaN()));
    } else {
        return value;
    }
}

template <class T, Quantity kQuantity, std::size_t kEpochs>
HWY_NOINLINE void AddBatchFixed(const T* values, std::size_t stride, std::size_t count, std::uint64_t before,
                                double* mean, double* m2) {
    const typename Tag<T>::D d;
    const typename Wide<T>::D dd;
    const auto total = static_cast<double>(before + kEpochs);
    const auto share = hn::Set(dd, kEpochs / total);
    const auto cross = hn::Set(dd, static_cast<double>(before) * (kEpochs / total));
    const auto inverse = hn::Set(d, static_cast<T>(1.0 / kEpochs));
    for (std::size_t i = 0; i < count; i += Tag<T>::kLanes) {
        typename Tag<T>::V v[kEpochs];
        for (std::size_t e = 0; e < kEpochs; ++e) {
            v[e] = Of<T, kQuantity>(hn::Load(d, values + e * stride + i));
        }
        auto sum = v[0];
        for (std::size_t e = 1; e < kEpochs; ++e) {
            sum = hn::Add(sum, v[e]);
        }
        const auto centre = hn::Mul(sum, inverse);
        auto rest = hn::Zero(d);
        auto squares = hn::Zero(d);
        for (std::size_t e = 0; e < kEpochs; ++e) {
            const auto deviation = hn::Sub(v[e], centre);
            rest = hn::Add(rest, deviation);
            squares = hn::MulAdd(deviation, deviation, squares);
        }
        const Wide<T> batchMean(centre), batchRest(hn::Mul(rest, inverse)), batchM2(squares);
        for (std::size_t part = 0; part < Wide<T>::kParts; ++part) {
            double* meanAt = mean + i + part * Wide<T>::kPartLanes;
            double* m2At = m2 + i + part * Wide<T>::kPartLanes;
            const auto old = hn::Load(dd, meanAt);
            const auto delta = hn::Sub(hn::Add(batchMean.part[part], batchRest.part[part]), old);
            hn::Store(hn::MulAdd(delta, share, old), dd, meanAt);
            const auto within = hn::Add(hn::Load(dd, m2At), batchM2.part[part]);
            hn::Store(hn::MulAdd(hn::Mul(delta, delta), cross, within), dd, m2At);
        }
    }
}

template <class T, Quantity kQuantity>
void AddBatchOf(const T* values, std::size_t stride, std::size_t epochs, std::size_t count,
                std::uint64_t before, double* mean, double* m2) {
    static_assert(kBatchEpochs == 8);
    switch (epochs) {
    case 1:
        return AddBatchFixed<T, kQuantity, 1>(values, stride, count, before, mean, m2);
    case 2:
        return AddBatchFixed<T, kQuantity, 2>(values, stride, count, before, mean, m2);
    case 4:
        return AddBatchFixed<T, kQuantity, 4>(values, stride, count, before, mean, m2);
    case 8:
        return AddBatchFixed<T, kQuantity, 8>(values, stride, count, before, mean, m2);
    default:
        // Another number is taken as a power of two and the rest.
        const std::size_t first = epochs > 4 ? 4 : 2;
        AddBatchOf<T, kQuantity>(values, stride, first, count, before, mean, m2);
        AddBatchOf<T, kQuantity>(values + first * stride, stride, epochs - first, count, before + first, mean,
                                 m2);
    }
}

template <class T>
HWY_INLINE void AddBatchAny(Quantity quantity, const T* values, std::size_t stride, std::size_t epochs,
                            std::size_t count, std::uint64_t before, double* mean, double* m2) {
    switch (quantity) {
    case Quantity::Value:
        return AddBatchOf<T, Quantity::Value>(values, stride, epochs, count, before, mean, m2);
    case Quantity::Root:
        return AddBatchOf<T, Quantity::Root>(values, stride, epochs, count, before, mean, m2);
    case Quantity::Logarithm:
        return AddBatchOf<T, Quantity::Logarithm>(values, stride, epochs, count, before, mean, m2);
    }
}

void AddBatchFloat(Quantity quantity, const float* values, std::size_t stride, std::size_t epochs,
                   std::size_t count, std::uint64_t before, double* mean, double* m2) {
    AddBatchAny(quantity, values, stride, epochs, count, before, mean, m2);
}
void AddBatchDouble(Quantity quantity, const double* values, std::size_t stride, std::size_t epochs,
                    std::size_t count, std::uint64_t before, double* mean, double* m2) {
    AddBatchAny(quantity, values, stride, epochs, count, before, mean, m2);
}

template <class T>
HWY_INLINE void SumRowsOf(const T* rows, std::size_t count, T factor, T* sum) {
    const typename Tag<T>::D d;
    typename Tag<T>::V part[4] = {hn::Zero(d), hn::Zero(d), hn::Zero(d), hn::Zero(d)};
    std::size_t row = 0;
    for (; row + 4 <= count; row += 4) {
        for (std::size_t i = 0; i < 4; ++i) {
            part[i] = hn::Add(part[i], hn::Load(d, rows + (row + i) * Tag<T>::kLanes));
        }
    }
    for (; row < count; ++row) {
        part[0] = hn::Add(part[0], hn::Load(d, rows + row * Tag<T>::kLanes));
    }
    const auto all = hn::Add(hn::Add(part[0], part[1]), hn::Add(part[2], part[3]));
    hn::Store(hn::Mul(all, hn::Set(d, factor)), d, sum);
}

void SumRowsFloat(const float* rows, std::size_t count, float factor, float* sum) {
    SumRowsOf(rows, count, factor, sum);
}
void SumRowsDouble(const double* rows, std::size_t count, double factor, double* sum) {
    SumRowsOf(rows, count, factor, sum);
}

} // namespace HWY_NAMESPACE
} // namespace orvanta::spectral
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace orvanta::spectral {

HWY_EXPORT(AddBatchFloat);
HWY_EXPORT(AddBatchDouble);
HWY_EXPORT(SumRowsFloat);
HWY_EXPORT(SumRowsDouble);

void AddBatch(Quantity quantity, const float* values, std::size_t stride, std::size_t epochs,
              std::size_t count, std::uint64_t before, double* mean, double* m2) {
    HWY_DYNAMIC_DISPATCH(AddBatchFloat)(quantity, values, stride, epochs, count, before, mean, m2);
}
void AddBatch(Quantity quantity, const double* values, std::size_t stride, std::size_t epochs,
              std::size_t count, std::uint64_t before, double* mean, double* m2) {
    HWY_DYNAMIC_DISPATCH(AddBatchDouble)(quantity, values, stride, epochs, count, before, mean, m2);
}
void SumRows(const float* rows, std::size_t count, float factor, float* sum) {
    HWY_DYNAMIC_DISPATCH(SumRowsFloat)(rows, count, factor, sum);
}
void SumRows(const double* rows, std::size_t count, double factor, double* sum) {
    HWY_DYNAMIC_DISPATCH(SumRowsDouble)(rows, count, factor, sum);
}

} // namespace orvanta::spectral
#endif

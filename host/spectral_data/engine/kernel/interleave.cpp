// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/engine/kernel/interleave.h"

#include <bit>
#include <cstring>

#include "host/spectral_data/engine/kernel/targets.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "host/spectral_data/engine/kernel/interleave.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include "host/spectral_data/engine/kernel/vector-inl.h"

HWY_BEFORE_NAMESPACE();
namespace orvanta::spectral {
namespace HWY_NAMESPACE {

/// Values of the first part of a contiguous run, by vectors; returns how many.
template <class Out>
std::size_t DecodeInt16(const std::byte* source, std::size_t count, Out* values) {
    const hn::ScalableTag<Out> d;
    const hn::Rebind<std::int16_t, decltype(d)> d16;
    const hn::RebindToSigned<decltype(d)> d32;
    const std::size_t lanes = hn::Lanes(d);
    std::size_t i = 0;
    for (; i + lanes <= count; i += lanes) {
        // Loaded as bytes: samples in a file need not be aligned.
        hn::Vec<decltype(d16)> stored;
        std::memcpy(&stored, source + 2 * i, 2 * lanes);
        const auto whole = hn::PromoteTo(d32, stored);
        if constexpr (sizeof(Out) == sizeof(float) && !std::is_integral_v<Out>) {
            hn::StoreU(hn::ConvertTo(d, whole), d, values + i);
        } else {
            hn::StoreU(whole, d, values + i);
        }
    }
    return i;
}

template <class Out>
std::size_t DecodeInt24(const std::byte* source, std::size_t count, Out* values) {
#if HWY_TARGET == HWY_SCALAR
    (void)source;
    (void)count;
    (void)values;
    return 0;
#else
    const hn::FixedTag<std::uint8_t, 16> d8;
    const hn::FixedTag<std::int32_t, 4> d32;
    const hn::FixedTag<Out, 4> d;
    // Each sample to the upper three bytes of its lane; the arithmetic shift brings the sign down.
    alignas(16) static constexpr std::uint8_t kSpread[16] = {0x80, 0, 1, 2, 0x80, 3, 4,  5,
                                                             0x80, 6, 7, 8, 0x80, 9, 10, 11};
    const auto spread = hn::Load(d8, kSpread);
    std::size_t i = 0;
    // A load takes 16 bytes, 5⅓ samples.
    for (; i + 6 <= count; i += 4) {
        const auto stored = hn::LoadU(d8, reinterpret_cast<const std::uint8_t*>(source) + 3 * i);
        const auto whole = hn::ShiftRight<8>(hn::BitCast(d32, hn::TableLookupBytesOr0(stored, spread)));
        if constexpr (std::is_integral_v<Out>) {
            hn::StoreU(whole, d, values + i);
        } else {
            hn::StoreU(hn::ConvertTo(d, whole), d, values + i);
        }
    }
    return i;
#endif
}

std::size_t DecodeRunWhole(signal::SampleFormat format, const std::byte* source, std::size_t count,
                           std::int32_t* values) {
    return format == signal::SampleFormat::Int16 ? DecodeInt16(source, count, values)
                                                 : DecodeInt24(source, count, values);
}

std::size_t DecodeRunFloat(signal::SampleFormat format, const std::byte* source, std::size_t count,
                           float* values) {
    return format == signal::SampleFormat::Int16 ? DecodeInt16(source, count, values)
                                                 : DecodeInt24(source, count, values);
}

#if HWY_TARGET == HWY_SCALAR
template <class D>
constexpr std::size_t BlockLanes(D) {
    return 1;
}
template <class D, class E>
HWY_INLINE hn::Vec<D> LoadBlocks(D d, const E* values, std::size_t) {
    return hn::Load(d, values);
}
template <class D, class E>
HWY_INLINE void StoreBlocks(D d, hn::Vec<D> vector, E* values, std::size_t) {
    hn::Store(vector, d, values);
}
template <class D>
HWY_INLINE void TransposeBlocks(D, hn::Vec<D>*) {}
#else
/// Consecutive values in memory that make one block of 16 bytes, or as many as there are lanes.
template <class D>
constexpr std::size_t BlockLanes(D d) {
    return HWY_MIN(16 / sizeof(hn::TFromD<D>), hn::MaxLanes(d));
}

/// A vector of which every block comes from another place, \p apart values further each.
template <class D, class E>
HWY_INLINE hn::Vec<D> LoadBlocks(D d, const E* values, std::size_t apart) {
    if constexpr (hn::MaxLanes(d) == BlockLanes(d)) {
        (void)apart;
        return hn::LoadU(d, values);
    } else {
        const hn::Half<D> half;
        const std::size_t upper = hn::MaxLanes(half) / BlockLanes(d) * apart;
        return hn::Combine(d, LoadBlocks(half, values + upper, apart), LoadBlocks(half, values, apart));
    }
}

template <class D, class E>
HWY_INLINE void StoreBlocks(D d, hn::Vec<D> vector, E* values, std::size_t apart) {
    if constexpr (hn::MaxLanes(d) == BlockLanes(d)) {
        (void)apart;
        hn::StoreU(vector, d, values);
    } else {
        const hn::Half<D> half;
        const std::size_t upper = hn::MaxLanes(half) / BlockLanes(d) * apart;
        StoreBlocks(half, hn::LowerHalf(half, vector), values, apart);
        StoreBlocks(half, hn::UpperHalf(half, vector), values + upper, apart);
    }
}

/// Transposes the squares that lie in the blocks of as many vectors as a block has lanes.
template <class D>
HWY_INLINE void TransposeBlocks(D d, hn::Vec<D>* v) {
    constexpr std::size_t kSide = BlockLanes(D());
    if constexpr (kSide == 4) {
        const auto a = hn::InterleaveLower(d, v[0], v[2]), b = hn::InterleaveLower(d, v[1], v[3]);
        const auto e = hn::InterleaveUpper(d, v[0], v[2]), f = hn::InterleaveUpper(d, v[1], v[3]);
        v[0] = hn::InterleaveLower(d, a, b);
        v[1] = hn::InterleaveUpper(d, a, b);
        v[2] = hn::InterleaveLower(d, e, f);
        v[3] = hn::InterleaveUpper(d, e, f);
    } else {
        static_assert(kSide == 2);
        const auto a = v[0];
        v[0] = hn::InterleaveLower(d, a, v[1]);
        v[1] = hn::InterleaveUpper(d, a, v[1]);
    }
}
#endif

HWY_INLINE Tag<float>::V Convert(Tag<float>::D d, hn::Vec<hn::Rebind<std::int32_t, Tag<float>::D>> v) {
    return hn::ConvertTo(d, v);
}
HWY_INLINE Tag<float>::V Convert(Tag<float>::D, Tag<float>::V v) {
    return v;
}
HWY_INLINE Tag<double>::V Convert(Tag<double>::D d, hn::Vec<hn::Rebind<std::int32_t, Tag<double>::D>> v) {
    return hn::PromoteTo(d, v);
}
HWY_INLINE Tag<double>::V Convert(Tag<double>::D d, hn::Vec<hn::Rebind<float, Tag<double>::D>> v) {
    return hn::PromoteTo(d, v);
}

template <class T, class E>
HWY_INLINE void InterleaveOf(const E* values, std::size_t pitch, std::size_t rows, T* out, double* sums) {
    const typename Tag<T>::D d;
    const hn::Rebind<E, typename Tag<T>::D> de;
    constexpr std::size_t kLanes = Tag<T>::kLanes;
    constexpr std::size_t kSide = BlockLanes(hn::Rebind<E, typename Tag<T>::D>());
    for (std::size_t run = 0; run < rows; run += kRunRows) {
        auto sum = hn::Zero(de);
        for (std::size_t row = run; row < run + kRunRows; row += kSide) {
            hn::Vec<decltype(de)> v[kSide];
            for (std::size_t r = 0; r < kSide; ++r) {
                v[r] = LoadBlocks(de, values + r * pitch + row, kSide * pitch);
            }
            TransposeBlocks(de, v);
            for (std::size_t r = 0; r < kSide; ++r) {
                if constexpr (std::is_integral_v<E>) {
                    sum = hn::Add(sum, v[r]);
                }
                hn::Store(Convert(d, v[r]), d, out + (row + r) * kLanes);
            }
        }
        if constexpr (std::is_integral_v<E>) {
            const Wide<T> wide(sum);
            for (std::size_t part = 0; part < Wide<T>::kParts; ++part) {
                hn::Store(wide.part[part], typename Wide<T>::D(),
                          sums + run / kRunRows * kLanes + part * Wide<T>::kPartLanes);
            }
        }
    }
}

void WholeToFloat(const std::int32_t* values, std::size_t pitch, std::size_t rows, float* out, double* sums) {
    InterleaveOf(values, pitch, rows, out, sums);
}
void WholeToDouble(const std::int32_t* values, std::size_t pitch, std::size_t rows, double* out,
                   double* sums) {
    InterleaveOf(values, pitch, rows, out, sums);
}
void FloatToFloat(const float* values, std::size_t pitch, std::size_t rows, float* out) {
    InterleaveOf(values, pitch, rows, out, nullptr);
}
void FloatToDouble(const float* values, std::size_t pitch, std::size_t rows, double* out) {
    InterleaveOf(values, pitch, rows, out, nullptr);
}

template <class T>
HWY_INLINE void DeinterleaveOf(const T* in, std::size_t stride, std::size_t rows, T* out, std::size_t pitch) {
    const typename Tag<T>::D d;
    constexpr std::size_t kSide = BlockLanes(typename Tag<T>::D());
    for (std::size_t row = 0; row < rows; row += kSide) {
        typename Tag<T>::V v[kSide];
        for (std::size_t r = 0; r < kSide; ++r) {
            v[r] = hn::Load(d, in + (row + r) * stride);
        }
        TransposeBlocks(d, v);
        for (std::size_t r = 0; r < kSide; ++r) {
            StoreBlocks(d, v[r], out + r * pitch + row, kSide * pitch);
        }
    }
}

void DeinterleaveFloat(const float* in, std::size_t stride, std::size_t rows, float* out, std::size_t pitch) {
    DeinterleaveOf(in, stride, rows, out, pitch);
}
void DeinterleaveDouble(const double* in, std::size_t stride, std::size_t rows, double* out,
                        std::size_t pitch) {
    DeinterleaveOf(in, stride, rows, out, pitch);
}

template <class T>
HWY_INLINE void AddTo(Wide<T>& sum, const Wide<T>& value) {
    for (std::size_t part = 0; part < Wide<T>::kParts; ++part) {
        sum.part[part] = hn::Add(sum.part[part], value.part[part]);
    }
}

template <class T>
HWY_INLINE void MeanOf(const T* rows, const double* sums, std::size_t first, std::size_t count, T* mean) {
    const typename Tag<T>::D d;
    const typename Wide<T>::D dd;
    constexpr std::size_t kLanes = Tag<T>::kLanes;
    const std::size_t last = first + count;
    std::size_t row = first;
    Wide<T> total(hn::Zero(d));
    if (sums != nullptr) {
        for (; row < last && row % kRunRows != 0; ++row) {
            AddTo(total, Wide<T>(hn::Load(d, rows + row * kLanes)));
        }
        for (; row + kRunRows <= last; row += kRunRows) {
            for (std::size_t part = 0; part < Wide<T>::kParts; ++part) {
                const double* run = sums + row / kRunRows * kLanes + part * Wide<T>::kPartLanes;
                total.part[part] = hn::Add(total.part[part], hn::Load(dd, run));
            }
        }
    }
    for (; row < last; ++row) {
        AddTo(total, Wide<T>(hn::Load(d, rows + row * kLanes)));
    }
    const auto divisor = hn::Set(dd, static_cast<double>(count));
    HWY_ALIGN double value[kLanes];
    for (std::size_t part = 0; part < Wide<T>::kParts; ++part) {
        hn::Store(hn::Div(total.part[part], divisor), dd, value + part * Wide<T>::kPartLanes);
    }
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
        mean[lane] = static_cast<T>(value[lane]);
        mean[kLanes + lane] = static_cast<T>(value[lane] - static_cast<double>(mean[lane]));
    }
}

void MeanFloat(const float* rows, const double* sums, std::size_t first, std::size_t count, float* mean) {
    MeanOf(rows, sums, first, count, mean);
}
void MeanDouble(const double* rows, const double* sums, std::size_t first, std::size_t count, double* mean) {
    MeanOf(rows, sums, first, count, mean);
}

} // namespace HWY_NAMESPACE
} // namespace orvanta::spectral
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace orvanta::spectral {

HWY_EXPORT(DecodeRunWhole);
HWY_EXPORT(DecodeRunFloat);
HWY_EXPORT(WholeToFloat);
HWY_EXPORT(WholeToDouble);
HWY_EXPORT(FloatToFloat);
HWY_EXPORT(FloatToDouble);
HWY_EXPORT(DeinterleaveFloat);
HWY_EXPORT(DeinterleaveDouble);
HWY_EXPORT(MeanFloat);
HWY_EXPORT(MeanDouble);

namespace {

std::uint32_t Byte(const std::byte* at, std::size_t i) {
    return std::to_integer<std::uint32_t>(at[i]);
}

/// One stored whole number.
std::int32_t Whole(signal::SampleFormat format, const std::byte* at) {
    if (format == signal::SampleFormat::Int16) {
        return static_cast<std::int16_t>(Byte(at, 0) | Byte(at, 1) << 8);
    }
    return static_cast<std::int32_t>(Byte(at, 0) << 8 | Byte(at, 1) << 16 | Byte(at, 2) << 24) >> 8;
}

} // namespace

void Decode(signal::SampleFormat format, const std::byte* source, std::size_t stride, std::size_t count,
            std::int32_t* values) {
    std::size_t i =
        stride == BytesOf(format) ? HWY_DYNAMIC_DISPATCH(DecodeRunWhole)(format, source, count, values) : 0;
    for (; i < count; ++i) {
        values[i] = Whole(format, source + i * stride);
    }
}

void Decode(signal::SampleFormat format, const std::byte* source, std::size_t stride, std::size_t count,
            float* values) {
    if (format == signal::SampleFormat::Float32) {
        for (std::size_t i = 0; i < count; ++i) {
            const std::byte* at = source + i * stride;
            values[i] =
                std::bit_cast<float>(Byte(at, 0) | Byte(at, 1) << 8 | Byte(at, 2) << 16 | Byte(at, 3) << 24);
        }
        return;
    }
    std::size_t i =
        stride == BytesOf(format) ? HWY_DYNAMIC_DISPATCH(DecodeRunFloat)(format, source, count, values) : 0;
    for (; i < count; ++i) {
        values[i] = static_cast<float>(Whole(format, source + i * stride));
    }
}

void Interleave(const std::int32_t* values, std::size_t pitch, std::size_t rows, float* out, double* sums) {
    HWY_DYNAMIC_DISPATCH(WholeToFloat)(values, pitch, rows, out, sums);
}
void Interleave(const std::int32_t* values, std::size_t pitch, std::size_t rows, double* out, double* sums) {
    HWY_DYNAMIC_DISPATCH(WholeToDouble)(values, pitch, rows, out, sums);
}
void Interleave(const float* values, std::size_t pitch, std::size_t rows, float* out) {
    HWY_DYNAMIC_DISPATCH(FloatToFloat)(values, pitch, rows, out);
}
void Interleave(const float* values, std::size_t pitch, std::size_t rows, double* out) {
    HWY_DYNAMIC_DISPATCH(FloatToDouble)(values, pitch, rows, out);
}
void Deinterleave(const float* in, std::size_t stride, std::size_t rows, float* out, std::size_t pitch) {
    HWY_DYNAMIC_DISPATCH(DeinterleaveFloat)(in, stride, rows, out, pitch);
}
void Deinterleave(const double* in, std::size_t stride, std::size_t rows, double* out, std::size_t pitch) {
    HWY_DYNAMIC_DISPATCH(DeinterleaveDouble)(in, stride, rows, out, pitch);
}
void MeanOfRows(const float* rows, const double* sums, std::size_t first, std::size_t count, float* mean) {
    HWY_DYNAMIC_DISPATCH(MeanFloat)(rows, sums, first, count, mean);
}
void MeanOfRows(const double* rows, const double* sums, std::size_t first, std::size_t count, double* mean) {
    HWY_DYNAMIC_DISPATCH(MeanDouble)(rows, sums, first, count, mean);
}

} // namespace orvanta::spectral
#endif

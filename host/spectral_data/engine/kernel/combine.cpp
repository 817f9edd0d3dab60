// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/engine/kernel/combine.h"

#include "host/spectral_data/engine/kernel/targets.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "host/spectral_data/engine/kernel/combine.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include "host/spectral_data/engine/kernel/vector-inl.h"

HWY_BEFORE_NAMESPACE();
namespace orvanta::spectral {
namespace HWY_NAMESPACE {

template <class T>
HWY_INLINE void CombineOf(const T* const* terms, const T* weights, std::size_t count, std::size_t pitch,
                          T* spectrum, T* power) {
    const typename Tag<T>::D d;
    for (std::size_t k = 0; k < pitch; k += Tag<T>::kLanes) {
        auto re = hn::Zero(d);
        auto im = hn::Zero(d);
        for (std::size_t t = 0; t < count; ++t) {
            const auto weight = hn::Set(d, weights[t]);
            re = hn::MulAdd(hn::Load(d, terms[t] + k), weight, re);
            im = hn::MulAdd(hn::Load(d, terms[t] + pitch + k), weight, im);
        }
        if (spectrum != nullptr) {
            hn::Store(re, d, spectrum + k);
            hn::Store(im, d, spectrum + pitch + k);
        }
        hn::Store(hn::MulAdd(re, re, hn::Mul(im, im)), d, power + k);
    }
}

void CombineFloat(const float* const* terms, const float* weights, std::size_t count, std::size_t pitch,
                  float* spectrum, float* power) {
    CombineOf(terms, weights, count, pitch, spectrum, power);
}
void CombineDouble(const double* const* terms, const double* weights, std::size_t count, std::size_t pitch,
                   double* spectrum, double* power) {
    CombineOf(terms, weights, count, pitch, spectrum, power);
}

template <class T>
HWY_INLINE void AddWide(typename Tag<T>::V value, double* sum) {
    const typename Wide<T>::D dd;
    const Wide<T> wide(value);
    for (std::size_t part = 0; part < Wide<T>::kParts; ++part) {
        double* at = sum + part * Wide<T>::kPartLanes;
        hn::Store(hn::Add(hn::Load(dd, at), wide.part[part]), dd, at);
    }
}

template <class T>
HWY_INLINE void AddCrossOf(const T* a, const T* b, std::size_t stride, std::size_t epochs, std::size_t pitch,
                           double* sum) {
    const typename Tag<T>::D d;
    for (std::size_t k = 0; k < pitch; k += Tag<T>::kLanes) {
        auto re = hn::Zero(d);
        auto im = hn::Zero(d);
        for (std::size_t e = 0; e < epochs; ++e) {
            const std::size_t at = e * stride + k;
            const auto ar = hn::Load(d, a + at), ai = hn::Load(d, a + at + pitch);
            const auto br = hn::Load(d, b + at), bi = hn::Load(d, b + at + pitch);
            re = hn::MulAdd(ai, bi, hn::MulAdd(ar, br, re));
            im = hn::NegMulAdd(ar, bi, hn::MulAdd(ai, br, im));
        }
        AddWide<T>(re, sum + k);
        AddWide<T>(im, sum + pitch + k);
    }
}

void AddCrossFloat(const float* a, const float* b, std::size_t stride, std::size_t epochs, std::size_t pitch,
                   double* sum) {
    AddCrossOf(a, b, stride, epochs, pitch, sum);
}
void AddCrossDouble(const double* a, const double* b, std::size_t stride, std::size_t epochs,
                    std::size_t pitch, double* sum) {
    AddCrossOf(a, b, stride, epochs, pitch, sum);
}

} // namespace HWY_NAMESPACE
} // namespace orvanta::spectral
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace orvanta::spectral {

HWY_EXPORT(CombineFloat);
HWY_EXPORT(CombineDouble);
HWY_EXPORT(AddCrossFloat);
HWY_EXPORT(AddCrossDouble);

void Combine(const float* const* terms, const float* weights, std::size_t count, std::size_t pitch,
             float* spectrum, float* power) {
    HWY_DYNAMIC_DISPATCH(CombineFloat)(terms, weights, count, pitch, spectrum, power);
}
void Combine(const double* const* terms, const double* weights, std::size_t count, std::size_t pitch,
             double* spectrum, double* power) {
    HWY_DYNAMIC_DISPATCH(CombineDouble)(terms, weights, count, pitch, spectrum, power);
}
void AddCross(const float* a, const float* b, std::size_t stride, std::size_t epochs, std::size_t pitch,
              double* sum) {
    HWY_DYNAMIC_DISPATCH(AddCrossFloat)(a, b, stride, epochs, pitch, sum);
}
void AddCross(const double* a, const double* b, std::size_t stride, std::size_t epochs, std::size_t pitch,
              double* sum) {
    HWY_DYNAMIC_DISPATCH(AddCrossDouble)(a, b, stride, epochs, pitch, sum);
}

} // namespace orvanta::spectral
#endif

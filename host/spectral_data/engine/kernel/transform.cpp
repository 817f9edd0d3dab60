// SPDX-License-Identifier: GPL-3.0-or-later
// Decimation in frequency, in place, radix 8 with a 4 or 2 at the end: pass by pass the sequence falls apart
// into shorter ones that lie together, so every recursion soon works inside the first cache. The first pass
// takes the samples as they are (two neighbours are one complex value), the order is put right when the real
// spectrum is split off.
#include "host/spectral_data/engine/kernel/transform.h"

#include "host/spectral_data/engine/kernel/targets.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "host/spectral_data/engine/kernel/transform.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include "host/spectral_data/engine/kernel/vector-inl.h"

HWY_BEFORE_NAMESPACE();
namespace orvanta::spectral {
namespace HWY_NAMESPACE {

template <class T>
struct Complex {
    typename Tag<T>::V re;
    typename Tag<T>::V im;
};

template <class T>
HWY_INLINE Complex<T> Add(Complex<T> a, Complex<T> b) {
    return {hn::Add(a.re, b.re), hn::Add(a.im, b.im)};
}

template <class T>
HWY_INLINE Complex<T> Sub(Complex<T> a, Complex<T> b) {
    return {hn::Sub(a.re, b.re), hn::Sub(a.im, b.im)};
}

/// a − i·b and a + i·b.
template <class T>
HWY_INLINE Complex<T> SubI(Complex<T> a, Complex<T> b) {
    return {hn::Add(a.re, b.im), hn::Sub(a.im, b.re)};
}

template <class T>
HWY_INLINE Complex<T> AddI(Complex<T> a, Complex<T> b) {
    return {hn::Sub(a.re, b.im), hn::Add(a.im, b.re)};
}

template <class T>
HWY_INLINE Complex<T> Times(Complex<T> a, const T* factor) {
    const typename Tag<T>::D d;
    const auto c = hn::Set(d, factor[0]);
    const auto s = hn::Set(d, factor[1]);
    return {hn::NegMulAdd(a.im, s, hn::Mul(a.re, c)), hn::MulAdd(a.re, s, hn::Mul(a.im, c))};
}

/// Complex values that lie in a work array.
template <class T>
struct FromWork {
    const T* values;

    HWY_INLINE Complex<T> operator()(std::size_t row) const {
        const typename Tag<T>::D d;
        const T* at = values + 2 * row * Tag<T>::kLanes;
        return {hn::Load(d, at), hn::Load(d, at + Tag<T>::kLanes)};
    }
};

/// Complex values made of two neighbouring samples each, the mean removed and tapered; zeros behind the end.
template <class T, bool kPadded>
struct FromSamples {
    const T* samples;
    const T* taper;
    std::size_t window;
    typename Tag<T>::V mean;
    typename Tag<T>::V rest;

    HWY_INLINE typename Tag<T>::V One(std::size_t row) const {
        const typename Tag<T>::D d;
        if (kPadded && row >= window) {
            return hn::Zero(d);
        }
        // (x − mean − rest)·w; the rest is small, so its product may be rounded by itself.
        const auto weight = hn::Set(d, taper[row]);
        const auto centred = hn::Sub(hn::Load(d, samples + row * Tag<T>::kLanes), mean);
        return hn::MulSub(centred, weight, hn::Mul(rest, weight));
    }
    HWY_INLINE Complex<T> operator()(std::size_t row) const { return {One(2 * row), One(2 * row + 1)}; }
};

template <class T>
HWY_INLINE void Store(Complex<T> value, T* work, std::size_t row) {
    const typename Tag<T>::D d;
    hn::Store(value.re, d, work + 2 * row * Tag<T>::kLanes);
    hn::Store(value.im, d, work + (2 * row + 1) * Tag<T>::kLanes);
}

/// One pass over a sequence of \p n values; factors: twiddles for the length, or null where all are one.
template <class T, bool kTwiddled, class Source>
HWY_INLINE void Pass2(const Source& source, T* work, std::size_t n, const T* factors) {
    const std::size_t step = n / 2;
    for (std::size_t j = 0; j < step; ++j) {
        const auto a = source(j), b = source(j + step);
        Store(Add(a, b), work, j);
        const auto y = Sub(a, b);
        Store(kTwiddled ? Times(y, factors + 2 * j) : y, work, j + step);
    }
}

template <class T, bool kTwiddled, class Source>
HWY_INLINE void Pass4(const Source& source, T* work, std::size_t n, const T* factors) {
    const std::size_t step = n / 4;
    for (std::size_t j = 0; j < step; ++j, factors += kTwiddled ? 6 : 0) {
        const auto x0 = source(j), x1 = source(j + step), x2 = source(j + 2 * step),
                   x3 = source(j + 3 * step);
        const auto t0 = Add(x0, x2), t1 = Sub(x0, x2), t2 = Add(x1, x3), t3 = Sub(x1, x3);
        const auto y1 = SubI(t1, t3), y2 = Sub(t0, t2), y3 = AddI(t1, t3);
        Store(Add(t0, t2), work, j);
        Store(kTwiddled ? Times(y1, factors) : y1, work, j + step);
        Store(kTwiddled ? Times(y2, factors + 2) : y2, work, j + 2 * step);
        Store(kTwiddled ? Times(y3, factors + 4) : y3, work, j + 3 * step);
    }
}

template <class T, bool kTwiddled, class Source>
HWY_INLINE void Pass8(const Source& source, T* work, std::size_t n, const T* factors) {
    const typename Tag<T>::D d;
    const auto half = hn::Set(d, static_cast<T>(0.70710678118654752440));
    const std::size_t step = n / 8;
    for (std::size_t j = 0; j < step; ++j, factors += kTwiddled ? 14 : 0) {
        const auto x0 = source(j), x4 = source(j + 4 * step);
        const auto x2 = source(j + 2 * step), x6 = source(j + 6 * step);
        const auto s0 = Add(x0, x4), d0 = Sub(x0, x4), s2 = Add(x2, x6), d2 = Sub(x2, x6);
        const auto e0 = Add(s0, s2), e1 = Sub(s0, s2), o0 = SubI(d0, d2), o1 = AddI(d0, d2);

        const auto x1 = source(j + step), x5 = source(j + 5 * step);
        const auto x3 = source(j + 3 * step), x7 = source(j + 7 * step);
        const auto s1 = Add(x1, x5), d1 = Sub(x1, x5), s3 = Add(x3, x7), d3 = Sub(x3, x7);
        const auto e2 = Add(s1, s3), e3 = Sub(s1, s3), u = SubI(d1, d3), v = AddI(d1, d3);
        // u and v times the eighth and three eighths of a turn, (1 − i)/√2 and (−1 − i)/√2; the root comes in
        // with the additions below.
        const auto ua = hn::Add(u.re, u.im), ub = hn::Sub(u.im, u.re);
        const auto va = hn::Sub(v.im, v.re), vb = hn::Add(v.re, v.im);

        const auto y4 = Sub(e0, e2), y2 = SubI(e1, e3), y6 = AddI(e1, e3);
        const Complex<T> y1{hn::MulAdd(ua, half, o0.re), hn::MulAdd(ub, half, o0.im)};
        const Complex<T> y5{hn::NegMulAdd(ua, half, o0.re), hn::NegMulAdd(ub, half, o0.im)};
        const Complex<T> y3{hn::MulAdd(va, half, o1.re), hn::NegMulAdd(vb, half, o1.im)};
        const Complex<T> y7{hn::NegMulAdd(va, half, o1.re), hn::MulAdd(vb, half, o1.im)};
        Store(Add(e0, e2), work, j);
        Store(kTwiddled ? Times(y1, factors) : y1, work, j + step);
        Store(kTwiddled ? Times(y2, factors + 2) : y2, work, j + 2 * step);
        Store(kTwiddled ? Times(y3, factors + 4) : y3, work, j + 3 * step);
        Store(kTwiddled ? Times(y4, factors + 6) : y4, work, j + 4 * step);
        Store(kTwiddled ? Times(y5, factors + 8) : y5, work, j + 5 * step);
        Store(kTwiddled ? Times(y6, factors + 10) : y6, work, j + 6 * step);
        Store(kTwiddled ? Times(y7, factors + 12) : y7, work, j + 7 * step);
    }
}

/// Transforms 2^log2 values in place.
template <class T>
HWY_NOINLINE void Complete(T* work, unsigned log2, const FftPlan<T>& plan) {
    const std::size_t n = std::size_t{1} << log2;
    const FromWork<T> source{work};
    switch (log2) {
    case 0:
        return;
    case 1:
        return Pass2<T, false>(source, work, n, nullptr);
    case 2:
        return Pass4<T, false>(source, work, n, nullptr);
    case 3:
        return Pass8<T, false>(source, work, n, nullptr);
    case 4:
        Pass4<T, true>(source, work, n, plan.twiddles[log2].data());
        break;
    default:
        Pass8<T, true>(source, work, n, plan.twiddles[log2].data());
    }
    const unsigned rest = log2 - FirstRadixLog2(log2);
    for (std::size_t at = 0; at < n; at += std::size_t{1} << rest) {
        Complete(work + 2 * at * Tag<T>::kLanes, rest, plan);
    }
}

/// The complex transform of the samples' pairs, in the plan's order.
template <class T, bool kPadded>
HWY_NOINLINE void Forward(const TransformJob<T>& job) {
    const typename Tag<T>::D d;
    const FftPlan<T>& plan = *job.plan;
    const FromSamples<T, kPadded> source{job.samples, job.taper, job.window, hn::Load(d, job.mean),
                                         hn::Load(d, job.mean + Tag<T>::kLanes)};
    const T* factors = plan.twiddles[plan.log2].data();
    switch (FirstRadixLog2(plan.log2)) {
    case 0:
        Store(source(0), job.work, 0);
        return;
    case 1:
        Pass2<T, true>(source, job.work, plan.length, factors);
        break;
    case 2:
        Pass4<T, true>(source, job.work, plan.length, factors);
        break;
    default:
        Pass8<T, true>(source, job.work, plan.length, factors);
    }
    const unsigned rest = plan.log2 - FirstRadixLog2(plan.log2);
    for (std::size_t at = 0; at < plan.length; at += std::size_t{1} << rest) {
        Complete(job.work + 2 * at * Tag<T>::kLanes, rest, plan);
    }
}

/// One bin of the result. \p value is twice the transform, or √2 times at the two ends.
template <class T, bool kSpectrum>
HWY_INLINE void Put(const TransformJob<T>& job, std::size_t bin, Complex<T> value, typename Tag<T>::V scale) {
    const typename Tag<T>::D d;
    if (bin >= job.bins) {
        return;
    }
    const auto square = hn::MulAdd(value.re, value.re, hn::Mul(value.im, value.im));
    hn::Store(hn::Mul(square, hn::Mul(scale, scale)), d, job.power + bin * Tag<T>::kLanes);
    if (kSpectrum) {
        hn::Store(hn::Mul(value.re, scale), d, job.spectrum + 2 * bin * Tag<T>::kLanes);
        hn::Store(hn::Mul(value.im, scale), d, job.spectrum + (2 * bin + 1) * Tag<T>::kLanes);
    }
}

/// Splits the real spectrum off: with Z the complex transform, 2X[k] = (Z[k] + Z*[N−k]) − i·w^k·(Z[k] −
/// Z*[N−k]).
template <class T, bool kSpectrum>
HWY_NOINLINE void Split(const TransformJob<T>& job) {
    const typename Tag<T>::D d;
    const FftPlan<T>& plan = *job.plan;
    const FromWork<T> source{job.work};
    const auto scale = hn::Load(d, job.scale);
    const auto root2 = hn::Set(d, static_cast<T>(1.41421356237309504880));

    const auto first = source(0);
    Put<T, kSpectrum>(job, 0, {hn::Mul(hn::Add(first.re, first.im), root2), hn::Zero(d)}, scale);
    Put<T, kSpectrum>(job, plan.length, {hn::Mul(hn::Sub(first.re, first.im), root2), hn::Zero(d)}, scale);
    const std::size_t last = HWY_MIN(std::size_t{plan.length} / 2 + 1, job.bins);
    for (std::size_t k = 1; k < last; ++k) {
        const auto a = source(plan.position[k]);
        const auto b = source(plan.position[plan.length - k]);
        const Complex<T> even{hn::Add(a.re, b.re), hn::Sub(a.im, b.im)};
        const Complex<T> odd{hn::Add(a.im, b.im), hn::Sub(b.re, a.re)};
        const auto turned = Times(odd, plan.split.data() + 2 * k);
        Put<T, kSpectrum>(job, k, Add(even, turned), scale);
        Put<T, kSpectrum>(job, plan.length - k, {hn::Sub(even.re, turned.re), hn::Sub(turned.im, even.im)},
                          scale);
    }
}

template <class T>
void TransformOf(const TransformJob<T>& job) {
    if (job.window < 2 * std::size_t{job.plan->length}) {
        Forward<T, true>(job);
    } else {
        Forward<T, false>(job);
    }
    if (job.spectrum != nullptr) {
        Split<T, true>(job);
    } else {
        Split<T, false>(job);
    }
}

void TransformFloat(const TransformJob<float>& job) {
    TransformOf(job);
}
void TransformDouble(const TransformJob<double>& job) {
    TransformOf(job);
}
std::size_t LanesFloat() {
    return Tag<float>::kLanes;
}
std::size_t LanesDouble() {
    return Tag<double>::kLanes;
}

} // namespace HWY_NAMESPACE
} // namespace orvanta::spectral
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace orvanta::spectral {

HWY_EXPORT(TransformFloat);
HWY_EXPORT(TransformDouble);
HWY_EXPORT(LanesFloat);
HWY_EXPORT(LanesDouble);

void Transform(const TransformJob<float>& job) {
    HWY_DYNAMIC_DISPATCH(TransformFloat)(job);
}

void Transform(const TransformJob<double>& job) {
    HWY_DYNAMIC_DISPATCH(TransformDouble)(job);
}

template <>
std::size_t Lanes<float>() {
    return HWY_DYNAMIC_DISPATCH(LanesFloat)();
}

template <>
std::size_t Lanes<double>() {
    return HWY_DYNAMIC_DISPATCH(LanesDouble)();
}

} // namespace orvanta::spectral
#endif

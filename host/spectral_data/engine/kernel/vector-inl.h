// SPDX-License-Identifier: GPL-3.0-or-later
// Names for vectors of a lane type, and sums of them in double. Included once for every instruction set.
#if defined(ORVANTA_KERNEL_VECTOR_INL_H) == defined(HWY_TARGET_TOGGLE)
#ifdef ORVANTA_KERNEL_VECTOR_INL_H
#undef ORVANTA_KERNEL_VECTOR_INL_H
#else
#define ORVANTA_KERNEL_VECTOR_INL_H
#endif

#include <hwy/highway.h>

#include <cstddef>
#include <cstdint>

HWY_BEFORE_NAMESPACE();
namespace orvanta::spectral {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

/// The widest vectors of \p T.
template <class T>
struct Tag {
    using D = hn::ScalableTag<T>;
    using V = hn::Vec<D>;
    static constexpr std::size_t kLanes = hn::MaxLanes(D());
};

/// A vector of \p T as one or two vectors of double, in lane order.
template <class T, bool kSplit = (sizeof(T) < sizeof(double) && Tag<T>::kLanes > 1)>
struct Wide;

template <class T>
struct Wide<T, false> {
    using D = hn::Rebind<double, typename Tag<T>::D>;
    static constexpr std::size_t kParts = 1;
    static constexpr std::size_t kPartLanes = Tag<T>::kLanes;
    hn::Vec<D> part[1];

    explicit HWY_INLINE Wide(hn::Vec<hn::ScalableTag<double>> value) : part{value} {}
    explicit HWY_INLINE Wide(hn::Vec<hn::Rebind<float, D>> value) : part{hn::PromoteTo(D(), value)} {}
    explicit HWY_INLINE Wide(hn::Vec<hn::Rebind<std::int32_t, D>> value) : part{hn::PromoteTo(D(), value)} {}
};

#if HWY_TARGET != HWY_SCALAR
template <class T>
struct Wide<T, true> {
    using D = hn::ScalableTag<double>;
    static constexpr std::size_t kParts = 2;
    static constexpr std::size_t kPartLanes = Tag<T>::kLanes / 2;
    hn::Vec<D> part[2];

    template <class V>
    explicit HWY_INLINE Wide(V value)
        : part{hn::PromoteTo(D(), hn::LowerHalf(hn::Half<hn::DFromV<V>>(), value)),
               hn::PromoteTo(D(), hn::UpperHalf(hn::Half<hn::DFromV<V>>(), value))} {}
};
#endif

} // namespace HWY_NAMESPACE
} // namespace orvanta::spectral
HWY_AFTER_NAMESPACE();

#endif

// SPDX-License-Identifier: GPL-3.0-or-later
// Memory for vector kernels.
#pragma once

#include <hwy/aligned_allocator.h>

#include <algorithm>
#include <cstddef>
#include <limits>
#include <new>

namespace orvanta::spectral {

/// A fixed number of plain values, aligned for the widest vectors, zero at first.
template <class T>
class AlignedArray {
public:
    AlignedArray() = default;
    /// \throws std::bad_alloc
    explicit AlignedArray(std::size_t size) : size_(size) {
        if (size > std::numeric_limits<std::size_t>::max() / (2 * sizeof(T))) {
            throw std::bad_alloc();
        }
        // Room for a little more than asked: kernels may load a whole vector at the last value.
        values_ = hwy::AllocateAligned<T>(size + 64 / sizeof(T));
        if (!values_) {
            throw std::bad_alloc();
        }
        std::fill_n(values_.get(), size + 64 / sizeof(T), T{});
    }

    T* data() { return values_.get(); }
    const T* data() const { return values_.get(); }
    std::size_t size() const { return size_; }
    T& operator[](std::size_t i) { return values_[i]; }
    const T& operator[](std::size_t i) const { return values_[i]; }
    void Clear() { std::fill_n(values_.get(), size_, T{}); }

private:
    hwy::AlignedFreeUniquePtr<T[]> values_;
    std::size_t size_ = 0;
};

} // namespace orvanta::spectral

// SPDX-License-Identifier: GPL-3.0-or-later
// How much memory the program holds.
#pragma once

#include <cstddef>

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
// Of the sanitizers' runtime; not every compiler has the header that declares it.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes(); // NOLINT(bugprone-reserved-identifier)
#else
#include <malloc.h>
#endif

namespace orvanta::test {

/// Bytes that are allocated and not freed, of all threads.
inline std::size_t MemoryInUse() {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    return __sanitizer_get_current_allocated_bytes();
#else
    const struct mallinfo2 info = ::mallinfo2();
    return info.uordblks + info.hblkhd;
#endif
}

} // namespace orvanta::test

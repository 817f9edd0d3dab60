// SPDX-License-Identifier: GPL-3.0-or-later
// Stored samples as numbers.
#pragma once

#include "host/signal_base/block_source.h"

#include <cstdint>

namespace orvanta::signal {

/// The stored value at \p bytes.
ORVANTA_API double StoredValue(SampleFormat format, const std::byte* bytes);

} // namespace orvanta::signal

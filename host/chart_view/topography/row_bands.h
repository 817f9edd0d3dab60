// SPDX-License-Identifier: GPL-3.0-or-later
// Rows of a picture on all cores.
#pragma once

#include "spectra_contract/api.h"

#include <functional>

namespace orvanta::chart {

/// Calls work(first, last) for bands of rows that make up 0 to \p rows together, several at a time, and waits
/// for all of them. What work does to a row must not depend on other rows, so that the result is the same for
/// any number of cores. \param step all bands but the last have a multiple of so many rows: fewer than that
/// are not worth a thread \throws what work threw
ORVANTA_API void ForRowBands(int rows, int step, const std::function<void(int, int)>& work);

} // namespace orvanta::chart

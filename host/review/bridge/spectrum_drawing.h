// SPDX-License-Identifier: GPL-3.0-or-later
// The spectrum view, drawn without being shown.
#pragma once

#include "host/review/app/module_bridge.h"
#include "host/review/app/spectrum_page.h"

namespace orvanta::review {

std::vector<DrawnPlot> DrawSpectrumPage(GlobalWindow& window, EEGFileInfoType& recording, SpectraMgr& manager,
                                        const SpectrumPage& page, const owl::TSize& size, owl::TDC& dc);

} // namespace orvanta::review

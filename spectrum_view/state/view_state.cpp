// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/state/view_state.h"

namespace orvanta::spectrum_view {

DisplaySettings& Display() {
    static DisplaySettings settings;
    return settings;
}

} // namespace orvanta::spectrum_view

// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/painting/plot_box.h"

#include "spectrum_view/painting/whole_pixels.h"

namespace orvanta::spectrum_view {

int SlotX(const owl::TRect& slot, double share) {
    return slot.left + WholePixels(slot.Width() * share);
}

int SlotY(const owl::TRect& slot, double share) {
    return slot.top + WholePixels(slot.Height() * share);
}

owl::TPoint AxisOrigin(const owl::TRect& slot) {
    return {SlotX(slot, kPlotLeft), SlotY(slot, kPlotBottom)};
}

owl::TRect PlotArea(const owl::TRect& slot) {
    return {SlotX(slot, kPlotLeft), SlotY(slot, kPlotTop), SlotX(slot, kPlotRight), SlotY(slot, kPlotBottom)};
}

} // namespace orvanta::spectrum_view

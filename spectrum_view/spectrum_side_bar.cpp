// SPDX-License-Identifier: GPL-3.0-or-later
// What stands beside the view.
#include "side_bar/form_listener.h"
#include "spectrum_view/spectrum.h"

void Spectrum::NotifyPanels() {
    for (TFormListener* panel : {spectraPanel_.data(), regressionPanel_.data()}) {
        if (panel != nullptr) {
            panel->SomethingChanged();
        }
    }
}

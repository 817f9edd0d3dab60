// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectra_contract/spect_globals.h"

namespace SPECT {

Globals& GetGlobals() {
    static Globals globals;
    return globals;
}

Globals::Globals() = default;

} // namespace SPECT

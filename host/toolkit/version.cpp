// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/version.h"

namespace owl {

std::uint32_t OWLGetVersion() {
    return 0x00610000;
}

} // namespace owl

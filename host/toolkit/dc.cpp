// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/dc.h"

namespace owl {

TDC::~TDC() = default;

} // namespace owl

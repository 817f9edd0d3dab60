// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/render/hidden_window.h"

#include <iostream>

namespace orvanta::review {

HiddenWindow::HiddenWindow() : gui_(std::cerr, {}), platform_(gui_, "") {}

} // namespace orvanta::review

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/block_source.h"

namespace orvanta::signal {

BlockSource::~BlockSource() = default;

} // namespace orvanta::signal

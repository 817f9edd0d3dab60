// SPDX-License-Identifier: GPL-3.0-or-later
// The samples of an EDF or BDF file.
#pragma once

#include "host/signal_base/data_file.h"
#include "host/signal_base/edf/edf_header.h"

#include <memory>

namespace orvanta::signal {

/// A block is a data record; \p records of them are in use.
std::shared_ptr<const BlockSource> MakeEdfSource(std::shared_ptr<const DataFile> file,
                                                 const EdfHeader& header, std::uint64_t records);

} // namespace orvanta::signal

// SPDX-License-Identifier: GPL-3.0-or-later
// Which reader a file is for.
#pragma once

#include "spectra_contract/api.h"

#include <string>
#include <string_view>

namespace orvanta::signal {

enum class FileFormat { Unknown, Edf, BrainVision };

/// Bytes from a file's start that tell its format.
constexpr std::size_t kFormatBytes = 256;

/// Told by the first bytes of the file, and where they say nothing by the extension of its name (case
/// ignored).
ORVANTA_API FileFormat FormatOf(std::string_view head, const std::string& path);

} // namespace orvanta::signal

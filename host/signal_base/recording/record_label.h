// SPDX-License-Identifier: GPL-3.0-or-later
// What a recording is called.
#pragma once

#include "host/signal_base/recording_data.h"

#include <string>

namespace orvanta::signal {

/// The patient field, else the record field, else the file's stem; fields that are blank or made anonymous
/// ("X X X X", "Startdate X X X X") count as missing. The patient is without the "X" that stands for an
/// unknown subfield ("X X X Demo" is "Demo"). Path separators and control characters become "-".
std::string RecordLabel(const RecordingData& data);
/// The bare file name with extension.
std::string FileNameText(const std::string& path);

} // namespace orvanta::signal

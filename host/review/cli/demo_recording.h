// SPDX-License-Identifier: GPL-3.0-or-later
// The made-up EEG as a recording file.
#pragma once

#include "host/review/cli/demo_signal.h"

#include <functional>
#include <string>

namespace orvanta::cli {

/// The patient of every demo recording.
constexpr const char* kDemoPatient = "X X X Demo";

/// Writes a demo from its beginning as an EDF+ file, whole or not at all. \param told after every second with
/// the share that is done; a throw of it ends the writing \throws std::runtime_error
void WriteDemoRecording(const std::string& path, DemoSignal& demo,
                        const std::function<void(double)>& told = {});

} // namespace orvanta::cli

// SPDX-License-Identifier: GPL-3.0-or-later
// What the windows of the gallery show.
#pragma once

#include "host/platform/host_platform.h"
#include "host/review/app/gui.h"
#include "host/review/app/module_bridge.h"
#include "spectra_contract/recording.h"

#include <QTemporaryDir>

#include <memory>

namespace orvanta::review {

/// The demo recording and a few macros in a temporary folder, which goes with it.
class DemoSample {
public:
    /// \throws std::runtime_error when they cannot be written
    DemoSample();

    GallerySample Get() { return {*recording_, platform_}; }

private:
    QTemporaryDir folder_;
    Gui gui_;
    platform::HostPlatform platform_;
    std::unique_ptr<EEGFileInfoType> recording_;
};

} // namespace orvanta::review

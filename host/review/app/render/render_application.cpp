// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/render/render_application.h"

#include "host/platform/interrupts.h"
#include "host/review/app/host_strings.h"
#include "host/review/cli/watch.h"
#include "host/toolkit/message_module.h"

namespace orvanta::review {

RenderApplication::RenderApplication(double fineness) : application_(Screen::None, fineness) {
    application_.SetStyle(Style::Light);
    SupplyHostStrings(PModule::Named("Orvanta"));
}

void StopWhenInterrupted() {
    if (platform::WasInterrupted()) {
        throw cli::Interrupted();
    }
}

} // namespace orvanta::review

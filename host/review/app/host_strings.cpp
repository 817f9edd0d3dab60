// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/host_strings.h"

#include "host/toolkit/form_texts.h"
#include "host/toolkit/message_module.h"

namespace orvanta::review {

void SupplyHostStrings(const PModule* messages) {
    PModule::SetHostStrings({
        {7521, owl::TextOr(messages, "HOST", "noBands", "No bands selected.")},
        {7522, owl::TextOr(messages, "HOST", "noMeasures", "No measures selected.")},
    });
}

} // namespace orvanta::review

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/host_text.h"

#include "host/toolkit/form_texts.h"
#include "host/toolkit/message_module.h"

namespace orvanta::review {

std::string HostText(const char* key, const char* builtIn) {
    return owl::TextOr(PModule::Named("Orvanta"), "HOST", key, builtIn);
}

QString HostQText(const char* key, const char* builtIn) {
    return QString::fromStdString(HostText(key, builtIn));
}

} // namespace orvanta::review

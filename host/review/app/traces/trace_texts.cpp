// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/trace_texts.h"

#include "host/toolkit/form_texts.h"
#include "host/toolkit/message_module.h"

namespace orvanta::review {

std::string TraceText(const char* key, const char* builtIn) {
    return owl::TextOr(PModule::Named("Orvanta"), "TRACES", key, builtIn);
}

std::string TraceText(const char* key, const char* builtIn, const std::string& first) {
    std::string text = TraceText(key, builtIn);
    const std::size_t place = text.find("%1");
    return place == std::string::npos ? text : text.replace(place, 2, first);
}

} // namespace orvanta::review

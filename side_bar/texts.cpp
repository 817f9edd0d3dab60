// SPDX-License-Identifier: GPL-3.0-or-later
#include "side_bar/texts.h"

#include "host/toolkit/form_texts.h"
#include "host/toolkit/message_module.h"

#include <string_view>

namespace orvanta::side_bar {

std::string MacroText(const char* key, const std::string& builtIn) {
    return owl::TextOr(PModule::Named("Orvanta"), "MACRO", key, builtIn);
}

std::string FillIn(const std::string& text, std::initializer_list<std::string> values) {
    std::string filled;
    const auto* value = values.begin();
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool placeholder = text[at] == '%' && at + 1 < text.size() &&
                                 std::string_view("sdx").find(text[at + 1]) != std::string_view::npos;
        if (placeholder && value != values.end()) {
            filled += *value++;
            ++at;
        } else {
            filled += text[at];
        }
    }
    return filled;
}

} // namespace orvanta::side_bar

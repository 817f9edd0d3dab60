// SPDX-License-Identifier: GPL-3.0-or-later
// Texts of the macro forms and boxes in the user's language.
#pragma once

#include <initializer_list>
#include <string>

namespace orvanta::side_bar {

/// The text of section "MACRO" of the module's message store, else \p builtIn.
std::string MacroText(const char* key, const std::string& builtIn);

/// \p text with its placeholders ("%s", "%d", "%x") replaced by the values, the first by the first and so on.
/// A placeholder without a value stays, a value without a placeholder is left out: a text of the store is
/// never taken for a format.
std::string FillIn(const std::string& text, std::initializer_list<std::string> values);

} // namespace orvanta::side_bar

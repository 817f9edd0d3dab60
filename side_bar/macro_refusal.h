// SPDX-License-Identifier: GPL-3.0-or-later
// Why a macro's file was refused, in the user's language.
#pragma once

#include <string>

namespace orvanta::side_bar {

/// \param error "FILE: reason (remedy)" in English, of this file; another text stays as it is
std::string MacroRefusal(const std::string& error, const std::string& file);

} // namespace orvanta::side_bar

// SPDX-License-Identifier: GPL-3.0-or-later
// Texts among the user's settings.
#pragma once

#include <string>

class GenericPlatform;

namespace orvanta::review {

/// Section of the application's own settings.
constexpr const char* kHostSection = "Host";

/// Of section kHostSection; at most 64 KiB. Empty when absent.
std::string ReadText(const GenericPlatform& platform, const std::string& key);
void WriteText(GenericPlatform& platform, const std::string& key, const std::string& text);

} // namespace orvanta::review

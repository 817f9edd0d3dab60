// SPDX-License-Identifier: GPL-3.0-or-later
// The spectrum view's settings that are texts.
#pragma once

#include <string>

class GenericPlatform;

namespace orvanta::spectrum_view {

/// The text of the view's section, at most 259 bytes of it; \p absent when the user has none.
std::string TextSetting(const GenericPlatform& platform, const char* key, const char* absent);

} // namespace orvanta::spectrum_view

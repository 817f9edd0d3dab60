// SPDX-License-Identifier: GPL-3.0-or-later
// The font of a child window among the user's settings.
#pragma once

#include "host/toolkit/dc.h"
#include "spectra_contract/api.h"

class GenericPlatform;

/// Reads what StoreViewFont wrote; \p font where it is missing, in part or whole. The height is above 0 and
/// at most 1000 pixels whatever is stored.
ORVANTA_API owl::TFont StoredViewFont(const GenericPlatform& platform, const char* section,
                                      const owl::TFont& font);

/// Writes "FontFace", "FontHeight", "FontBold" and "FontItalic".
ORVANTA_API void StoreViewFont(GenericPlatform& platform, const char* section, const owl::TFont& font);

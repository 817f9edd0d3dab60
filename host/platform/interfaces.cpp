// SPDX-License-Identifier: GPL-3.0-or-later
// Destructors of the interfaces, here so that their type information exists once.
#include "spectra_contract/platform.h"

GenericProgress::~GenericProgress() = default;
GenericGUI::~GenericGUI() = default;
UserType::~UserType() = default;
GenericPlatform::~GenericPlatform() = default;

// SPDX-License-Identifier: GPL-3.0-or-later
// The plain exports of the window layer's plug-in protocol.
#pragma once

#include "spectra_contract/api.h"

#include <cstdint>

namespace owl {
class TDocTemplate;
class TModule;
} // namespace owl

extern "C" {
/// Address of the module pointer when caller and module agree in the window layer's release, that is, in
/// every bit of the version above the low 20; else null, and nothing happens. \param version the caller's
/// owl::OWLGetVersion()
ORVANTA_API owl::TModule** GetModulePtr(std::uint32_t version);

/// Address of the head of the list of document templates, under the same condition. The module has no
/// document templates: the head is null for as long as the module lives.
ORVANTA_API owl::TDocTemplate** GetDocTemplateHead(std::uint32_t version);
}

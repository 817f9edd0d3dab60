// SPDX-License-Identifier: GPL-3.0-or-later
// The macro file (".smx"): settings of an analysis as XML.
#pragma once

#include "host/spectral_data/files/xml_writer.h"
#include "spectra_contract/api.h"
#include "spectra_contract/spectra_macro.h"

#include <string>
#include <string_view>

namespace orvanta::spectral {

/// Writes one element per field into the element that is open.
ORVANTA_API void WriteMacroFields(XmlWriter& xml, const SpectraMacro& macro);
/// The content of a macro file.
ORVANTA_API std::string FormatMacroFile(const SpectraMacro& macro);
/// Reads the content of a macro file. Elements that are not known are ignored, fields that are missing keep
/// their default. \param file name for messages
/// \throws std::runtime_error "FILE: reason (remedy)" naming the line: no XML, another root, a newer version,
/// a field that is there twice or out of range, too many or too long labels, more than 4 MiB
ORVANTA_API SpectraMacro ParseMacroFile(const std::string& file, std::string_view content);

} // namespace orvanta::spectral

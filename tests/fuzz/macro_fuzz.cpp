// SPDX-License-Identifier: GPL-3.0-or-later
// Macro files: whatever is read can be written and reads back as the same settings.
#include "host/spectral_data/settings/macro_file.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <stdexcept>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace orvanta::spectral;
    SpectraMacro macro;
    try {
        macro = ParseMacroFile("fuzz.smx", {reinterpret_cast<const char*>(data), size});
    } catch (const std::runtime_error&) {
        return 0;
    }
    // Writing makes the texts valid UTF-8; from then on nothing changes any more.
    const SpectraMacro valid = ParseMacroFile("written.smx", FormatMacroFile(macro));
    if (!(ParseMacroFile("again.smx", FormatMacroFile(valid)) == valid)) {
        std::abort();
    }
    std::ostringstream text;
    macro.GetLongDescrStr(text);
    macro.GetProcEventString();
    return 0;
}

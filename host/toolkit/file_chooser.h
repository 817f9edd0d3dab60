// SPDX-License-Identifier: GPL-3.0-or-later
// Choosing the name of a file.
#pragma once

#include "host/toolkit/modal_gateway.h"

class QString;

namespace owl {

/// A chooser's filter in Qt's form: "Text|*.txt|All|*.*" as "Text (*.txt);;All (*)".
ORVANTA_TOOLKIT_API QString QtFileFilter(const std::string& filter);

/// Shows the desktop's chooser, Qt's where it has none. A name to save that ends with no known extension gets
/// the one asked for, and a file that already has the longer name is asked about. \return full path; nothing
/// when cancelled
ORVANTA_TOOLKIT_API std::optional<std::string> ChooseFileToOpen(HWND owner, const FileQuestion& question);
ORVANTA_TOOLKIT_API std::optional<std::string> ChooseFileToSave(HWND owner, const FileQuestion& question);

} // namespace owl

// SPDX-License-Identifier: GPL-3.0-or-later
// Asks for the file under which a macro is saved.
#pragma once

#include "host/toolkit/window_handle.h"
#include "side_bar/file_name_rule.h"

/// What GetMacroFileName and CopyMacroPath answer besides 0 and the number of an access error less 1000.
namespace MacroFileNameCode {
constexpr int Cancelled = -10;
constexpr int Denied = -100;
constexpr int OverwriteRefused = -110;
constexpr int EraseRefused = -111;
constexpr int TooLong = -120;
constexpr int TooShort = -130;
constexpr int AccessError = -1000; ///< the system's error number is added
constexpr int InvalidName = -2000;
} // namespace MacroFileNameCode

/// Asks for a name, checks it, makes sure that the file may be written and, when there is one already, that
/// it shall be overwritten. Every refusal is told in a message box. GUI thread. \param parent owner of the
/// boxes; may be null \param folder put before the name as it is, with the separator that it ends with \param
/// extension with or without its leading "." \param buffer receives the full path; untouched unless the
/// answer is 0 \param size of the buffer, terminator included \return 0 or a negative code
int GetMacroFileName(HWND parent, const char* title, const char* prompt, const char* defaultName,
                     const char* folder, const char* extension, char* buffer, int size);

/// The last step of it: copies the path into the buffer, or says why that cannot be.
/// \return 0, MacroFileNameCode::TooLong or TooShort
int CopyMacroPath(HWND parent, const char* path, char* buffer, int size);

// SPDX-License-Identifier: GPL-3.0-or-later
// Which names may be used as file names, on every system that files travel to.
#pragma once

/// 0 when the name may be used as a file name, else the code of its first fault: -1 without a name or with
/// 256 characters and more; the code of a character that no file name may hold (control characters, " * / : <
/// > ? | \ and bytes of 128 and above, which count as negative); 46 for dots only; -2 to -24 for a device's
/// name, with or without extension, case ignored (see FileNameCodeText). A stem of COM or LPT and one more
/// character gives 42 or 33 minus the code of that character, digit or not.
int IsValidFileName(const char* name);
/// The same for 16-bit text, where characters of 128 and above are valid.
int IsValidFileName(const char16_t* name);

/// Name of the device of a code -2 to -24; "Error" for every other code.
const char* FileNameCodeText(int code);

// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of a view, out of the program: into a file, onto paper, to the clipboard.
#pragma once

#include "host/review/app/render/picture_file.h"
#include "host/toolkit/window_handle.h"

#include <optional>
#include <string>

class GenericPlatform;
class QPrinter;
class TheChild;

namespace orvanta::review {

struct ViewToShow {
    TheChild& view;
    std::string title; ///< of the picture
    std::string name;  ///< of a file without folder and ending, as it is suggested
};

// GUI thread. What a view throws while it is drawn is thrown.

/// Asks for size and format, then for a file, and writes it; a file that cannot be written is told, and
/// another one may be chosen. \return the file; nothing when the user cancelled
std::optional<std::string> SavePicture(HWND owner, const ViewToShow& shown, GenericPlatform& platform);

/// Asks for a printer and prints a page. \return false when the user cancelled
/// \throws std::runtime_error when nothing can be printed
bool PrintPicture(HWND owner, const ViewToShow& shown);

/// A page with the title above the view, which fills it. \throws std::runtime_error when it cannot be printed
void PrintPage(const ViewToShow& shown, QPrinter& printer);

/// As large as it is on the screen, and at least twice as fine. \return its pixels
owl::TSize CopyPicture(const ViewToShow& shown);

} // namespace orvanta::review

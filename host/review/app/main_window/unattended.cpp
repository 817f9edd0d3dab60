// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/unattended.h"

#include <iostream>

namespace orvanta::review {

int Unattended::ShowMessage(HWND /*owner*/, const std::string& text, const std::string& caption,
                            unsigned type) {
    std::cerr << caption << ": " << text << '\n';
    return (type & owl::kMbYesNo) != 0 ? owl::kIdNo : owl::kIdOk;
}

int Unattended::RunModal(QDialog& /*dialog*/) {
    return owl::kIdCancel;
}

std::optional<std::string> Unattended::AskFileToOpen(HWND /*owner*/, const owl::FileQuestion& /*question*/) {
    return std::nullopt;
}

std::optional<std::string> Unattended::AskFileToSave(HWND /*owner*/, const owl::FileQuestion& /*question*/) {
    return std::nullopt;
}

std::optional<owl::TColor> Unattended::AskColor(HWND /*owner*/, owl::TColor /*color*/) {
    return std::nullopt;
}

std::optional<owl::TFont> Unattended::AskFont(HWND /*owner*/, const owl::TFont& /*font*/) {
    return std::nullopt;
}

std::optional<std::string> Unattended::AskText(HWND /*owner*/, const owl::TextQuestion& /*question*/) {
    return std::nullopt;
}

} // namespace orvanta::review

// SPDX-License-Identifier: GPL-3.0-or-later
// The gateway that shows Qt's dialogs.
#pragma once

#include "host/toolkit/modal_gateway.h"

namespace owl {

class QtModalGateway final : public ModalGateway {
public:
    int ShowMessage(HWND owner, const std::string& text, const std::string& caption, unsigned type) override;
    int RunModal(QDialog& dialog) override;
    std::optional<std::string> AskFileToOpen(HWND owner, const FileQuestion& question) override;
    std::optional<std::string> AskFileToSave(HWND owner, const FileQuestion& question) override;
    std::optional<TColor> AskColor(HWND owner, TColor color) override;
    std::optional<TFont> AskFont(HWND owner, const TFont& font) override;
    std::optional<std::string> AskText(HWND owner, const TextQuestion& question) override;
};

} // namespace owl

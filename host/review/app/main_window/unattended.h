// SPDX-License-Identifier: GPL-3.0-or-later
// A run that nobody watches.
#pragma once

#include "host/toolkit/modal_gateway.h"

namespace orvanta::review {

/// While it lives, nothing waits for a user: messages go to standard error and are answered OK or No, all
/// else is cancelled.
class Unattended final : private owl::ModalGateway {
public:
    Unattended() : before_(owl::ReplaceModalGateway(this)) {}
    ~Unattended() override { owl::ReplaceModalGateway(before_); }
    Unattended(const Unattended&) = delete;
    Unattended& operator=(const Unattended&) = delete;

private:
    int ShowMessage(HWND owner, const std::string& text, const std::string& caption, unsigned type) override;
    int RunModal(QDialog& dialog) override;
    std::optional<std::string> AskFileToOpen(HWND owner, const owl::FileQuestion& question) override;
    std::optional<std::string> AskFileToSave(HWND owner, const owl::FileQuestion& question) override;
    std::optional<owl::TColor> AskColor(HWND owner, owl::TColor color) override;
    std::optional<owl::TFont> AskFont(HWND owner, const owl::TFont& font) override;
    std::optional<std::string> AskText(HWND owner, const owl::TextQuestion& question) override;

    owl::ModalGateway* before_;
};

} // namespace orvanta::review

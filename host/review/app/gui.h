// SPDX-License-Identifier: GPL-3.0-or-later
// Messages and progress in windows.
#pragma once

#include "spectra_contract/platform.h"

namespace orvanta::review {

/// Message boxes titled "Error" and "Warning" through the modal gateway, over the active window.
class Gui final : public GenericGUI {
public:
    void ShowError(const std::string& text) const override;
    void ShowWarning(const std::string& text) const override;
    std::unique_ptr<GenericProgress> CreateProgress(const std::string& text) const override;
};

} // namespace orvanta::review

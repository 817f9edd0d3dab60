// SPDX-License-Identifier: GPL-3.0-or-later
// A GUI that writes down what it is told.
#pragma once

#include "spectra_contract/platform.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace orvanta::test {

/// Keeps messages and progress headings. A cancelled one tells every progress display so.
class RecordingGui : public GenericGUI {
public:
    void ShowError(const std::string& text) const override { errors_.push_back(text); }
    void ShowWarning(const std::string& text) const override { warnings_.push_back(text); }
    std::unique_ptr<GenericProgress> CreateProgress(const std::string& text) const override;

    const std::vector<std::string>& Errors() const { return errors_; }
    const std::vector<std::string>& Warnings() const { return warnings_; }
    const std::vector<std::string>& Progresses() const { return progresses_; }

    /// Called whenever a progress display is made; for a look at the program in the middle of its work.
    std::function<void()> OnProgress;
    bool Cancelled = false;

private:
    mutable std::vector<std::string> errors_, warnings_, progresses_;
};

} // namespace orvanta::test

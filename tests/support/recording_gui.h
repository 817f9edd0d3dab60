// SPDX-License-Identifier: GPL-3.0-or-later
// A GUI that writes down what it is told.
#pragma once

#include "spectra_contract/platform.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace orvanta::test {

/// Keeps messages and what progress displays show. A cancelled one tells every progress display so.
class RecordingGui : public GenericGUI {
public:
    void ShowError(const std::string& text) const override { errors_.push_back(text); }
    void ShowWarning(const std::string& text) const override { warnings_.push_back(text); }
    std::unique_ptr<GenericProgress> CreateProgress(const std::string& text) const override;

    const std::vector<std::string>& Errors() const { return errors_; }
    const std::vector<std::string>& Warnings() const { return warnings_; }
    /// Their headings when they were made.
    const std::vector<std::string>& Progresses() const { return progresses_; }
    /// Their headings and what took the place of these later, in the order of time.
    const std::vector<std::string>& ProgressTexts() const { return texts_; }
    const std::vector<double>& Positions() const { return positions_; }

    // For a look at the program in the middle of its work.
    /// Called whenever a progress display is made.
    std::function<void()> OnProgress;
    /// Called whenever a progress display is made or has a new text.
    std::function<void(const std::string& text)> OnText;
    /// Called whenever a progress display has a new position.
    std::function<void()> OnPosition;
    bool Cancelled = false;

private:
    class Progress;

    mutable std::vector<std::string> errors_, warnings_, progresses_, texts_;
    mutable std::vector<double> positions_;
};

} // namespace orvanta::test

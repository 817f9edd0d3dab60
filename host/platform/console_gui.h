// SPDX-License-Identifier: GPL-3.0-or-later
// Messages and progress of a program without windows.
#pragma once

#include "spectra_contract/platform.h"

#include <functional>
#include <iosfwd>
#include <memory>
#include <string>

namespace orvanta::platform {

class ConsoleLine;

/// Writes messages as lines "PROGRAM: text" and, on a terminal, progress as one line with share, rate and
/// time left that is drawn over itself. Must outlive the progress displays it made.
class ORVANTA_API ConsoleGui final : public GenericGUI {
public:
    struct Options {
        std::string program = "orvanta"; ///< heads every message
        bool terminal = false;           ///< show progress; else CreateProgress answers null
        double work = 100;               ///< the whole work in work_unit, for the rate
        std::string work_unit = "%";     ///< the rate is told in work_unit/s
        std::function<double()> seconds; ///< a clock that only goes forward; empty for the system's
    };

    ConsoleGui(std::ostream& stream, Options options);
    ~ConsoleGui() override;
    ConsoleGui(const ConsoleGui&) = delete;
    ConsoleGui& operator=(const ConsoleGui&) = delete;

    /// True when standard error is a terminal.
    static bool StandardErrorIsTerminal();

    void ShowError(const std::string& text) const override;
    /// "PROGRAM: warning: text".
    void ShowWarning(const std::string& text) const override;
    std::unique_ptr<GenericProgress> CreateProgress(const std::string& text) const override;

private:
    std::shared_ptr<ConsoleLine> line_;
    Options options_;
};

} // namespace orvanta::platform

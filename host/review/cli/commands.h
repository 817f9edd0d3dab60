// SPDX-License-Identifier: GPL-3.0-or-later
// The commands of the program. Each adds its options to the parser and, when chosen, sets what is to run.
#pragma once

#include <functional>

namespace CLI {
class App;
}

namespace orvanta::cli {

/// Runs the chosen command and returns the exit status; failures are thrown.
using Command = std::function<int()>;

void AddInfo(CLI::App& app, Command& run);
void AddDemo(CLI::App& app, Command& run);
void AddCompute(CLI::App& app, Command& run);
void AddCompare(CLI::App& app, Command& run);
void AddRegress(CLI::App& app, Command& run);
void AddExport(CLI::App& app, Command& run);
void AddMacro(CLI::App& app, Command& run);
/// Below the macro command.
void AddMacroEdit(CLI::App& macro, Command& run);
void AddRender(CLI::App& app, Command& run);
void AddGallery(CLI::App& app, Command& run);
/// Runs, too, when no command is given.
void AddReview(CLI::App& app, Command& run);

} // namespace orvanta::cli

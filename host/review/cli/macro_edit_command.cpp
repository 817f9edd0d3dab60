// SPDX-License-Identifier: GPL-3.0-or-later
// orvanta macro edit: settings in their forms.
#include "host/review/cli/commands.h"
#include "host/review/cli/review_library.h"
#include "host/review/cli/validators.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace orvanta::cli {

void AddMacroEdit(CLI::App& macro, Command& run) {
    auto request = std::make_shared<review::EditMacroRequest>();
    CLI::App* command = macro.add_subcommand(
        "edit", "Edit a macro file, or without one choose, make, edit and erase those of your folder");
    command->add_option("FILE", request->file, "Macro file (.smx)")->type_name("")->check(IsNotEmpty());
    command
        ->add_option("--recording", request->recording,
                     "Offer the events of this recording and reckon with its rate")
        ->type_name("FILE");
    const auto style = [&](const char* name, const char* what, review::Style value) {
        return command->add_flag_callback(
            name, [request, value] { request->style = value; }, what);
    };
    CLI::Option* light = style("--light", "Light windows", review::Style::Light);
    style("--dark", "Dark windows", review::Style::Dark)->excludes(light);
    command->footer("Needs a display. Prints \"written FILE\" or \"unchanged FILE\", without a file \"chosen "
                    "FILE\". Without a "
                    "recording, the events on offer are those that the macros name.");
    command->callback([&run, request] { run = [request] { return AskReview(*request); }; });
}

} // namespace orvanta::cli

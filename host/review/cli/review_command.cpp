// SPDX-License-Identifier: GPL-3.0-or-later
// orvanta review: the application with its window.
#include "host/review/cli/commands.h"
#include "host/review/cli/review_library.h"
#include "host/review/cli/validators.h"

#include <CLI/CLI.hpp>

#include <map>
#include <memory>

namespace orvanta::cli {

void AddReview(CLI::App& app, Command& run) {
    auto request = std::make_shared<review::ReviewRequest>();
    run = [request] { return AskReview(*request); };
    CLI::App* command = app.add_subcommand("review", "Open the review application, the same as no command");
    command->add_option("FILE", request->file, "Recording (default: the one that was open last)")
        ->type_name("")
        ->check(IsNotEmpty());
    command
        ->add_option(
            "--macro", request->macro,
            "Stored macro, by its name or file, that a recording is analysed with which has no analysis yet")
        ->type_name("NAME|FILE")
        ->check(IsNotEmpty());
    command
        ->add_option("--language", request->language,
                     "Of the texts, such as de, for this time (default: Tools > Language)")
        ->check(IsNotEmpty());
    const std::map<std::string, review::Style> styles{{"light", review::Style::Light},
                                                      {"dark", review::Style::Dark}};
    command->add_option("--style", request->style, "light or dark (default: as the desktop)")
        ->transform(CLI::Validator(CLI::CheckedTransformer(styles, CLI::ignore_case)).description(""))
        ->type_name("NAME");
    command->add_flag("--safe-mode", request->safeMode,
                      "Neither read nor change settings, sessions and layout");
    command->add_option("--log", request->log, "Append what happens, with the time, to this file")
        ->type_name("FILE")
        ->check(IsNotEmpty());
    command
        ->add_option("--picture", request->picture,
                     "Paint the window into this PNG file instead of showing it, without the user's settings")
        ->type_name("FILE")
        ->check(NamesAFile());
    command->footer("Needs a display, but for --picture.");
    command->callback([&run, request] { run = [request] { return AskReview(*request); }; });
}

} // namespace orvanta::cli

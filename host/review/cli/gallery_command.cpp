// SPDX-License-Identifier: GPL-3.0-or-later
// orvanta gallery: pictures of the windows.
#include "host/review/cli/commands.h"
#include "host/review/cli/review_library.h"
#include "host/review/cli/validators.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace orvanta::cli {

void AddGallery(CLI::App& app, Command& run) {
    auto request = std::make_shared<review::GalleryRequest>();
    CLI::App* command =
        app.add_subcommand("gallery", "Take pictures of every form and dialog, light and dark, as PNG");
    command->add_option("--out", request->out, "Folder to write to")
        ->type_name("DIR")
        ->required()
        ->check(IsNotEmpty());
    command->add_option("--scale", request->scales, "Device pixels per pixel, repeatable (default 1)")
        ->check(IsNumberIn(0.5, 4.0))
        ->type_name("S")
        ->allow_extra_args(false);
    command->add_option("--language", request->language, "Of the texts, such as de (default en)")
        ->type_name("CODE");
    command->add_option("--only", request->only, "One window by its name, repeatable")
        ->type_name("NAME")
        ->allow_extra_args(false);
    command->footer("Prints the files, NAME-light-1x.png and so on. Needs no display.");
    command->callback([&run, request] { run = [request] { return AskReview(*request); }; });
}

} // namespace orvanta::cli

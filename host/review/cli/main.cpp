// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/platform/interrupts.h"
#include "host/review/cli/commands.h"
#include "host/review/cli/exit_status.h"
#include "host/review/cli/help_format.h"
#include "host/review/cli/watch.h"
#include "host/signal_base/recording_error.h"
#include "host/spectral_data/results/errors.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

constexpr const char* kVersion = ORVANTA_VERSION;

int Fail(int status, const char* reason) {
    std::fprintf(stderr, "orvanta: %s\n", reason);
    return status;
}

/// Whether the arguments begin with a file where a command is expected. \throws UsageError for neither
bool OpensFile(const CLI::App& app, const std::vector<std::string>& arguments) {
    if (arguments.empty() || arguments.front().starts_with('-')) {
        return false;
    }
    const std::string& first = arguments.front();
    if (!app.get_subcommands([&](const CLI::App* command) { return command->get_name() == first; }).empty()) {
        return false;
    }
    std::error_code none;
    if (!std::filesystem::exists(first, none)) {
        throw orvanta::cli::UsageError(first + ": no such command, and no such file (see orvanta --help)");
    }
    return true;
}

/// Reads the arguments and runs the command they name.
int Run(int argc, char** argv) {
    using namespace orvanta::cli;
    CLI::App app(
        "Reviews EEG recordings and analyses their spectra: in a window, or by commands for scripts.",
        "orvanta");
    app.set_version_flag("--version", kVersion);
    app.require_subcommand(0, 1);
    app.formatter(std::make_shared<HelpFormat>());

    Command run;
    AddInfo(app, run);
    AddDemo(app, run);
    AddCompute(app, run);
    AddCompare(app, run);
    AddRegress(app, run);
    AddExport(app, run);
    AddRender(app, run);
    AddMacro(app, run);
    AddGallery(app, run);
    AddReview(app, run);
    for (CLI::App* command : app.get_subcommands({})) {
        command->group("Commands");
    }
    // Last, as every command would take it over.
    app.footer("Without a command the review application opens; orvanta FILE opens a recording in it.\n\n"
               "To begin with:\n"
               "  orvanta demo                                a recording to try things out, demo.edf\n"
               "  orvanta info demo.edf                       its channels, events and montages\n"
               "  orvanta compute demo.edf                    its spectra\n"
               "  orvanta render demo.edf --out demo.png      a picture of them\n"
               "  orvanta compute --help                      every option of a command\n\n"
               "Exit status: 0 done, 1 nothing computable, 2 bad usage or a refused file, 130 interrupted.");

    std::vector<std::string> arguments(argv + 1, argv + argc);
    if (OpensFile(app, arguments)) {
        arguments.insert(arguments.begin(), "review");
    }
    try {
        std::reverse(arguments.begin(), arguments.end()); // as the parser takes them
        app.parse(std::move(arguments));
    } catch (const CLI::Success& success) {
        return app.exit(success);
    } catch (const CLI::ParseError& error) {
        std::string command = "orvanta";
        for (const CLI::App* sub = &app; !sub->get_subcommands().empty();) {
            sub = sub->get_subcommands().front();
            command += " " + sub->get_name();
        }
        return Fail(kRefused, (std::string(error.what()) + " (see " + command + " --help)").c_str());
    }
    orvanta::platform::CatchInterrupts();
    return run();
}

} // namespace

int main(int argc, char** argv) {
    using namespace orvanta::cli;
    try {
        return Run(argc, argv);
    } catch (const Interrupted& interrupted) {
        return Fail(kInterrupted, interrupted.what());
    } catch (const orvanta::spectral::NothingComputable& error) {
        return Fail(kNothingComputable, error.what());
    } catch (const std::exception& error) {
        return Fail(kRefused, error.what());
    } catch (...) {
        return Fail(kRefused, "an unknown failure (please report it with the recording)");
    }
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/platform/interrupts.h"
#include "host/review/cli/commands.h"
#include "host/review/cli/exit_status.h"
#include "host/review/cli/watch.h"
#include "host/signal_base/recording_error.h"
#include "host/spectral_data/results/errors.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <exception>
#include <string>

namespace {

constexpr const char* kVersion = ORVANTA_VERSION;

int Fail(int status, const char* reason) {
    std::fprintf(stderr, "orvanta: %s\n", reason);
    return status;
}

/// Reads the arguments and runs the command they name.
int Run(int argc, char** argv) {
    using namespace orvanta::cli;
    CLI::App app("Spectra of EEG recordings: mean and SD per sensor and channel, band measures, comparisons.",
                 "orvanta");
    app.set_version_flag("--version", kVersion);
    app.require_subcommand(0, 1);
    app.get_formatter()->column_width(34);
    app.footer("Without a command the review application opens. orvanta COMMAND --help tells a command's "
               "options. Exit status: 0 done, 1 nothing computable, "
               "2 bad usage or a refused file.");

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

    try {
        app.parse(argc, argv);
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

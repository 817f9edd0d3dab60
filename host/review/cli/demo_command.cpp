// SPDX-License-Identifier: GPL-3.0-or-later
// orvanta demo: a made-up recording for trying things out.
#include "host/review/cli/commands.h"
#include "host/review/cli/demo_recording.h"
#include "host/review/cli/exit_status.h"
#include "host/review/cli/output.h"
#include "host/review/cli/validators.h"
#include "host/review/cli/watch.h"

#include <CLI/CLI.hpp>

#include <filesystem>
#include <fstream>
#include <memory>

namespace orvanta::cli {

namespace {

struct DemoArguments {
    std::string out = "demo.edf";
    DemoParameters parameters;
};

/// A recording is worth more than a demo: only another demo, or nothing, may be replaced.
void RequireReplaceable(const std::string& path) {
    if (path.empty() || path == "-") {
        throw UsageError("--out: needs a file name (such as demo.edf)");
    }
    std::error_code none;
    if (!std::filesystem::is_regular_file(path, none) || std::filesystem::file_size(path, none) == 0) {
        return;
    }
    std::string head(88, ' ');
    std::ifstream(path, std::ios::binary).read(head.data(), static_cast<std::streamsize>(head.size()));
    if (head.find(kDemoPatient) != 8) {
        throw UsageError(path + ": exists and is no demo recording (choose another name with --out)");
    }
}

int Demo(const DemoArguments& arguments) {
    DemoSignal demo(arguments.parameters);
    RequireReplaceable(arguments.out);
    Watch watch("Writing " + arguments.out, static_cast<double>(demo.Seconds()) / 60, false);

    WriteDemoRecording(arguments.out, demo, [&watch](double share) {
        watch.SetPosition(share);
        if (watch.IsCancelled()) {
            throw Interrupted();
        }
    });
    WriteOutput("-", arguments.out + ": " + DurationText(static_cast<double>(demo.Seconds())) + " of " +
                         std::to_string(demo.Labels().size()) + " channels at " +
                         std::to_string(arguments.parameters.rate_hz) +
                         " Hz, eyes open and closed in turn\n");
    return kDone;
}

} // namespace

void AddDemo(CLI::App& app, Command& run) {
    auto arguments = std::make_shared<DemoArguments>();
    DemoParameters& parameters = arguments->parameters;
    CLI::App* command = app.add_subcommand("demo", "Write a made-up recording for trying things out");
    command->add_option("--out", arguments->out, "EDF+ file to write (default demo.edf)")
        ->type_name("FILE.edf");
    command->add_option("--minutes", parameters.minutes, "Length (default 5)")
        ->check(IsNumberIn(0.02, 7.0 * 24 * 60))
        ->type_name("M");
    command->add_option("--channels", parameters.channels, "Electrodes (default 19, the 10-20 system)")
        ->check(CLI::Validator(CLI::Range(1u, 512u)).description(""))
        ->type_name("C");
    command->add_option("--rate", parameters.rate_hz, "Samples a second (default 256)")
        ->check(CLI::Validator(CLI::Range(64u, 16384u)).description(""))
        ->type_name("HZ");
    command->add_option("--seed", parameters.seed, "Another number makes another recording (default 1)")
        ->type_name("N");
    command->footer(
        "The same options give the same file, byte for byte. It holds a 1/f background, 30-second "
        "stretches marked \"eyes open\" and \"eyes closed\" with a 10 Hz rhythm at the back of the head "
        "in the latter, blinks marked \"bad blink\", and spot events \"tone\".");
    command->callback([&run, arguments] { run = [arguments] { return Demo(*arguments); }; });
}

} // namespace orvanta::cli

// SPDX-License-Identifier: GPL-3.0-or-later
// orvanta macro new|show|check|edit: settings files.
#include "host/review/cli/commands.h"
#include "host/review/cli/exit_status.h"
#include "host/review/cli/macro_keys.h"
#include "host/review/cli/validators.h"
#include "host/spectral_data/settings/tapers.h"
#include "spectra_contract/spectra_macro.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <filesystem>
#include <memory>

namespace orvanta::cli {

namespace {

struct MacroArguments {
    std::string file;
    std::vector<std::string> assignments;
};

void Apply(SpectraMacro& macro, const std::vector<std::string>& assignments) {
    for (const std::string& assignment : assignments) {
        SetKey(macro, assignment);
    }
}

SpectraMacro LoadMacro(const MacroArguments& arguments) {
    SpectraMacro macro;
    if (macro.Load(arguments.file) == 2) {
        throw UsageError(macro.GetLastError());
    }
    Apply(macro, arguments.assignments);
    return macro;
}

int NewMacro(const MacroArguments& arguments) {
    // A link that leads nowhere is there too; of other errors the save tells.
    std::error_code unknown;
    if (std::filesystem::exists(std::filesystem::symlink_status(arguments.file, unknown))) {
        throw UsageError(arguments.file + ": exists already (choose another name, or remove it first)");
    }
    SpectraMacro macro;
    Apply(macro, arguments.assignments);
    if (macro.SaveAs(arguments.file) != 0) {
        throw UsageError(macro.GetLastError());
    }
    return kDone;
}

int ShowMacro(const MacroArguments& arguments) {
    for (const std::string& line : KeysToText(LoadMacro(arguments))) {
        std::printf("%s\n", line.c_str());
    }
    return kDone;
}

int CheckMacro(const MacroArguments& arguments) {
    try {
        spectral::FindTaper(LoadMacro(arguments).GetDSPWindowStr());
    } catch (const UsageError&) {
        throw;
    } catch (const std::exception& reason) {
        throw UsageError(arguments.file + ": " + reason.what());
    }
    std::printf("%s: a sound macro file\n", arguments.file.c_str());
    return kDone;
}

} // namespace

void AddMacro(CLI::App& app, Command& run) {
    CLI::App* command = app.add_subcommand("macro", "Make, show, check or edit a settings file (macro)");
    command->require_subcommand(1);
    command->footer(KeyHelp());

    const auto add = [&](const char* name, const char* what, int (*action)(const MacroArguments&)) {
        auto arguments = std::make_shared<MacroArguments>();
        CLI::App* sub = command->add_subcommand(name, what);
        sub->add_option("FILE", arguments->file, "Macro file (.smx)")
            ->required()
            ->type_name("")
            ->check(IsNotEmpty());
        sub->add_option("--set", arguments->assignments, "KEY=VALUE, repeatable; lists are comma-separated")
            ->type_name("KEY=VALUE")
            ->allow_extra_args(false);
        sub->footer(KeyHelp());
        sub->callback(
            [&run, arguments, action] { run = [arguments, action] { return action(*arguments); }; });
    };
    add("new", "Write a new macro file with the default settings and those of --set", NewMacro);
    add("show", "Print a macro's settings, with those of --set, as KEY=VALUE", ShowMacro);
    add("check", "Say whether a macro file is sound", CheckMacro);
    AddMacroEdit(*command, run);
}

} // namespace orvanta::cli

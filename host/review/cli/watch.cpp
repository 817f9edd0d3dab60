// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/cli/watch.h"

#include "host/platform/interrupts.h"

#include <iostream>

namespace orvanta::cli {

namespace {

platform::ConsoleGui::Options OptionsOf(double minutes, bool quiet) {
    platform::ConsoleGui::Options options;
    options.terminal = !quiet && platform::ConsoleGui::StandardErrorIsTerminal();
    options.work = minutes;
    options.work_unit = "recorded min";
    return options;
}

} // namespace

Watch::Watch(const std::string& title, double minutes, bool quiet)
    : gui_(std::cerr, OptionsOf(minutes, quiet)), shown_(gui_.CreateProgress(title)) {}

Watch::~Watch() = default;

void Watch::SetText(const std::string& text) {
    if (shown_) {
        shown_->SetText(text);
    }
}

void Watch::SetPosition(double fraction) {
    if (shown_) {
        shown_->SetPosition(fraction);
    }
}

bool Watch::IsCancelled() const {
    return platform::WasInterrupted();
}

} // namespace orvanta::cli

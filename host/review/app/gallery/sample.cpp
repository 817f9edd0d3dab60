// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/gallery/sample.h"

#include "host/review/cli/demo_recording.h"
#include "host/signal_base/recording.h"
#include "spectra_contract/spectra_macro.h"

#include <stdexcept>

namespace orvanta::review {

namespace {

using Mode = SpectraMacro::TimeIntervalSelectMode;

void SaveMacro(const GenericPlatform& platform, const std::string& name, SpectraMacro macro) {
    if (macro.SaveAs(platform.GetAppFolder("MACRO") + name + ".smx") != 0) {
        throw std::runtime_error(macro.GetLastError());
    }
}

SpectraMacro OfStates(const std::string& label, std::uint32_t color) {
    SpectraMacro macro;
    macro.SetTimeIntervalSelectMode(Mode::ByStateEvents);
    macro.SetAcceptStateList({label});
    macro.SetRejectEventsList({"bad blink"});
    macro.Color = color;
    return macro;
}

void SaveMacros(const GenericPlatform& platform) {
    SaveMacro(platform, "Eyes closed", OfStates("eyes closed", 0x00B06020));
    SaveMacro(platform, "Eyes open", OfStates("eyes open", 0x002080D0));
    SpectraMacro tones;
    tones.SetFFTSeconds(1);
    tones.SetTimeIntervalSelectMode(Mode::BySpotEvents);
    tones.SetAcceptSpotList({"tone"});
    tones.SetPreTriggerMS(-500);
    SaveMacro(platform, "Around tones", tones);
    SpectraMacro start;
    start.SetTimeIntervalSelectMode(Mode::ByDuration);
    SaveMacro(platform, "First minute", start);
    SaveMacro(platform, "Whole recording", SpectraMacro());
}

} // namespace

DemoSample::DemoSample()
    : platform_(gui_, folder_.filePath("settings.ini").toStdString(), folder_.path().toStdString()) {
    if (!folder_.isValid()) {
        throw std::runtime_error("temporary folder: " + folder_.errorString().toStdString() +
                                 " (free some space there, or set TMPDIR)");
    }
    SaveMacros(platform_);
    const std::string file = folder_.filePath("demo.edf").toStdString();
    cli::DemoParameters parameters;
    parameters.minutes = 2;
    cli::DemoSignal demo(parameters);
    cli::WriteDemoRecording(file, demo);
    recording_ = signal::OpenRecording(file);
}

} // namespace orvanta::review

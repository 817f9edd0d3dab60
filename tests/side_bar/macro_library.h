// SPDX-License-Identifier: GPL-3.0-or-later
// A library of macros on disk, the form that shows it, and its user.
#pragma once

#include "host/platform/host_platform.h"
#include "side_bar/macro_selection_form.h"
#include "spectra_contract/events.h"
#include "spectra_contract/spectra_macro.h"
#include "tests/side_bar/settings_case.h"
#include "tests/support/qt/form_user.h"
#include "tests/support/qt/scripted_user.h"
#include "tests/support/recording_gui.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace orvanta::test {

class MacroLibrary : public testing::Test {
protected:
    /// Puts a macro into the library that differs from the default in its overlap.
    void Save(const std::string& name, unsigned overlap) const {
        SpectraMacro macro;
        macro.SetOverlapPerc(overlap);
        Save(name, macro);
    }
    void Save(const std::string& name, SpectraMacro macro) const {
        folder_.Write(Inside(name), "");
        EXPECT_EQ(macro.SaveAs(PathOf(name)), 0) << macro.GetLastError();
    }
    void Write(const std::string& name, const std::string& content) const {
        folder_.Write(Inside(name), content);
    }
    std::string PathOf(const std::string& name) const { return folder_.Path(Inside(name)); }
    bool Exists(const std::string& name) const { return std::filesystem::exists(PathOf(name)); }

    /// Shows the form; the test goes on meanwhile.
    TFormMacroSpectra& Open() {
        form_ = std::make_unique<TFormMacroSpectra>(nullptr, nullptr, &macro_, &events_, SensorList{&sensor_},
                                                    1, &platform_);
        form_->show();
        return *form_;
    }
    TFormMacroSpectra& Form() const { return *form_; }
    FormUser Hand() const { return FormUser(*form_); }
    /// A box of the form.
    ScriptedUser::Message Box(const std::string& text, const std::string& title, unsigned type) const {
        return {HWND(form_.get()), text, title, type};
    }

    static std::string DescriptionOf(const SpectraMacro& macro) {
        std::ostringstream text;
        macro.GetLongDescrStr(text);
        return text.str();
    }

    TempFolder folder_;
    RecordingGui gui_;
    platform::HostPlatform platform_{gui_, folder_.Path("settings.ini"), folder_.Path("data")};
    SpectraMacro macro_;
    EventsManager events_{256};
    SensorType sensor_ = SensorAt(200);
    ScriptedUser user_;

private:
    static std::string Inside(const std::string& name) { return "data/MACRO/" + name + ".smx"; }

    std::unique_ptr<TFormMacroSpectra> form_;
};

} // namespace orvanta::test

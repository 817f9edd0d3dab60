// SPDX-License-Identifier: GPL-3.0-or-later
// A macro made in the form computes as its settings do.
#include "host/platform/host_platform.h"
#include "host/review/app/macro_editing.h"
#include "host/review/app/module_library.h"
#include "host/review/cli/demo_recording.h"
#include "tests/support/qt/form_user.h"
#include "tests/support/qt/scripted_user.h"
#include "tests/support/recording_gui.h"
#include "tests/support/temp_folder.h"

#include <QDialog>
#include <QProcess>
#include <gtest/gtest.h>

namespace {

using orvanta::review::LibraryFolder;
using orvanta::review::MacroEditing;
using orvanta::review::ModuleLibrary;
using orvanta::test::FormUser;
using orvanta::test::ScriptedUser;

class MacroOfTheForm : public testing::Test {
protected:
    MacroOfTheForm() {
        orvanta::cli::DemoSignal demo({.minutes = 1, .channels = 3, .rate_hz = 128, .seed = 1});
        orvanta::cli::WriteDemoRecording(recording_, demo);
        EXPECT_EQ(SpectraMacro().SaveAs(folder_.Path("start.smx")), 0);
    }

    /// What the command tells when the user does so with the form of the macro "start".
    std::string EditStart(const std::function<void(const FormUser&)>& action) {
        user_.MeetsDialog([action](QDialog& form) { action(FormUser(form)); });
        return MacroEditing({folder_.Path("start.smx"), recording_, {}}).Run(module_.Bridge(), platform_);
    }

    /// The JSON of orvanta compute.
    std::string Compute(QStringList arguments) const {
        QProcess program;
        program.start(ORVANTA_PROGRAM,
                      QStringList{"compute", QString::fromStdString(recording_), "--json", "-"} << arguments);
        EXPECT_TRUE(program.waitForFinished());
        EXPECT_EQ(program.exitCode(), 0) << program.readAllStandardError().toStdString();
        return program.readAllStandardOutput().toStdString();
    }

    orvanta::test::TempFolder folder_;
    std::string recording_ = folder_.Path("demo.edf");
    orvanta::test::RecordingGui gui_;
    orvanta::platform::HostPlatform platform_{gui_, folder_.Path("settings.ini"), folder_.Path("data")};
    ModuleLibrary module_{LibraryFolder()};
    ScriptedUser user_;
};

TEST_F(MacroOfTheForm, ComputesTheNumbersOfTheSameSettings) {
    const std::string mine = folder_.Path("mine.smx");
    user_.MeetsDialog([](QDialog& dialog) {
        const FormUser form(dialog);
        form.Clicks("rbFFT_10s");
        form.SetsNumber("udOverlap", 75);
        form.SelectsRows("lbWindow", {"Hamming"});
        form.Clicks("rbByStateEvent");
        form.SelectsRows("lvStateAccept", {"eyes closed"});
        form.SelectsRows("lvReject", {"bad blink"});
        form.Clicks("rbESMUseExactly");
        form.SetsNumber("udUseExactlyCountEpochs", 20);
        form.Clicks("BitBtnSaveAs");
    });
    user_.Enters("mine");
    EXPECT_EQ(MacroEditing({folder_.Path("start.smx"), recording_, {}}).Run(module_.Bridge(), platform_),
              "written " + mine);

    const std::string byForm = Compute({"--macro", QString::fromStdString(mine)});
    const std::string bySettings =
        Compute({"--set", "fft_seconds=1", "--set", "overlap=75", "--set", "window=Hamming", "--set",
                 "mode=states", "--set", "states=eyes closed", "--set", "reject=bad blink", "--set",
                 "epochs_mode=first", "--set", "epochs_count=20"});
    EXPECT_EQ(byForm, bySettings);
    EXPECT_NE(byForm, Compute({})) << "the settings make no difference";
}

TEST_F(MacroOfTheForm, IsWrittenByCompute) {
    const std::string said = EditStart([](const FormUser& form) {
        form.SetsNumber("udOverlap", 25);
        form.Clicks("BitBtnCompute");
    });
    EXPECT_EQ(said, "written " + folder_.Path("start.smx"));
    SpectraMacro stored;
    ASSERT_EQ(stored.Load(folder_.Path("start.smx")), 0);
    EXPECT_EQ(stored.GetOverlapPerc(), 25U);
}

TEST_F(MacroOfTheForm, IsLeftAloneByClose) {
    const std::string before = folder_.Read("start.smx");
    const std::string said = EditStart([](const FormUser& form) {
        form.SetsNumber("udOverlap", 25);
        form.Clicks("BitBtn3");
    });
    EXPECT_EQ(said, "unchanged " + folder_.Path("start.smx"));
    EXPECT_EQ(folder_.Read("start.smx"), before);
}

} // namespace

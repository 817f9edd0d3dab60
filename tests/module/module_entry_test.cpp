// SPDX-License-Identifier: GPL-3.0-or-later
// New analyses, asked for as a host does.
#include "host/platform/host_platform.h"
#include "host/signal_base/recording.h"
#include "spectra_contract/spectra_mgr.h"
#include "tests/module/loaded_module.h"
#include "tests/support/memory_source.h"
#include "tests/support/qt/form_user.h"
#include "tests/support/qt/scripted_user.h"
#include "tests/support/recording_gui.h"
#include "tests/support/temp_folder.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <stdexcept>

namespace {

using orvanta::test::CursorLog;
using orvanta::test::FormUser;
using orvanta::test::ScriptedUser;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// 20 µV at 10 Hz on Fp1, for so many seconds at 64 Hz.
std::unique_ptr<EEGFileInfoType> TenHertz(int seconds) {
    std::vector<double> values(static_cast<std::size_t>(64 * seconds));
    for (std::size_t i = 0; i < values.size(); ++i) {
        values[i] = 20 * std::sin(2 * std::numbers::pi * 10 * static_cast<double>(i) / 64);
    }
    return orvanta::signal::MakeRecording(orvanta::test::MakeData({{"EEG Fp1", 64, values}}));
}

class ModuleEntry : public testing::Test {
protected:
    /// What the host sees of a request while the user clicks on \p control; on nothing when it is empty.
    std::int32_t CreateWhileUserClicks(const std::string& control) {
        user_.MeetsDialog([control](QDialog& form) {
            if (control.empty()) {
                form.close();
            } else {
                FormUser(form).Clicks(control.c_str());
            }
        });
        return Create();
    }

    /// Puts a macro into the library of the user.
    void Save(const char* name, SpectraMacro macro) const {
        folder_.Write("data/MACRO/" + std::string(name), "");
        ASSERT_EQ(macro.SaveAs(folder_.Path("data/MACRO/" + std::string(name))), 0) << macro.GetLastError();
    }
    std::int32_t Create(HWND parent = nullptr) {
        return module_.CreateNewSpectrum(&platform_, parent, manager_, recording_.get());
    }

    orvanta::test::TempFolder folder_;
    orvanta::test::RecordingGui gui_;
    orvanta::platform::HostPlatform platform_{gui_, folder_.Path("settings.ini"), folder_.Path("data")};
    std::unique_ptr<EEGFileInfoType> recording_ = TenHertz(8);
    SpectraMgr manager_{recording_.get(), &gui_};
    orvanta::test::LoadedModule module_;
    ScriptedUser user_;
    CursorLog cursors_;
};

TEST_F(ModuleEntry, AnswersMinus2AndAddsNothingWhenTheUserCancels) {
    manager_.push_back(new SpectMacroResult(SpectraMacro(), recording_.get(), &gui_));
    EXPECT_EQ(CreateWhileUserClicks("BtnCancel"), -2);
    EXPECT_EQ(user_.DialogsShown(), 1);
    EXPECT_EQ(manager_.Size(), 1U);
    EXPECT_THAT(cursors_.Log(), IsEmpty());
}

TEST_F(ModuleEntry, ShowsIconsOnTheButtonsOfItsForms) {
    user_
        .MeetsDialog([](QDialog& form) {
            for (const char* name :
                 {"BitBtnNew", "BitBtnEdit", "BitBtnErase", "BtnAutoAverage", "BtnCancel"}) {
                EXPECT_FALSE(form.findChild<QAbstractButton*>(name)->icon().isNull()) << name;
            }
            FormUser(form).Clicks("BitBtnNew");
            FormUser(form).Clicks("BtnCancel");
        })
        .MeetsDialog([](QDialog& settings) {
            for (const char* name : {"BtnSpeColor", "BitBtnCompute", "BitBtnSaveAs", "BitBtn3"}) {
                EXPECT_FALSE(settings.findChild<QAbstractButton*>(name)->icon().isNull()) << name;
            }
            FormUser(settings).Clicks("BitBtn3");
        });
    EXPECT_EQ(Create(), -2);
}

TEST_F(ModuleEntry, TakesAFormClosedWithoutAButtonForCancelled) {
    EXPECT_EQ(CreateWhileUserClicks(""), -2);
    EXPECT_EQ(manager_.Size(), 0U);
}

TEST_F(ModuleEntry, AppendsAnUncomputedAnalysisWhenTheUserConfirms) {
    auto* earlier = new SpectMacroResult(SpectraMacro(), recording_.get(), &gui_);
    manager_.push_back(earlier);
    EXPECT_EQ(CreateWhileUserClicks("BtnAutoAverage"), 1);
    ASSERT_EQ(manager_.Size(), 2U);
    EXPECT_EQ(*manager_.begin(), earlier);
    const SpectMacroResult* added = *std::prev(manager_.end());
    EXPECT_FALSE(added->IsComputed());
    EXPECT_TRUE(added->GetMacro() == SpectraMacro());
    EXPECT_THAT(cursors_.Log(), ElementsAre(32514U, 0U));
    EXPECT_THAT(gui_.Progresses(), IsEmpty());
}

TEST_F(ModuleEntry, AnswersTwoAndAddsNothingForAManualChoice) {
    user_.MeetsDialog([](QDialog& form) {
        auto* manual = form.findChild<QAbstractButton*>("BtnManualAverage");
        manual->setEnabled(true); // no user can, the button being hidden
        manual->click();
    });
    EXPECT_EQ(Create(), 2);
    EXPECT_EQ(manager_.Size(), 0U);
    EXPECT_THAT(cursors_.Log(), ElementsAre(32514U, 0U));
}

TEST_F(ModuleEntry, AnalysesWithTheMacroThatTheUserPicks) {
    SpectraMacro macro;
    macro.SetOverlapPerc(75);
    macro.SetContrastValue(3);
    macro.SetEpochsSelMode(SpectraMacro::EpochsSelectionMode::FirstN);
    macro.SetNumEpochsToUse(4);
    macro.Color = 0x0000FF00;
    Save("Alpha.smx", SpectraMacro());
    Save("Beta.smx", macro);
    user_.MeetsDialog([](QDialog& form) { FormUser(form).DoubleClicksRow("ListBoxMacro", 1); });
    EXPECT_EQ(Create(), 1);
    ASSERT_EQ(manager_.Size(), 1U);
    const SpectMacroResult* added = *manager_.begin();
    EXPECT_FALSE(added->IsComputed());
    EXPECT_TRUE(added->GetMacro() == macro);
    EXPECT_EQ(added->GetMacro().GetFileName(), folder_.Path("data/MACRO/Beta.smx"));
}

TEST_F(ModuleEntry, AddsNothingWhenTheUserLooksAtAMacroAndCancels) {
    Save("Alpha.smx", SpectraMacro());
    user_.MeetsDialog([](QDialog& form) {
        FormUser(form).SelectsRow("ListBoxMacro", 0);
        FormUser(form).Clicks("BtnCancel");
    });
    EXPECT_EQ(Create(), -2);
    EXPECT_EQ(manager_.Size(), 0U);
}

TEST_F(ModuleEntry, AnalysesWithAMacroMadeOnTheSpot) {
    user_
        .MeetsDialog([](QDialog& form) {
            const FormUser hand(form);
            hand.Clicks("BitBtnNew");
            hand.SelectsRow("ListBoxMacro", 0);
            EXPECT_EQ(hand.RowsOf("ListBoxMacro"), QStringList("Theta"));
            EXPECT_EQ(form.windowTitle(), "Spectra Manager ( Theta )");
            hand.Clicks("BtnAutoAverage");
        })
        .MeetsDialog([](QDialog& settings) {
            FormUser(settings).SetsNumber("udOverlap", 25);
            FormUser(settings).Clicks("BitBtnSaveAs");
        })
        .Enters("Theta");
    EXPECT_EQ(Create(), 1);
    ASSERT_EQ(manager_.Size(), 1U);
    EXPECT_EQ((*manager_.begin())->GetMacro().GetOverlapPerc(), 25U);
    SpectraMacro saved;
    EXPECT_EQ(saved.Load(folder_.Path("data/MACRO/Theta.smx")), 0);
    EXPECT_TRUE((*manager_.begin())->GetMacro() == saved);
}

TEST_F(ModuleEntry, HandsTheEegSensorsToTheForms) {
    recording_ = orvanta::signal::MakeRecording(orvanta::test::MakeData(
        {{"ECG", 256, std::vector<double>(1024)}, {"EEG Fp1", 64, std::vector<double>(256)}}));
    QString samples;
    user_
        .MeetsDialog([](QDialog& form) {
            FormUser(form).Clicks("BitBtnNew");
            FormUser(form).Clicks("BtnCancel");
        })
        .MeetsDialog([&samples](QDialog& settings) {
            samples = FormUser(settings).TextOf("ebNumSamples");
            FormUser(settings).Clicks("BitBtn3");
        });
    EXPECT_EQ(Create(), -2);
    EXPECT_EQ(samples, "128  (128)"); // 2 s at the 64 Hz of Fp1
}

TEST_F(ModuleEntry, ChecksTheMacroAgainstTheEventsOfTheRecording) {
    SpectraMacro closed;
    closed.SetTimeIntervalSelectMode(SpectraMacro::TimeIntervalSelectMode::ByStateEvents);
    closed.SetAcceptStateList({"eyes closed"});
    Save("Closed.smx", closed);
    user_
        .MeetsDialog([](QDialog& form) {
            FormUser(form).SelectsRow("ListBoxMacro", 0);
            FormUser(form).Clicks("BtnAutoAverage");
        })
        .AnswersMessage(owl::kIdOk);
    EXPECT_EQ(Create(), 1);
    ASSERT_EQ(user_.Messages().size(), 1U);
    EXPECT_EQ(user_.Messages()[0].text, "No Matched Events. Default selection made");
    EXPECT_EQ((*manager_.begin())->GetMacro().GetTimeIntervalSelectMode(),
              SpectraMacro::TimeIntervalSelectMode::AllRecording);

    recording_->GetEventsManager()->Add(
        {"eyes closed", EventClass::State, {XTime::FromSeconds(1), XTime::FromSeconds(5)}});
    user_.MeetsDialog([](QDialog& form) { FormUser(form).DoubleClicksRow("ListBoxMacro", 0); });
    EXPECT_EQ(Create(), 1);
    EXPECT_TRUE((*std::prev(manager_.end()))->GetMacro() == closed);
}

TEST_F(ModuleEntry, OpensTheFormAboveTheWindowThatAsks) {
    QWidget window;
    user_.MeetsDialog([&window](QDialog& form) {
        EXPECT_EQ(form.parentWidget(), &window);
        form.reject();
    });
    EXPECT_EQ(Create(HWND(&window)), -2);
    EXPECT_TRUE(window.children().isEmpty());
}

TEST_F(ModuleEntry, PassesAnExceptionOfTheFormOn) {
    user_.MeetsDialog([](QDialog& form) {
        FormUser(form).Clicks("BtnAutoAverage");
        throw std::runtime_error("the form broke");
    });
    EXPECT_THROW(Create(), std::runtime_error);
    EXPECT_EQ(manager_.Size(), 0U);
    EXPECT_THAT(cursors_.Log(), IsEmpty());
    EXPECT_EQ(CreateWhileUserClicks("BtnAutoAverage"), 1);
    EXPECT_EQ(manager_.Size(), 1U);
}

TEST_F(ModuleEntry, ComputesUnderAWaitCursor) {
    ASSERT_EQ(CreateWhileUserClicks("BtnAutoAverage"), 1);
    SpectMacroResult* analysis = *manager_.begin();
    std::vector<unsigned> during;
    gui_.OnProgress = [&during] { during.push_back(owl::CurrentCursor()); };
    EXPECT_EQ(module_.PerformComputation(&platform_, nullptr, analysis, recording_.get()), 0);
    EXPECT_THAT(during, ElementsAre(32514U));
    EXPECT_EQ(owl::CurrentCursor(), 0U);
    EXPECT_THAT(gui_.Errors(), IsEmpty());
}

TEST_F(ModuleEntry, ComputesTheSpectraOfTheRecording) {
    ASSERT_EQ(CreateWhileUserClicks("BtnAutoAverage"), 1);
    SpectMacroResult* analysis = *manager_.begin();
    EXPECT_EQ(module_.PerformComputation(&platform_, nullptr, analysis, recording_.get()), 0);
    ASSERT_TRUE(analysis->IsComputed());
    EXPECT_EQ(analysis->GetFFTCount(), 7U); // 2 s windows, 1 s apart, in 8 s
    SpectrumSingle* spectrum = analysis->GetSpectrum(recording_->GetTraceInfo()->FindSensor("Fp1"));
    ASSERT_NE(spectrum, nullptr);
    std::vector<double> power;
    spectrum->GetSpect(power);
    ASSERT_EQ(power.size(), 65U); // 128 samples
    const auto peak =
        static_cast<std::uint64_t>(std::max_element(power.begin(), power.end()) - power.begin());
    EXPECT_EQ(analysis->GetFreqFromIndex(peak), 10.0);
}

TEST_F(ModuleEntry, AnswersZeroAlsoWhenNothingCanBeComputed) {
    const std::unique_ptr<EEGFileInfoType> tooShort = TenHertz(1);
    SpectMacroResult analysis(SpectraMacro(), tooShort.get(), &gui_);
    EXPECT_EQ(module_.PerformComputation(&platform_, nullptr, &analysis, tooShort.get()), 0);
    EXPECT_FALSE(analysis.IsComputed());
    EXPECT_THAT(gui_.Errors(), SizeIs(1));
    EXPECT_THAT(cursors_.Log(), ElementsAre(32514U, 0U));
}

TEST_F(ModuleEntry, AnswersZeroWhenTheUserStopsTheComputation) {
    gui_.Cancelled = true;
    SpectMacroResult analysis(SpectraMacro(), recording_.get(), &gui_);
    EXPECT_EQ(module_.PerformComputation(&platform_, nullptr, &analysis, recording_.get()), 0);
    EXPECT_FALSE(analysis.IsComputed());
    EXPECT_THAT(cursors_.Log(), ElementsAre(32514U, 0U));
}

TEST(ModuleUnload, LeavesTheAnalysesToTheirManager) {
    const orvanta::test::RecordingGui gui;
    const orvanta::test::TempFolder folder;
    const orvanta::platform::HostPlatform platform(gui, folder.Path("settings.ini"), folder.Path("data"));
    const std::unique_ptr<EEGFileInfoType> recording = TenHertz(4);
    SpectraMgr manager(recording.get(), &gui);
    {
        ScriptedUser user;
        user.MeetsDialog([](QDialog& form) { FormUser(form).Clicks("BtnAutoAverage"); });
        const orvanta::test::LoadedModule module;
        ASSERT_EQ(module.CreateNewSpectrum(&platform, nullptr, manager, recording.get()), 1);
        ASSERT_EQ(module.PerformComputation(&platform, nullptr, *manager.begin(), recording.get()), 0);
    }
    EXPECT_FALSE(orvanta::test::LoadedModule::IsInMemory());
    EXPECT_EQ((*manager.begin())->GetFFTCount(), 3U);
}

TEST(ModuleUnload, LeavesNothingOfItsFormsBehind) {
    const orvanta::test::RecordingGui gui;
    const orvanta::test::TempFolder folder;
    const orvanta::platform::HostPlatform platform(gui, folder.Path("settings.ini"), folder.Path("data"));
    const std::unique_ptr<EEGFileInfoType> recording = TenHertz(4);
    SpectraMgr manager(recording.get(), &gui);
    QWidget window;
    window.show();
    {
        ScriptedUser user;
        user.MeetsDialog([](QDialog& form) {
                FormUser(form).Clicks("BitBtnNew");
                form.grab();
                FormUser(form).Clicks("BtnCancel");
            })
            .MeetsDialog([](QDialog& settings) {
                settings.grab();
                FormUser(settings).Clicks("BitBtnCompute");
            });
        const orvanta::test::LoadedModule module;
        ASSERT_EQ(module.CreateNewSpectrum(&platform, HWND(&window), manager, recording.get()), -2);
    }
    ASSERT_FALSE(orvanta::test::LoadedModule::IsInMemory());
    EXPECT_THAT(QApplication::topLevelWidgets(), ElementsAre(&window));
    QCoreApplication::processEvents();
    EXPECT_FALSE(window.grab().isNull());
}

} // namespace

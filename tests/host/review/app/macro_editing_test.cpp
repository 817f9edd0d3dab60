// SPDX-License-Identifier: GPL-3.0-or-later
// orvanta macro edit with a bridge that does as the test says in the form's place.
#include "host/review/app/macro_editing.h"

#include "host/platform/host_platform.h"
#include "host/review/app/module_bridge.h"
#include "host/review/app/spectrum_look.h"
#include "host/review/cli/demo_recording.h"
#include "host/review/cli/exit_status.h"
#include "host/toolkit/services.h"
#include "tests/support/recording_gui.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>

namespace {

using orvanta::cli::UsageError;
using orvanta::review::EditMacroRequest;
using orvanta::review::MacroEditing;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::vector<std::string> LabelsOf(const EventsManager& events, EventClass eventClass) {
    EventsCountMap counts;
    events.GetEventsCountMap(counts, eventClass, false);
    std::vector<std::string> labels;
    for (const auto& [type, count] : counts) {
        labels.push_back(type.GetLabel());
    }
    return labels;
}

/// Notes what a form would be given, and does with the macro what the user would.
class FormInPlace final : public orvanta::review::ModuleBridge {
public:
    void EditMacro(HWND /*parent*/, const std::string& folder, SpectraMacro& macro, EventsManager* events,
                   const SensorList& sensors, int mode) override {
        Folder = folder;
        Mode = mode;
        Sensors = sensors.size();
        Note(macro, events);
    }
    std::int32_t SelectMacro(HWND /*parent*/, SpectraMacro& macro, EventsManager* events,
                             const SensorList& sensors, int mode,
                             const GenericPlatform& /*platform*/) override {
        Mode = mode;
        Sensors = sensors.size();
        Note(macro, events);
        return Answer;
    }
    bool ChooseElectrodes(HWND /*parent*/, SensorList& /*selected*/, const SensorList& /*all*/) override {
        return false;
    }
    std::vector<orvanta::review::DrawnPlot>
    DrawSpectrum(GlobalWindow& /*window*/, EEGFileInfoType& /*recording*/, SpectraMgr& /*manager*/,
                 const orvanta::review::SpectrumPage& /*page*/, const owl::TSize& /*size*/,
                 owl::TDC& /*dc*/) override {
        return {};
    }
    std::vector<orvanta::review::DrawnMap> DrawMaps(GlobalWindow& /*window*/, EEGFileInfoType& /*recording*/,
                                                    SpectraMgr& /*manager*/,
                                                    const orvanta::review::MapsPage& /*page*/,
                                                    const owl::TSize& /*size*/, owl::TDC& /*dc*/) override {
        return {};
    }
    void DrawCartoon(GlobalWindow& /*window*/, EEGFileInfoType& /*recording*/, SpectraMgr& /*manager*/,
                     const orvanta::review::MapsPage& /*page*/, const owl::TSize& /*size*/,
                     const orvanta::review::TakeFrame& /*take*/) override {}
    TheChild* MakeSpectrumView(GlobalWindow& /*window*/, EEGFileInfoType& /*recording*/,
                               SpectraMgr& /*manager*/) override {
        return nullptr;
    }
    TheChild* MakeMapsView(GlobalWindow& /*window*/, EEGFileInfoType& /*recording*/, SpectraMgr& /*manager*/,
                           bool /*threeD*/) override {
        return nullptr;
    }
    void FollowMontage(TheChild& /*view*/, const EEGFileInfoType& /*recording*/) override {}
    orvanta::review::SpectrumLook LookOf(const TheChild& /*view*/) override { return {}; }
    void Choose(TheChild& /*view*/, const orvanta::review::SpectrumLook& /*look*/) override {}
    void RefreshView(TheChild& /*view*/) override {}
    void TellOfAnalysis(const TheChild& /*view*/) override {}
    std::int32_t CreateNewSpectrum(const GenericPlatform& /*platform*/, HWND /*parent*/,
                                   SpectraMgr& /*manager*/, EEGFileInfoType& /*recording*/) override {
        return 0;
    }
    void PerformComputation(const GenericPlatform& /*platform*/, HWND /*parent*/,
                            SpectMacroResult& /*analysis*/, EEGFileInfoType& /*recording*/) override {}
    std::vector<orvanta::review::GalleryPage>
    MakeGalleryPages(const orvanta::review::GallerySample& /*sample*/) override {
        return {};
    }

    std::function<void(SpectraMacro&)> User;
    std::int32_t Answer = 0;
    std::string Folder;
    int Mode = -1;
    std::size_t Sensors = 0;
    std::vector<std::string> States, Spots;

private:
    void Note(SpectraMacro& macro, const EventsManager* events) {
        ASSERT_NE(events, nullptr) << "settings could not be edited";
        States = LabelsOf(*events, EventClass::State);
        Spots = LabelsOf(*events, EventClass::Spot);
        if (User) {
            User(macro);
        }
    }
};

/// Refuses to write at the places that begin so.
class ReadOnlyPlaces final : public owl::FileAccess {
public:
    explicit ReadOnlyPlaces(std::string place) : place_(std::move(place)) {}

    int Access(const std::string& path, int mode) const override {
        return mode == kWritable && path == place_ ? EACCES : system_.Access(path, mode);
    }
    int MakeFolders(const std::string& folder) const override { return system_.MakeFolders(folder); }
    int Remove(const std::string& file) const override { return system_.Remove(file); }
    std::vector<std::string> FilesIn(const std::string& folder, const std::string& ending) const override {
        return system_.FilesIn(folder, ending);
    }

private:
    const owl::FileAccess& system_ = *owl::CurrentServices().files;
    std::string place_;
};

class MacroEdit : public testing::Test {
protected:
    std::string MakeMacro(const std::string& name, SpectraMacro macro = {}) const {
        EXPECT_EQ(macro.SaveAs(folder_.Path(name)), 0);
        return folder_.Path(name);
    }

    std::string Run(const EditMacroRequest& request) {
        MacroEditing editing(request);
        return editing.Run(form_, platform_);
    }

    std::string Refusal(const std::string& file) {
        try {
            Run({file, "", {}});
            return {};
        } catch (const UsageError& error) {
            return error.what();
        }
    }

    /// Why the file is refused while nothing can be written at a place.
    std::string RefusalWhileReadOnly(const std::string& place, const std::string& file) {
        const ReadOnlyPlaces files(place);
        owl::Services services = owl::CurrentServices();
        services.files = &files;
        owl::ReplaceServices(&services);
        std::string refusal = Refusal(file);
        owl::ReplaceServices(nullptr);
        return refusal;
    }

    orvanta::test::TempFolder folder_;
    orvanta::test::RecordingGui gui_;
    orvanta::platform::HostPlatform platform_{gui_, folder_.Path("settings.ini"), folder_.Path("data")};
    FormInPlace form_;
};

TEST_F(MacroEdit, GivesTheFormTheMacroAndItsFolder) {
    SpectraMacro macro;
    macro.SetOverlapPerc(75);
    form_.User = [](const SpectraMacro& shown) { EXPECT_EQ(shown.GetOverlapPerc(), 75U); };
    Run({MakeMacro("m.smx", macro), "", {}});
    EXPECT_EQ(form_.Folder, folder_.Path(""));
    EXPECT_EQ(form_.Mode, 2);
}

TEST_F(MacroEdit, TellsTheFileThatWasWritten) {
    const std::string file = MakeMacro("m.smx");
    form_.User = [](SpectraMacro& macro) {
        macro.SetOverlapPerc(75);
        macro.Save();
    };
    EXPECT_EQ(Run({file, "", {}}), "written " + file);
}

TEST_F(MacroEdit, TellsTheFileOfAnotherNameThatWasWritten) {
    const std::string other = folder_.Path("other.smx");
    form_.User = [&other](SpectraMacro& macro) { macro.SaveAs(other); };
    EXPECT_EQ(Run({MakeMacro("m.smx"), "", {}}), "written " + other);
}

TEST_F(MacroEdit, TellsWhenTheFileIsAsItWas) {
    const std::string file = MakeMacro("m.smx");
    EXPECT_EQ(Run({file, "", {}}), "unchanged " + file);
    form_.User = [](SpectraMacro& macro) { macro.Save(); };
    EXPECT_EQ(Run({file, "", {}}), "unchanged " + file);
}

TEST_F(MacroEdit, LeavesSettingsThatTheUserDidNotSaveOutOfTheFile) {
    const std::string file = MakeMacro("m.smx");
    form_.User = [](SpectraMacro& macro) { macro.SetOverlapPerc(75); };
    EXPECT_EQ(Run({file, "", {}}), "unchanged " + file);
}

TEST_F(MacroEdit, FailsWhenTheFileCouldNotBeWritten) {
    form_.User = [this](SpectraMacro& macro) { macro.SaveAs(folder_.Path("no/such/folder.smx")); };
    EXPECT_THAT(Refusal(MakeMacro("m.smx")), HasSubstr("no/such/folder.smx: "));
}

TEST_F(MacroEdit, RefusesALockedFileBeforeTheFormOpens) {
    const std::string file = MakeMacro("m.smx");
    EXPECT_EQ(RefusalWhileReadOnly(file, file),
              file + ": cannot be written: Permission denied (change its permissions, or copy the macro to "
                     "another folder)");
    EXPECT_EQ(form_.Mode, -1);
}

TEST_F(MacroEdit, RefusesAFileInALockedFolderBeforeTheFormOpens) {
    EXPECT_THAT(RefusalWhileReadOnly(folder_.Path(""), MakeMacro("m.smx")),
                HasSubstr("cannot be written: Permission denied"));
    EXPECT_EQ(form_.Mode, -1);
}

TEST_F(MacroEdit, OffersTheLabelsOfTheMacroWithoutARecording) {
    SpectraMacro macro;
    macro.SetAcceptStateList({"REM", "N3"});
    macro.SetRejectEventsList({"bad", "N3"});
    macro.SetAcceptSpotList({"tone"});
    Run({MakeMacro("m.smx", macro), "", {}});
    EXPECT_THAT(form_.States, ElementsAre("N3", "REM", "bad"));
    EXPECT_THAT(form_.Spots, ElementsAre("tone"));
    EXPECT_EQ(form_.Sensors, 0U);
}

TEST_F(MacroEdit, OffersTheEventsAndSensorsOfTheRecording) {
    orvanta::cli::DemoSignal demo({.minutes = 1, .channels = 19, .rate_hz = 64, .seed = 1});
    orvanta::cli::WriteDemoRecording(folder_.Path("demo.edf"), demo);
    SpectraMacro macro;
    macro.SetAcceptStateList({"eyes open"});
    Run({MakeMacro("m.smx", macro), folder_.Path("demo.edf"), {}});
    EXPECT_THAT(form_.States, ElementsAre("bad blink", "eyes closed", "eyes open"));
    EXPECT_THAT(form_.Spots, ElementsAre("tone"));
    EXPECT_EQ(form_.Sensors, 19U);
}

TEST_F(MacroEdit, OffersTheLabelsOfAllMacrosInTheLibrary) {
    SpectraMacro first;
    first.SetAcceptStateList({"REM"});
    SpectraMacro second;
    second.SetAcceptSpotList({"tone"});
    platform_.GetAppFolder("MACRO");
    MakeMacro("data/MACRO/a.smx", first);
    MakeMacro("data/MACRO/b.smx", second);
    folder_.Write("data/MACRO/broken.smx", "<nonsense");
    Run({"", "", {}});
    EXPECT_THAT(form_.States, ElementsAre("REM"));
    EXPECT_THAT(form_.Spots, ElementsAre("tone"));
}

TEST_F(MacroEdit, TellsTheMacroThatWasChosenInTheLibrary) {
    const std::string file = MakeMacro("m.smx");
    form_.User = [&file](SpectraMacro& macro) { EXPECT_EQ(macro.Load(file), 0); };
    form_.Answer = 1;
    EXPECT_EQ(Run({"", "", {}}), "chosen " + file);
}

TEST_F(MacroEdit, SaysNothingWhenNoneWasChosen) {
    form_.User = [file = MakeMacro("m.smx")](SpectraMacro& macro) { macro.Load(file); };
    EXPECT_THAT(Run({"", "", {}}), IsEmpty());
    form_.User = nullptr;
    form_.Answer = 1;
    EXPECT_THAT(Run({"", "", {}}), IsEmpty());
}

} // namespace

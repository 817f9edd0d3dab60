// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/starter_macros.h"

#include "host/review/app/events/usual_labels.h"
#include "host/review/app/macro_labels.h"
#include "host/toolkit/message_module.h"
#include "host/toolkit/services.h"
#include "spectra_contract/spectra_macro.h"
#include "tests/support/qt/kept_log.h"
#include "tests/support/temp_folder.h"

#include <QLocale>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <string>

namespace {

using namespace orvanta;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::SizeIs;

class StarterMacros : public testing::Test {
protected:
    void Install() const { review::InstallStarterMacros(folder.Path("data/MACRO/")); }
    std::vector<std::string> Files() const {
        return owl::CurrentServices().files->FilesIn(folder.Path("data/MACRO/"), ".smx");
    }

    test::TempFolder folder;
};

TEST_F(StarterMacros, AreThereAtTheFirstStart) {
    Install();
    EXPECT_THAT(Files(),
                ElementsAre("Event-related.smx", "Eyes open vs closed - closed.smx",
                            "Eyes open vs closed - open.smx", "Resting eyes closed.smx", "Sleep CSA.smx"));
}

TEST_F(StarterMacros, AreAllSoundAndDiffer) {
    Install();
    const std::vector<SpectraMacro> macros = review::MacrosIn(folder.Path("data/MACRO/"));
    ASSERT_THAT(macros, SizeIs(5));
    for (std::size_t i = 0; i < macros.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            EXPECT_FALSE(macros[i] == macros[j]) << macros[i].GetFileName();
        }
    }
}

TEST_F(StarterMacros, SayWhatTheirNamesSay) {
    Install();
    const auto macro = [this](const char* name) {
        SpectraMacro loaded;
        EXPECT_EQ(loaded.Load(folder.Path("data/MACRO/") + name), 0);
        return loaded;
    };
    using Mode = SpectraMacro::TimeIntervalSelectMode;
    EXPECT_EQ(macro("Resting eyes closed.smx").GetTimeIntervalSelectMode(), Mode::ByStateEvents);
    EXPECT_TRUE(macro("Resting eyes closed.smx").GetAcceptStateList().contains("eyes closed"));
    EXPECT_TRUE(macro("Eyes open vs closed - open.smx").GetAcceptStateList().contains("eyes open"));
    EXPECT_EQ(macro("Event-related.smx").GetTimeIntervalSelectMode(), Mode::BySpotEvents);
    EXPECT_EQ(macro("Sleep CSA.smx").GetTimeIntervalSelectMode(), Mode::AllRecording);
    // Comparable: only with the same resolution is a p-value computed.
    EXPECT_EQ(macro("Eyes open vs closed - open.smx").GetFFTSeconds(),
              macro("Eyes open vs closed - closed.smx").GetFFTSeconds());
}

TEST_F(StarterMacros, LeaveOutWhatIsOfferedAsAnArtifactAndItsOtherSpellings) {
    Install();
    for (const SpectraMacro& macro : review::MacrosIn(folder.Path("data/MACRO/"))) {
        const std::set<std::string> left = macro.GetRejectEventsList();
        EXPECT_THAT(left, IsSupersetOf(review::kArtifactLabels)) << macro.GetFileName();
        EXPECT_THAT(left, IsSupersetOf(review::kOtherArtifactLabels)) << macro.GetFileName();
    }
}

class GermanStarterMacros : public StarterMacros {
protected:
    ~GermanStarterMacros() override { QLocale::setDefault(QLocale::system()); }
};

TEST_F(GermanStarterMacros, HaveGermanNamesOfPlainLetters) {
    QLocale::setDefault(QLocale("de_DE"));
    const PModule texts("Orvanta", nullptr, folder.Path("messages"));
    review::InstallStarterMacros(folder.Path("data/MACRO/"), &texts);
    EXPECT_THAT(Files(), ElementsAre("Augen auf und zu - auf.smx", "Augen auf und zu - zu.smx",
                                     "Ereignisbezogen.smx", "Ruhe, Augen geschlossen.smx", "Schlaf CSA.smx"));
    for (const std::string& name : review::StarterMacroNames(&texts)) {
        EXPECT_TRUE(std::ranges::all_of(name, [](char c) { return c >= ' ' && c <= '~'; })) << name;
    }
}

TEST_F(StarterMacros, CanBeChangedByTheUser) {
    Install();
    SpectraMacro macro;
    macro.Load(folder.Path("data/MACRO/Sleep CSA.smx"));
    macro.SetOverlapPerc(75);
    EXPECT_EQ(macro.Save(), 0);
}

TEST_F(StarterMacros, DoNotComeBackWhenTheUserErasedThem) {
    Install();
    std::filesystem::remove_all(folder.Path("data/MACRO"));
    std::filesystem::create_directory(folder.Path("data/MACRO"));
    Install();
    EXPECT_THAT(Files(), IsEmpty());
}

TEST_F(StarterMacros, AreMissingWhereNothingCanBeWritten) {
    const test::KeptLog log;
    folder.Write("data", "a file");
    Install();
    EXPECT_THAT(log.Last(), HasSubstr("could not be copied"));
}

} // namespace

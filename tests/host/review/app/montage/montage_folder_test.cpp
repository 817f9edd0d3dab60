// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/montage/montage_folder.h"

#include "spectra_contract/recording.h"
#include "tests/support/qt/fake_services.h"
#include "tests/support/small_recording.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>

namespace orvanta::review {
namespace {

using Files = std::vector<MontageFile>;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class MontageFolder : public testing::Test {
protected:
    std::string Path() const { return folder_.Path("MONTAGE/"); }
    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const auto& montage : *recording_->GetMontageList()) {
            names.push_back(montage->GetName());
        }
        return names;
    }
    const MontageType& Used() const { return recording_->GetTraceInfo()->GetMtg(); }

    test::TempFolder folder_;
    test::FakeServices services_;
    std::unique_ptr<EEGFileInfoType> recording_ = test::SmallRecording(); // Fp1, F3, Cz
    std::vector<std::string> standard_ = Names();
};

TEST_F(MontageFolder, HoldsWhatWasStored) {
    const Files wanted = {{"Ärzte", "a = Fp1\n"}, {"b", "b = F3 -Cz\n"}};
    Files stored;
    StoreMontageFiles(Path(), stored, wanted);
    EXPECT_EQ(stored, wanted);
    EXPECT_THAT(LoadMontageFiles(Path()).files, testing::UnorderedElementsAreArray(wanted));
    EXPECT_EQ(folder_.Read("MONTAGE/b.mtg"), "b = F3 -Cz\n");
}

TEST_F(MontageFolder, WritesOnlyWhatChangedAndErasesWhatIsGone) {
    folder_.Write("MONTAGE/notes.txt", "mine");
    Files stored;
    StoreMontageFiles(Path(), stored,
                      {{"same", "a = Fp1\n"}, {"changed", "a = Fp1\n"}, {"gone", "a = Fp1\n"}});
    folder_.Write("MONTAGE/same.mtg", "written by another");
    StoreMontageFiles(Path(), stored, {{"same", "a = Fp1\n"}, {"changed", "a = F3\n"}});
    EXPECT_EQ(folder_.Read("MONTAGE/same.mtg"), "written by another");
    EXPECT_EQ(folder_.Read("MONTAGE/changed.mtg"), "a = F3\n");
    EXPECT_FALSE(std::filesystem::exists(Path() + "gone.mtg"));
    EXPECT_EQ(folder_.Read("MONTAGE/notes.txt"), "mine");
}

TEST_F(MontageFolder, DoesNotReplaceAFileThatCameUpMeanwhile) {
    folder_.Write("MONTAGE/new.mtg", "of another");
    Files stored = {{"old", "a = Fp1\n"}};
    try {
        StoreMontageFiles(Path(), stored, {{"new", "a = Fp1\n"}});
        FAIL();
    } catch (const std::runtime_error& error) {
        EXPECT_EQ(error.what(), Path() + "new.mtg: another file has this name (choose another name)");
    }
    EXPECT_EQ(folder_.Read("MONTAGE/new.mtg"), "of another");
}

TEST_F(MontageFolder, CanBeStoredAgainAfterAFailure) {
    Files stored;
    StoreMontageFiles(Path(), stored, {{"old", "a = Fp1\n"}});
    services_.files.Fail(Path() + "old.mtg", EACCES);
    EXPECT_THROW(StoreMontageFiles(Path(), stored, {{"new", "a = Fp1\n"}}), std::runtime_error);
    EXPECT_THAT(stored, ElementsAre(MontageFile{"old", "a = Fp1\n"}, MontageFile{"new", "a = Fp1\n"}));
    StoreMontageFiles(Path(), stored, {{"new", "a = Fp1\n"}, {"old", "a = Fp1\n"}});
    EXPECT_EQ(folder_.Read("MONTAGE/new.mtg"), "a = Fp1\n");
}

TEST_F(MontageFolder, ThatIsNotThereIsEmpty) {
    EXPECT_THAT(LoadMontageFiles(Path()).files, IsEmpty());
}

TEST_F(MontageFolder, TellsOfAFileThatCannotBeRead) {
    std::filesystem::create_directories(Path() + "a.mtg"); // a folder
    folder_.Write("MONTAGE/huge.mtg", std::string(5 << 20, 'x'));
    folder_.Write("MONTAGE/good.mtg", "a = Fp1\n");
    const MontageFiles found = LoadMontageFiles(Path());
    EXPECT_THAT(found.files, ElementsAre(MontageFile{"good", "a = Fp1\n"}));
    EXPECT_THAT(found.problems, testing::Contains(HasSubstr("huge.mtg: ")));
}

TEST_F(MontageFolder, OffersWhatFitsTheElectrodes) {
    const std::vector<std::string> problems =
        OfferMontages(*recording_, {{"Frontal", "a = Fp1 -F3\n"},
                                    {"Occipital", "a = O1 -O2\n"},
                                    {"Both", "[Front]\na = Fp1 -Cz\n[Back]\na = O1\n"}});
    EXPECT_THAT(problems, IsEmpty());
    std::vector<std::string> expected = standard_;
    expected.insert(expected.end(), {"Frontal", "Front"});
    EXPECT_EQ(Names(), expected);
}

TEST_F(MontageFolder, TellsWhereAFileMakesNoSense) {
    EXPECT_THAT(
        OfferMontages(*recording_, {{"Bad", "a = Fp1 F3\n"}, {"Good", "a = Fp1\n"}}),
        ElementsAre("Bad.mtg: line 1: no sign before \"F3\" (write + or - before every term and names "
                    "with blanks in quotes)"));
    EXPECT_EQ(Names().back(), "Good");
}

TEST_F(MontageFolder, AMontageInUseChangesWithItsFile) {
    OfferMontages(*recording_, {{"Mine", "a = Fp1\n"}});
    recording_->ChangeMntg(recording_->GetMontageList()->Size() - 1, false);
    OfferMontages(*recording_, {{"Another", "a = Fp1\n"}, {"Mine", "b = F3 -Cz\nc = Cz\n"}});
    EXPECT_EQ(Used().GetName(), "Mine");
    EXPECT_EQ(Used().GetNumTraces(), 2U);
    OfferMontages(*recording_, {{"Another", "a = Fp1\n"}});
    EXPECT_EQ(Used().GetName(), "As recorded");
    EXPECT_EQ(recording_->GetMontageList()->GetCurrentIndex(), 0U);
}

} // namespace
} // namespace orvanta::review

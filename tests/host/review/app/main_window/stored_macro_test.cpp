// SPDX-License-Identifier: GPL-3.0-or-later
// The macro that a recording is opened with.
#include "host/review/app/main_window/stored_macro.h"

#include "host/review/cli/exit_status.h"
#include "tests/host/review/app/main_window/workbench_fixture.h"

namespace {

using namespace orvanta;
using testing::HasSubstr;
using testing::MatchesRegex;

class StoredMacro : public test::WorkbenchFixture {
protected:
    StoredMacro() {
        std::filesystem::create_directories(folder.Path("MACRO"));
        for (const char* name : {"Sleep", "Rest"}) {
            SpectraMacro macro;
            macro.SetOverlapPerc(25);
            EXPECT_EQ(macro.SaveAs(folder.Path(std::string("MACRO/") + name + ".smx")), 0);
        }
    }
    std::string Refusal(const std::string& name) const {
        try {
            review::FindMacro(name, folder.Path("MACRO/"));
        } catch (const cli::UsageError& error) {
            return error.what();
        }
        return "found";
    }
    /// The application starts with the file and this macro.
    void StartWith(const std::string& file, const std::string& macro) {
        review::Workbench::Setup setup = Setup();
        setup.macro = review::FindMacro(macro, folder.Path("MACRO/"));
        Start(setup, file);
    }
};

TEST_F(StoredMacro, IsFoundByNameAndByFile) {
    const std::string file = folder.Path("MACRO/Rest.smx");
    EXPECT_EQ(review::FindMacro("Rest", folder.Path("MACRO/")).GetFileName(), file);
    EXPECT_EQ(review::FindMacro(file, folder.Path("nowhere/")).GetFileName(), file);
}

TEST_F(StoredMacro, IsRefusedWithTheNamesThatThereAre) {
    EXPECT_THAT(Refusal("Rset"),
                MatchesRegex("macro \"Rset\": there is no such file and no stored macro \\(.*MACRO/ has "
                             "\"Rest\", \"Sleep\"\\)"));
    folder.Write("MACRO/Broken.smx", "<song/>");
    EXPECT_THAT(Refusal("Broken"), HasSubstr("Broken.smx: no macro file"));
}

TEST_F(StoredMacro, IsTheFirstAnalysisOfARecordingAndComputed) {
    StartWith(Demo(), "Rest");
    ASSERT_EQ(Analyses().Size(), 1U);
    EXPECT_EQ(Analyses().GetMain()->GetName(), "Rest");
    EXPECT_TRUE(Analyses().GetMain()->IsComputed());
    EXPECT_TRUE(bench->GetViews().IsShown(review::ViewKind::Maps));
}

TEST_F(StoredMacro, LeavesARecordingAloneThatHasAnAnalysisAlready) {
    StartWith(Demo(), "Rest");
    Leave();
    StartWith(folder.Path("demo.edf"), "Sleep");
    ASSERT_EQ(Analyses().Size(), 1U);
    EXPECT_EQ(Analyses().GetMain()->GetName(), "Rest");
}

} // namespace

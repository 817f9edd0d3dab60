// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/settings/tapers.h"
#include "side_bar/taper_names.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using orvanta::side_bar::ModuleFolder;
using orvanta::side_bar::TaperNamesIn;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAreArray;

TEST(TaperNames, AreTheFilesWithTheExtensionWithoutIt) {
    const orvanta::test::TempFolder folder;
    for (const char* name : {"Hanning.wnd", "Flat Top.wnd", "notes.txt", "wnd", "two.parts.wnd"}) {
        folder.Write(name, "");
    }
    EXPECT_THAT(TaperNamesIn(folder.Path(""), *owl::CurrentServices().files),
                ElementsAre("Flat Top", "Hanning", "two.parts"));
}

TEST(TaperNames, AreNoneInAFolderThatIsNotThere) {
    const orvanta::test::TempFolder folder;
    EXPECT_THAT(TaperNamesIn(folder.Path("none"), *owl::CurrentServices().files), IsEmpty());
}

TEST(TaperNames, BesideTheModuleAreThoseThatCanBeComputedWith) {
    EXPECT_THAT(TaperNamesIn(ModuleFolder(), *owl::CurrentServices().files),
                UnorderedElementsAreArray(orvanta::spectral::ListTapers()));
}

} // namespace

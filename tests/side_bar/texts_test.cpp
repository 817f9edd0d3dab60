// SPDX-License-Identifier: GPL-3.0-or-later
#include "side_bar/texts.h"

#include "host/toolkit/message_module.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

namespace {

using orvanta::side_bar::FillIn;
using orvanta::side_bar::MacroText;

TEST(FillIn, PutsTheValuesInPlaceOfThePlaceholders) {
    EXPECT_EQ(FillIn("file %s, code %d (%x)", {"a.smx", "13", "d"}), "file a.smx, code 13 (d)");
    EXPECT_EQ(FillIn("%s", {"100 %s"}), "100 %s");
    EXPECT_EQ(FillIn("", {"a"}), "");
}

TEST(FillIn, LeavesWhatHasNoValueOrIsNoPlaceholder) {
    EXPECT_EQ(FillIn("%s and %s", {"one"}), "one and %s");
    EXPECT_EQ(FillIn("50 % of %n, 100 %", {"one"}), "50 % of %n, 100 %");
}

TEST(MacroText, IsTheBuiltInTextWithoutAModule) {
    EXPECT_EQ(MacroText("ERROR", "Error"), "Error");
}

TEST(MacroText, IsTheTextOfTheModulesStore) {
    const orvanta::test::TempFolder folder;
    folder.Write("Orvanta.en.ini", "[MACRO]\nERROR=Fault\n");
    const PModule module("Orvanta", nullptr, folder.Path(""));
    EXPECT_EQ(MacroText("ERROR", "Error"), "Fault");
    EXPECT_EQ(MacroText("WARNING", "Warning"), "Warning");
}

} // namespace

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/host_strings.h"

#include "host/toolkit/message_module.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

namespace {

class HostStrings : public testing::Test {
protected:
    ~HostStrings() override { PModule::SetHostStrings({}); }
    PModule Module() const { return PModule("Orvanta", nullptr, folder_.Path("")); }

    orvanta::test::TempFolder folder_;
};

TEST_F(HostStrings, AreWhatTheModuleGetsForTheirNumbers) {
    const PModule module = Module();
    orvanta::review::SupplyHostStrings(&module);
    EXPECT_EQ(module.LoadString(7521), "No bands selected.");
    EXPECT_EQ(module.LoadString(7522), "No measures selected.");
}

TEST_F(HostStrings, AreTakenFromTheMessageStore) {
    folder_.Write("Orvanta.en.ini", "[HOST]\nnoBands=\"No band.\"\nnoMeasures=\"No measure.\"\n");
    const PModule module = Module();
    orvanta::review::SupplyHostStrings(&module);
    EXPECT_EQ(module.LoadString(7521), "No band.");
    EXPECT_EQ(module.LoadString(7522), "No measure.");
}

} // namespace

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/reasons.h"

#include "host/toolkit/message_module.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

namespace {

TEST(Reasons, AreThoseOfAnyFileAndOfTheCallersKind) {
    const orvanta::test::TempFolder folder;
    folder.Write("Orvanta.en.ini", "[REASONS]\ntooLarge=\"%s is over %s\"\nodd=\"strange %s\"\n");
    const PModule module("Orvanta", nullptr, folder.Path(""));
    constexpr owl::Wording kOwn[] = {{"odd", "odd %s"}};
    const auto of = [&](const std::string& english) {
        return owl::ReasonInUsersWords(&module, kOwn, english);
    };
    EXPECT_EQ(of("has 12 bytes, more than the 10 that such a file may have"), "12 is over 10");
    EXPECT_EQ(of("odd header"), "strange header");
    EXPECT_EQ(of("even header"), "even header");
}

} // namespace

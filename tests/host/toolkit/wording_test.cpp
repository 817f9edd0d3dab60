// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/wording.h"

#include "host/toolkit/message_module.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

namespace {

constexpr owl::Wording kWordings[] = {{"gone", "%s is gone"}, {"both", "%s and %s"}, {"plus", "1 + 1?"}};

/// A store with other words for two of them.
class Words : public testing::Test {
protected:
    Words() {
        folder.Write("Orvanta.en.ini",
                     "[SAID]\ngone=\"lost: %s\"\nboth=\"%s, then %s\"\nline=\"row %s: %s\"\n");
    }
    std::string Of(const std::string& english) const {
        const PModule module("Orvanta", nullptr, folder.Path(""));
        return owl::InUsersWords(&module, "SAID", kWordings, english);
    }

    orvanta::test::TempFolder folder;
};

TEST_F(Words, TellTheSameOfTheSame) {
    EXPECT_EQ(Of("a.edf is gone"), "lost: a.edf");
    EXPECT_EQ(Of("one and two"), "one, then two");
    EXPECT_EQ(Of("%s and 2 %"), "%s, then 2 %") << "what it is said of is no pattern";
}

TEST_F(Words, TellTheLineWithWhatStandsThere) {
    EXPECT_EQ(Of("line 12: the end is gone"), "row 12: lost: the end");
    EXPECT_EQ(Of("line 12: no words for it"), "row 12: no words for it");
}

TEST_F(Words, AreTheEnglishOnesWhereThereAreNoOthers) {
    EXPECT_EQ(Of("1 + 1?"), "1 + 1?");
    EXPECT_EQ(Of("11?"), "11?");
    EXPECT_EQ(Of(""), "");
    EXPECT_EQ(owl::InUsersWords(nullptr, "SAID", kWordings, "line 3: it is gone"), "line 3: it is gone");
}

} // namespace

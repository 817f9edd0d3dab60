// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/platform/settings_store.h"
#include "host/platform/stored_user.h"
#include "tests/support/comma_numerals.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using orvanta::platform::SettingsStore;
using orvanta::platform::StoredUser;

class StoredUserTest : public testing::Test {
protected:
    orvanta::test::TempFolder folder_;
    SettingsStore store_{folder_.Write("settings.ini", "[S]\nword=seven\nempty=\ntail=7x\nlarge=99999999999\n"
                                                       "plain=7\nreal=0.5\ncomma=0,5\ninf=inf\nnan=nan\n")};
    StoredUser user_{store_};
};

TEST_F(StoredUserTest, ReadsNumbers) {
    EXPECT_EQ(user_.GetInt("S", "plain", 1), 7);
    EXPECT_EQ(user_.GetDouble("S", "real", 1), 0.5);
    EXPECT_EQ(user_.GetDouble("S", "plain", 1), 7.0);
}

TEST_F(StoredUserTest, AnswersTheDefaultForWhatIsNoNumber) {
    for (const char* key : {"absent", "word", "empty", "tail", "large", "real", "inf"}) {
        EXPECT_EQ(user_.GetInt("S", key, -3), -3) << key;
    }
    for (const char* key : {"absent", "word", "empty", "tail", "comma", "inf", "nan"}) {
        EXPECT_EQ(user_.GetDouble("S", key, -3.5), -3.5) << key;
    }
}

TEST_F(StoredUserTest, WritesIntegersOfTheWholeRange) {
    for (const int value : {0, -1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        user_.PutInt("S", "value", value);
        EXPECT_EQ(user_.GetInt("S", "value", 12345), value);
    }
}

TEST_F(StoredUserTest, WritesDoublesInShortestFormWhateverTheLocale) {
    const orvanta::test::CommaNumerals numerals;
    user_.PutDouble("S", "value", 0.1);
    EXPECT_EQ(store_.Get("S", "value"), "0.1");
    EXPECT_EQ(user_.GetDouble("S", "value", 0), 0.1);
    user_.PutDouble("S", "value", -1.0 / 3);
    EXPECT_EQ(user_.GetDouble("S", "value", 0), -1.0 / 3);
    user_.PutDouble("S", "value", std::numeric_limits<double>::denorm_min());
    EXPECT_EQ(user_.GetDouble("S", "value", 0), std::numeric_limits<double>::denorm_min());
}

TEST_F(StoredUserTest, KeepsTheOldValueWhenTheNewOneIsNotFinite) {
    user_.PutDouble("S", "real", std::numeric_limits<double>::quiet_NaN());
    user_.PutDouble("S", "real", std::numeric_limits<double>::infinity());
    EXPECT_EQ(store_.Get("S", "real"), "0.5");
}

} // namespace

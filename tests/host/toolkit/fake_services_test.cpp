// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/qt/fake_services.h"

#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>

namespace orvanta::test {

namespace {

using owl::CurrentServices;
using testing::ElementsAre;

TEST(FakeServices, StandInWhileTheyLive) {
    const owl::Clock* const before = CurrentServices().clock;
    {
        FakeServices fakes;
        EXPECT_EQ(CurrentServices().clock, &fakes.clock);
        EXPECT_EQ(CurrentServices().files, &fakes.files);
    }
    EXPECT_EQ(CurrentServices().clock, before);
}

TEST(FakeServices, FailForThePathsOfTheTestOnly) {
    const TempFolder folder;
    const std::string good = folder.Write("good.smx", "x");
    const std::string bad = folder.Write("bad.smx", "x");

    FakeServices fakes;
    fakes.files.Fail(bad, EACCES);
    errno = 0;
    EXPECT_EQ(CurrentServices().files->Access(bad, owl::FileAccess::kExists), EACCES);
    EXPECT_EQ(errno, EACCES);
    EXPECT_EQ(CurrentServices().files->Access(good, owl::FileAccess::kExists), 0);
    EXPECT_EQ(CurrentServices().files->Remove(bad), EACCES);
    EXPECT_EQ(CurrentServices().files->Remove(good), 0);
    EXPECT_THAT(fakes.files.Removed(), ElementsAre(good));
}

TEST(FakeServices, RunTheProgramOfTheTest) {
    const std::string real = CurrentServices().files->ProgramFile();
    FakeServices fakes;
    EXPECT_EQ(CurrentServices().files->ProgramFile(), real);
    fakes.files.RunFrom("/opt/orvanta");
    EXPECT_EQ(CurrentServices().files->ProgramFile(), "/opt/orvanta");
}

TEST(FakeServices, WriteDownLaunchesAndClipboardTexts) {
    FakeServices fakes;
    EXPECT_TRUE(CurrentServices().processes->Launch("\"tool\" file", "folder"));
    fakes.processes.Succeed(false);
    EXPECT_FALSE(CurrentServices().processes->Launch("other", ""));
    CurrentServices().clipboard->SetText("1\t2");
    EXPECT_THAT(fakes.processes.Launched(), ElementsAre(FakeProcesses::Started{"\"tool\" file", "folder"},
                                                        FakeProcesses::Started{"other", ""}));
    EXPECT_THAT(fakes.clipboard.Texts(), ElementsAre("1\t2"));
}

TEST(FakeServices, HoldKeysAndTime) {
    FakeServices fakes;
    fakes.keys.Hold(owl::kVkShift);
    fakes.clock.Set(100);
    fakes.clock.Advance(20);
    EXPECT_TRUE(CurrentServices().keys->IsDown(owl::kVkShift));
    EXPECT_FALSE(CurrentServices().keys->IsDown(owl::kVkControl));
    EXPECT_EQ(CurrentServices().clock->Milliseconds(), 120);
    fakes.keys.Release(owl::kVkShift);
    EXPECT_FALSE(CurrentServices().keys->IsDown(owl::kVkShift));
}

} // namespace

} // namespace orvanta::test

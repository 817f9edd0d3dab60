// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/render/frame_folder.h"

#include "host/review/cli/exit_status.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace orvanta::review;
using orvanta::cli::UsageError;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class FramesTest : public testing::Test {
protected:
    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(out)) {
            names.push_back(entry.path().filename());
        }
        std::ranges::sort(names);
        return names;
    }

    orvanta::test::TempFolder folder;
    std::string out = folder.Path("a/b");
};

TEST(FrameName, SortsAsTheFramesFollow) {
    EXPECT_EQ(FrameName(1, 20), "frame-0001.png");
    EXPECT_EQ(FrameName(9999, 9999), "frame-9999.png");
    EXPECT_EQ(FrameName(1, 10000), "frame-00001.png");
    EXPECT_EQ(FrameName(10000, 10000), "frame-10000.png");
}

TEST_F(FramesTest, LieInAFolderThatIsMade) {
    {
        FrameFolder frames(out);
        frames.Write(1, 2, "one");
        frames.Write(2, 2, "two");
        frames.Keep();
    }
    EXPECT_THAT(Names(), ElementsAre("frame-0001.png", "frame-0002.png"));
    EXPECT_EQ(folder.Read("a/b/frame-0002.png"), "two");
}

TEST_F(FramesTest, AreGoneWithTheirFolderWhenTheyAreNotAll) {
    {
        FrameFolder frames(out);
        frames.Write(1, 2, "one");
    }
    EXPECT_FALSE(std::filesystem::exists(out));
}

TEST_F(FramesTest, LeaveAFolderThatWasThereAndWhatLiesInIt) {
    std::filesystem::create_directories(out);
    folder.Write("a/b/notes.txt", "mine");
    {
        FrameFolder frames(out);
        frames.Write(1, 2, "one");
    }
    EXPECT_THAT(Names(), ElementsAre("notes.txt"));
}

TEST_F(FramesTest, AreNotMixedWithOthers) {
    std::filesystem::create_directories(out);
    folder.Write("a/b/frame-0007.png", "older");
    try {
        const FrameFolder frames(out);
        FAIL() << "not refused";
    } catch (const UsageError& failure) {
        EXPECT_EQ(failure.what(), out +
                                      ": holds frames already, such as frame-0007.png (remove them, or give "
                                      "--out another folder)");
    }
    EXPECT_EQ(folder.Read("a/b/frame-0007.png"), "older");
}

TEST_F(FramesTest, AreRefusedWhereAFileIsInTheWay) {
    folder.Write("a", "a file");
    EXPECT_THROW(FrameFolder{out}, UsageError);
}

} // namespace

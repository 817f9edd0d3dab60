// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/platform/atomic_file.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace orvanta::test {

TEST(AtomicPieces, TakeTheirPlaceWhenCommitted) {
    const TempFolder folder;
    const std::string path = folder.Write("file", "old");
    platform::AtomicFile file(path);
    file.Write("new ");
    file.Write("content");
    EXPECT_EQ(folder.Read("file"), "old");
    file.Commit();
    EXPECT_EQ(folder.Read("file"), "new content");
}

TEST(AtomicPieces, LeaveNothingWhenAbandoned) {
    const TempFolder folder;
    const std::string path = folder.Write("file", "old");
    {
        platform::AtomicFile file(path);
        file.Write("half");
    }
    EXPECT_EQ(folder.Read("file"), "old");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path("")), {}), 1);
}

} // namespace orvanta::test

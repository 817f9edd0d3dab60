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

TEST(AtomicPieces, WhatCanBeComputedAgainIsNotWaitedFor) {
    const platform::FileOperations& quick = platform::FileOperations::WithoutSync();
    EXPECT_EQ(quick.sync(-1), 0); // the system's own refuses what is no descriptor
    EXPECT_EQ(quick.sync_folder("/no such folder"), 0);
    const TempFolder folder;
    platform::WriteFileAtomically(folder.Path("file"), "new", quick);
    EXPECT_EQ(folder.Read("file"), "new");
}

} // namespace orvanta::test

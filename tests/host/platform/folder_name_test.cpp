// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/platform/folder_name.h"

#include <gtest/gtest.h>

namespace {

using orvanta::platform::WithSeparator;

TEST(FolderName, EndsWithASeparatorOnce) {
    EXPECT_EQ(WithSeparator("/home/a"), "/home/a/");
    EXPECT_EQ(WithSeparator("/home/a/"), "/home/a/");
    EXPECT_EQ(WithSeparator("C:\\a\\"), "C:\\a\\");
    EXPECT_EQ(WithSeparator("/"), "/");
    EXPECT_EQ(WithSeparator(""), "/");
}

} // namespace

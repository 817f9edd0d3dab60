// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/files/tab_file.h"

#include "tests/support/temp_folder.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <filesystem>
#include <gtest/gtest.h>
#include <iterator>

namespace orvanta::spectral {
namespace {

class TabFiles : public testing::Test {
protected:
    std::ptrdiff_t Entries() const {
        return std::distance(std::filesystem::directory_iterator(folder_.Path("")), {});
    }

    test::TempFolder folder_;
    std::string path_ = folder_.Path("file.txt");
};

TEST_F(TabFiles, EndEveryFieldWithATabAndEveryLineWithALineFeed) {
    TabFile file(path_);
    file.Field("name");
    file.Numbers(std::vector<double>{1, 0.5, std::nan("")});
    file.Field("");
    file.EndLine();
    file.EndLine();
    file.Commit();
    EXPECT_EQ(folder_.Read("file.txt"), "name\t1\t0.5\tn/a\t\t\n\n");
}

TEST_F(TabFiles, KeepFieldsTogetherWhateverIsInThem) {
    TabFile file(path_);
    file.Field("a\tb\nc\rd\x7F");
    file.Field("\xC3\xA4"); // no control character, though outside ASCII
    file.Commit();
    EXPECT_EQ(folder_.Read("file.txt"), "a b c d \t\xC3\xA4\t");
}

TEST_F(TabFiles, ComeIntoBeingWithCommit) {
    folder_.Write("file.txt", "old");
    {
        TabFile file(path_);
        file.Field("new");
        EXPECT_EQ(folder_.Read("file.txt"), "old");
    }
    EXPECT_EQ(folder_.Read("file.txt"), "old");
    EXPECT_EQ(Entries(), 1);
}

TEST_F(TabFiles, AreWrittenInPiecesWithoutGrowingInMemory) {
    std::size_t largest = 0, pieces = 0;
    platform::FileOperations operations = platform::FileOperations::WithoutSync();
    operations.write = [&](int descriptor, const char* data, unsigned long size) {
        largest = std::max<std::size_t>(largest, size);
        ++pieces;
        return platform::FileOperations::System().write(descriptor, data, size);
    };
    constexpr std::size_t kLines = 5000, kNumbers = 100;
    TabFile file(path_, operations);
    for (std::size_t line = 0; line < kLines; ++line) {
        file.Numbers(std::vector<double>(kNumbers, 0.25));
        file.EndLine();
    }
    file.Commit();
    const std::size_t size = kLines * (kNumbers * 5 + 1);
    EXPECT_EQ(std::filesystem::file_size(path_), size);
    EXPECT_LE(largest, std::size_t{1} << 20);
    EXPECT_EQ(pieces, 3); // of a mebibyte at most
}

TEST_F(TabFiles, TakeARowThatIsLargerThanTheBuffer) {
    constexpr std::size_t kNumbers = 200'000;
    TabFile file(path_);
    file.Field("x");
    file.Numbers(std::vector<double>(kNumbers, 0.25));
    file.Commit();
    const std::string text = folder_.Read("file.txt");
    EXPECT_EQ(text.size(), 2 + kNumbers * 5);
    EXPECT_EQ(text.substr(0, 7), "x\t0.25\t");
    EXPECT_EQ(text.substr(text.size() - 5), "0.25\t");
}

TEST_F(TabFiles, LeaveNothingWhenTheDiskIsFull) {
    platform::FileOperations full = platform::FileOperations::System();
    full.write = [](int, const char*, unsigned long) {
        errno = ENOSPC;
        return -1L;
    };
    {
        TabFile file(path_, full);
        file.Field("name");
        try {
            file.Commit();
            FAIL() << "not refused";
        } catch (const std::runtime_error& error) {
            EXPECT_EQ(error.what(), path_ + ": cannot be written: No space left on device (free some space "
                                            "or save elsewhere)");
        }
    }
    EXPECT_EQ(Entries(), 0);
}

} // namespace
} // namespace orvanta::spectral

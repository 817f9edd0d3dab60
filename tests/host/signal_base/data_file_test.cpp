// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/data_file.h"

#include "host/signal_base/recording_error.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <filesystem>
#include <sys/stat.h>
#include <vector>

namespace orvanta::signal {
namespace {

using test::TempFolder;

std::string ReasonOfOpening(const std::string& path) {
    try {
        DataFile file(path);
    } catch (const RecordingError& error) {
        return error.Reason();
    }
    return "opened";
}

std::string ReasonOfReading(const DataFile& file, std::uint64_t offset, std::size_t size) {
    std::vector<std::byte> bytes(size);
    try {
        file.ReadAt(offset, size, bytes.data());
    } catch (const RecordingError& error) {
        return error.Reason();
    }
    return "read";
}

TEST(DataFile, ReadsBytesByPosition) {
    TempFolder folder;
    const DataFile file(folder.Write("a.bin", "0123456789"));
    std::array<char, 4> bytes{};
    file.ReadAt(3, 4, reinterpret_cast<std::byte*>(bytes.data()));
    EXPECT_EQ(std::string(bytes.data(), 4), "3456");
    EXPECT_EQ(file.Size(), 10u);
}

TEST(DataFile, ReadsAllUpToALimit) {
    TempFolder folder;
    const DataFile file(folder.Write("a.bin", "0123456789"));
    EXPECT_EQ(file.ReadAll(10), "0123456789");
    EXPECT_THROW(file.ReadAll(9), RecordingError);
}

TEST(DataFile, RefusesWhatIsNoRegularFile) {
    TempFolder folder;
    const std::string fifo = folder.Path("fifo");
    ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    EXPECT_EQ(ReasonOfOpening(folder.Path("")), "is a folder");
    EXPECT_EQ(ReasonOfOpening(fifo), "is a FIFO");
    EXPECT_EQ(ReasonOfOpening("/dev/null"), "is a device");
    EXPECT_EQ(ReasonOfOpening(folder.Path("none")), "does not exist");
}

TEST(DataFile, SaysWhereTheFileEnds) {
    TempFolder folder;
    const DataFile file(folder.Write("a.bin", "0123456789"));
    EXPECT_EQ(ReasonOfReading(file, 8, 3), "byte 8: 3 bytes wanted, but the file ends at byte 10");
    EXPECT_EQ(ReasonOfReading(file, UINT64_MAX, 3),
              "byte 18446744073709551615: 3 bytes wanted, but the file ends at byte 10");
    EXPECT_EQ(ReasonOfReading(file, 10, 0), "read");
}

TEST(DataFile, NoticesThatTheFileShrank) {
    TempFolder folder;
    const std::string path = folder.Write("a.bin", "0123456789");
    const DataFile file(path);
    std::filesystem::resize_file(path, 5);
    EXPECT_EQ(ReasonOfReading(file, 0, 10), "was changed while open");
    EXPECT_EQ(ReasonOfReading(file, 0, 2), "was changed while open");
}

TEST(DataFile, NoticesThatTheFileWasWrittenAgain) {
    TempFolder folder;
    const std::string path = folder.Write("a.bin", "0123456789");
    const DataFile file(path);
    std::filesystem::last_write_time(path, std::filesystem::last_write_time(path) + std::chrono::seconds(3));
    EXPECT_EQ(ReasonOfReading(file, 0, 2), "was changed while open");
}

} // namespace
} // namespace orvanta::signal

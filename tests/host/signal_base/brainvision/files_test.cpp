// SPDX-License-Identifier: GPL-3.0-or-later
// Which files make a BrainVision recording.
#include "host/signal_base/recording_data.h"
#include "host/signal_base/recording_error.h"
#include "tests/support/brainvision_files.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace orvanta::signal {
namespace {

using test::BrainVisionFiles;
using test::TempFolder;
using Lines = std::vector<std::string>;

std::string ReasonOf(const std::string& path) {
    try {
        ReadBrainVision(path);
    } catch (const RecordingError& error) {
        return error.Reason();
    }
    return "opened";
}

void Rename(const TempFolder& folder, const char* from, const char* to) {
    std::filesystem::rename(folder.Path(from), folder.Path(to));
}

TEST(BrainVisionFilesOnDisk, OpenByAnyOfTheThree) {
    TempFolder folder;
    const std::string header = WriteBrainVision(folder, {});
    for (const char* name : {"rec.vhdr", "rec.vmrk", "rec.eeg"}) {
        const RecordingData data = ReadBrainVision(folder.Path(name));
        EXPECT_EQ(data.path, header);
        EXPECT_EQ(data.format, "BrainVision");
        EXPECT_EQ(data.signals.size(), 2u);
    }
}

TEST(BrainVisionFilesOnDisk, MayHaveUpperCaseEndings) {
    TempFolder folder;
    WriteBrainVision(folder, {});
    Rename(folder, "rec.vhdr", "rec.VHDR");
    Rename(folder, "rec.eeg", "rec.EEG");
    const RecordingData data = ReadBrainVision(folder.Path("rec.EEG"));
    EXPECT_EQ(data.repairs, (Lines{"DataFile \"rec.eeg\" does not exist, \"rec.EEG\" used instead"}));
}

TEST(BrainVisionFilesOnDisk, AreFoundByTheHeadersStemAfterRenaming) {
    TempFolder folder;
    WriteBrainVision(folder, {});
    Rename(folder, "rec.vhdr", "new.vhdr");
    Rename(folder, "rec.vmrk", "new.vmrk");
    Rename(folder, "rec.eeg", "new.dat");
    const RecordingData data = ReadBrainVision(folder.Path("new.vhdr"));
    EXPECT_EQ(data.source->SampleCount(0), 4u);
    EXPECT_EQ(data.repairs, (Lines{"DataFile \"rec.eeg\" does not exist, \"new.dat\" used instead",
                                   "MarkerFile \"rec.vmrk\" does not exist, \"new.vmrk\" used instead"}));
}

TEST(BrainVisionFilesOnDisk, MayDoWithoutMarkers) {
    TempFolder folder;
    WriteBrainVision(folder, {});
    std::filesystem::remove(folder.Path("rec.vmrk"));
    const RecordingData data = ReadBrainVision(folder.Path("rec.vhdr"));
    EXPECT_TRUE(data.annotations.empty());
    EXPECT_EQ(data.start, std::nullopt);
    EXPECT_EQ(data.repairs, (Lines{"MarkerFile \"rec.vmrk\" does not exist, opened without markers"}));
}

TEST(BrainVisionFilesOnDisk, OpenWithoutMarkersThatCannotBeRead) {
    TempFolder folder;
    WriteBrainVision(folder, {});
    std::filesystem::remove(folder.Path("rec.vmrk"));
    std::filesystem::create_directory(folder.Path("rec.vmrk"));
    EXPECT_EQ(ReadBrainVision(folder.Path("rec.vhdr")).repairs,
              (Lines{"rec.vmrk: is a folder, opened without markers"}));
}

TEST(BrainVisionFilesOnDisk, NeedTheData) {
    TempFolder folder;
    WriteBrainVision(folder, {});
    std::filesystem::remove(folder.Path("rec.eeg"));
    EXPECT_EQ(ReasonOf(folder.Path("rec.vhdr")), "data file \"rec.eeg\" does not exist");
    EXPECT_EQ(ReasonOf(folder.Path("rec.eeg")), "does not exist");
    std::filesystem::create_directory(folder.Path("rec.eeg"));
    EXPECT_EQ(ReasonOf(folder.Path("rec.vhdr")), "is a folder");
}

TEST(BrainVisionFilesOnDisk, NeedTheHeader) {
    TempFolder folder;
    WriteBrainVision(folder, {});
    std::filesystem::remove(folder.Path("rec.vhdr"));
    EXPECT_EQ(ReasonOf(folder.Path("rec.eeg")), "has no header file (.vhdr) beside it");
    EXPECT_EQ(ReasonOf(folder.Path("rec.vmrk")), "has no header file (.vhdr) beside it");
    EXPECT_EQ(ReasonOf(folder.Path("rec.vhdr")), "does not exist");
}

TEST(BrainVisionFilesOnDisk, RefuseWhatIsNoHeader) {
    TempFolder folder;
    const std::string fifo = folder.Path("fifo.vhdr");
    ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    EXPECT_EQ(ReasonOf(fifo), "is a FIFO");
    EXPECT_EQ(ReasonOf(folder.Path("")), "is a folder");
    EXPECT_EQ(ReasonOf("/dev/null"), "is a device");
    EXPECT_EQ(ReasonOf(folder.Write("empty.vhdr", "")), "is empty");
    EXPECT_EQ(ReasonOf(folder.Write("other.vhdr", "0       X X X X")), "line 1: is no BrainVision header");
}

} // namespace
} // namespace orvanta::signal

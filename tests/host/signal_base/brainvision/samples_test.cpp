// SPDX-License-Identifier: GPL-3.0-or-later
// Stored samples of BrainVision data files.
#include "host/signal_base/recording_data.h"
#include "host/signal_base/recording_error.h"
#include "tests/support/brainvision_files.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstring>
#include <filesystem>
#include <limits>
#include <string>
#include <thread>
#include <vector>

namespace orvanta::signal {
namespace {

using test::BrainVisionFiles;
using test::TempFolder;
using Values = std::vector<double>;
using Lines = std::vector<std::string>;

double ValueAt(const std::byte* at, SampleFormat format) {
    if (format == SampleFormat::Float32) {
        float value = 0;
        std::memcpy(&value, at, sizeof value);
        return value;
    }
    std::int16_t value = 0;
    std::memcpy(&value, at, sizeof value);
    return value;
}

/// All samples of the blocks [first, first + count), those beyond the last sample too, in one read.
Values Read(const BlockSource& source, std::size_t signal, std::uint64_t first, std::uint64_t count) {
    std::vector<std::byte> bytes(count * source.BlockBytes(), std::byte{0xEE});
    source.Read(first, count, bytes.data());
    const SignalLayout& layout = source.Layout(signal);
    Values values;
    for (std::uint64_t sample = 0; sample < count * layout.samples; ++sample) {
        const std::size_t at = sample / layout.samples * source.BlockBytes() + layout.offset +
                               sample % layout.samples * layout.stride;
        values.push_back(ValueAt(bytes.data() + at, layout.format));
    }
    return values;
}

Values Read(const BlockSource& source, std::size_t signal) {
    return Read(source, signal, 0, source.BlockCount());
}

/// 10 Hz, so that a block has 10 frames: 25 frames of 2 channels make 2 whole blocks and a half.
BrainVisionFiles TwentyFiveFrames() {
    BrainVisionFiles files;
    files.interval = "100000";
    files.values = {{}, {}};
    for (int i = 0; i < 25; ++i) {
        files.values[0].push_back(100 + i);
        files.values[1].push_back(-200 - i);
    }
    return files;
}

/// What 25 frames from `first` on, away from 0 by `step`, read as in blocks of 10.
Values WithZeros(double first, double step) {
    Values values;
    for (int i = 0; i < 30; ++i) {
        values.push_back(i < 25 ? first + i * step : 0);
    }
    return values;
}

class BrainVisionSamples : public testing::TestWithParam<std::pair<bool, bool>> {
protected:
    BrainVisionFiles Files() const {
        BrainVisionFiles files = TwentyFiveFrames();
        std::tie(files.vectorized, files.float32) = GetParam();
        return files;
    }
    TempFolder folder_;
};

TEST_P(BrainVisionSamples, AreReadInBlocksOfASecondWithZerosAfterTheLast) {
    const RecordingData data = ReadBrainVision(WriteBrainVision(folder_, Files()));
    EXPECT_EQ(data.source->SignalCount(), 2u);
    EXPECT_EQ(data.source->BlockCount(), 3u);
    EXPECT_EQ(data.source->SampleCount(0), 25u);
    EXPECT_DOUBLE_EQ(data.block_seconds, 1);
    EXPECT_EQ(Read(*data.source, 0), WithZeros(100, 1));
    EXPECT_EQ(Read(*data.source, 1), WithZeros(-200, -1));
    EXPECT_TRUE(data.repairs.empty());
}

TEST_P(BrainVisionSamples, OfBlocksInTheMiddleAreReadAlone) {
    const RecordingData data = ReadBrainVision(WriteBrainVision(folder_, Files()));
    EXPECT_EQ(Read(*data.source, 1, 1, 1),
              (Values{-210, -211, -212, -213, -214, -215, -216, -217, -218, -219}));
    EXPECT_EQ(Read(*data.source, 0, 2, 1), (Values{120, 121, 122, 123, 124, 0, 0, 0, 0, 0}));
}

TEST_P(BrainVisionSamples, BeyondTheLastBlockAreRefused) {
    const RecordingData data = ReadBrainVision(WriteBrainVision(folder_, Files()));
    EXPECT_THROW(Read(*data.source, 0, 2, 2), RecordingError);
    EXPECT_THROW(Read(*data.source, 0, 4, 0), RecordingError);
    EXPECT_TRUE(Read(*data.source, 0, 3, 0).empty());
}

TEST_P(BrainVisionSamples, OfAFileThatShrinksAreAnError) {
    const RecordingData data = ReadBrainVision(WriteBrainVision(folder_, Files()));
    std::filesystem::resize_file(folder_.Path("rec.eeg"), 20);
    EXPECT_THROW(Read(*data.source, 0), RecordingError);
}

TEST_P(BrainVisionSamples, AreReadByManyThreadsAtOnce) {
    const RecordingData data = ReadBrainVision(WriteBrainVision(folder_, Files()));
    std::atomic<int> wrong = 0;
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([&] {
            for (int i = 0; i < 50; ++i) {
                wrong += Read(*data.source, 1) != WithZeros(-200, -1);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(wrong, 0);
}

std::string FormName(const testing::TestParamInfo<std::pair<bool, bool>>& info) {
    return std::string(info.param.first ? "Vectorized" : "Multiplexed") +
           (info.param.second ? "Float32" : "Int16");
}

INSTANTIATE_TEST_SUITE_P(Forms, BrainVisionSamples,
                         testing::Values(std::pair(false, false), std::pair(false, true),
                                         std::pair(true, false), std::pair(true, true)),
                         FormName);

TEST(BrainVisionData, ThatAreNoNumbersAreCounted) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    for (const bool vectorized : {false, true}) {
        TempFolder folder;
        BrainVisionFiles files;
        files.float32 = true;
        files.vectorized = vectorized;
        files.values = {{1, nan, -infinity, 4}, {1, 2, 3, infinity}};
        EXPECT_EQ(ReadBrainVision(WriteBrainVision(folder, files)).repairs,
                  (Lines{"2 samples of channel \"Fp1\" are not numbers, spectra over them are not computable",
                         "1 sample of channel \"Fp2\" is no number, spectra over them are not computable"}));
    }
}

/// The default header counts one channel of the two that it describes.
std::string WithOneCounted(const TempFolder& folder, const std::string& further = "") {
    BrainVisionFiles files;
    files.common_infos = further;
    const std::string path = WriteBrainVision(folder, files);
    std::string text = HeaderText(files);
    text.replace(text.find("NumberOfChannels=2"), 18, "NumberOfChannels=1");
    folder.Write("rec.vhdr", text);
    return path;
}

TEST(BrainVisionData, OfAllDescribedChannelsWhereTheSizeFits) {
    TempFolder folder;
    const RecordingData data = ReadBrainVision(WithOneCounted(folder));
    EXPECT_EQ(data.signals.size(), 2u);
    EXPECT_EQ(data.source->SampleCount(1), 4u);
    EXPECT_EQ(data.repairs,
              (Lines{"NumberOfChannels is 1, but 2 channels are described; all are used, as the "
                     "size of the data file fits them"}));
}

TEST(BrainVisionData, OfTheCountedChannelsWhereTheSizeDoesNotFitAll) {
    TempFolder folder;
    const RecordingData data = ReadBrainVision(WithOneCounted(folder, "DataPoints=8\n"));
    EXPECT_EQ(data.signals.size(), 1u);
    EXPECT_EQ(data.source->SampleCount(0), 8u);
    EXPECT_EQ(data.repairs, (Lines{"NumberOfChannels is 1, but 2 channels are described; the others are left "
                                   "out, as the size of the data file does not fit them"}));
}

TEST(BrainVisionData, WithOneByteTooManyLosesIt) {
    TempFolder folder;
    const BrainVisionFiles files;
    const std::string header = WriteBrainVision(folder, files);
    folder.Write("rec.eeg", DataBytes(files) + "x");
    EXPECT_EQ(
        ReadBrainVision(header).repairs,
        (Lines{"1 byte at the end of the data file makes no whole data point of all channels, left out"}));
}

TEST(BrainVisionData, WithHalfAFrameAtTheEndLosesIt) {
    TempFolder folder;
    const BrainVisionFiles files;
    const std::string header = WriteBrainVision(folder, files);
    folder.Write("rec.eeg", DataBytes(files) + "xyz");
    const RecordingData data = ReadBrainVision(header);
    EXPECT_EQ(data.source->SampleCount(0), 4u);
    EXPECT_EQ(data.repairs, (Lines{"3 bytes at the end of the data file make no whole data point of all "
                                   "channels, left out"}));
}

TEST(BrainVisionData, WithoutSamplesOpens) {
    TempFolder folder;
    BrainVisionFiles files;
    files.values = {{}, {}};
    const RecordingData data = ReadBrainVision(WriteBrainVision(folder, files));
    EXPECT_EQ(data.source->BlockCount(), 0u);
    EXPECT_TRUE(data.segments.empty());
    EXPECT_EQ(data.repairs, (Lines{"the data file has no data point, there is nothing to analyse"}));
}

TEST(BrainVisionData, OfAnotherLengthThanDeclaredIsUsedAsItIs) {
    TempFolder folder;
    BrainVisionFiles files;
    files.common_infos = "DataPoints=7\n";
    const RecordingData data = ReadBrainVision(WriteBrainVision(folder, files));
    EXPECT_EQ(data.source->SampleCount(1), 4u);
    EXPECT_EQ(data.repairs, (Lines{"DataPoints is 7, but the data file has 4, which are used"}));
}

TEST(BrainVisionData, VectorizedAndCutKeepsTheChannelsInTheirPlaces) {
    TempFolder folder;
    BrainVisionFiles files;
    files.vectorized = true;
    files.common_infos = "DataPoints=4\n";
    const std::string header = WriteBrainVision(folder, files);
    folder.Write("rec.eeg", DataBytes(files).substr(0, 12));
    const RecordingData data = ReadBrainVision(header);
    EXPECT_EQ(data.source->SampleCount(0), 2u);
    const Values first = Read(*data.source, 0);
    const Values second = Read(*data.source, 1);
    EXPECT_EQ(Values(first.begin(), first.begin() + 3), (Values{1, 2, 0}));
    EXPECT_EQ(Values(second.begin(), second.begin() + 3), (Values{-1, -2, 0}));
    EXPECT_EQ(data.repairs, (Lines{"DataPoints is 4, but the data file has 2, which are used"}));
}

TEST(BrainVisionData, VectorizedAndCutBeforeTheLastChannelIsRefused) {
    TempFolder folder;
    BrainVisionFiles files;
    files.vectorized = true;
    for (const char* points : {"4", "9223372036854775807"}) {
        files.common_infos = "DataPoints=" + std::string(points) + "\n";
        const std::string header = WriteBrainVision(folder, files);
        folder.Write("rec.eeg", DataBytes(files).substr(0, 8));
        try {
            ReadBrainVision(header);
            ADD_FAILURE() << "opened";
        } catch (const RecordingError& error) {
            EXPECT_EQ(error.Reason(), "ends at byte 8, before the last of 2 channels of " +
                                          std::string(points) + " data points");
        }
    }
}

TEST(BrainVisionData, VectorizedWithoutALengthIsDividedEvenly) {
    TempFolder folder;
    BrainVisionFiles files;
    files.vectorized = true;
    files.values = {{1, 2, 3}, {4, 5, 6}};
    const RecordingData data = ReadBrainVision(WriteBrainVision(folder, files));
    EXPECT_EQ(data.source->SampleCount(0), 3u);
    EXPECT_EQ(Read(*data.source, 1).at(0), 4);
}

} // namespace
} // namespace orvanta::signal

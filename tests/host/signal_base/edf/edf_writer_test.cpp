// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/edf/edf_writer.h"
#include "tests/host/signal_base/edf/edf_open.h"

#include <cmath>
#include <limits>

namespace orvanta::test {

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

signal::EdfWriterHeader TwoSignals(std::uint64_t records) {
    signal::EdfWriterHeader header;
    header.record_count = records;
    header.start = signal::StartTime{2020, 2, 29, 1, 2, 3, 0};
    header.signals.resize(2);
    header.signals[0].label = "Fp1";
    header.signals[0].unit = "\u00B5V";
    header.signals[0].samples = 3;
    header.signals[1].label = "ECG";
    header.signals[1].unit = "mV";
    header.signals[1].samples = 2;
    header.signals[1].physical_min = -5;
    header.signals[1].physical_max = 5;
    return header;
}

using Record = std::vector<std::vector<double>>;

} // namespace

TEST(EdfWriter, WritesWhatTheReaderReads) {
    const TempFolder folder;
    const std::string path = folder.Path("made.edf");
    signal::EdfWriter writer(path, TwoSignals(2));
    writer.WriteRecord(Record{{0, 0.1, -0.1}, {5, -5}}, {{0.5, std::nullopt, "tone"}});
    writer.WriteRecord(Record{{100, 3276.7, -3276.8}, {0, 1}}, {{1.25, 0.5, "bad blink"}});
    EXPECT_FALSE(std::filesystem::exists(path));
    writer.Finish();

    const signal::RecordingData data = signal::ReadEdf(path);
    EXPECT_THAT(data.repairs, IsEmpty());
    EXPECT_EQ(data.format, "EDF+C");
    EXPECT_EQ(data.start, (signal::StartTime{2020, 2, 29, 1, 2, 3, 0}));
    EXPECT_EQ(data.record, "Startdate 29-FEB-2020 X X X");
    ASSERT_EQ(data.signals.size(), 3u);
    EXPECT_EQ(data.signals[0].unit, "\u00B5V");
    EXPECT_EQ(data.signals[1].unit, "mV");
    EXPECT_EQ(data.signals[0].rate_hz, 3);
    EXPECT_THAT(StoredValues(data, 0), ElementsAre(0, 1, -1, 1000, 32767, -32768));
    EXPECT_THAT(StoredValues(data, 1), ElementsAre(32767, -32768, 0, 6553));
    ASSERT_EQ(data.annotations.size(), 2u);
    EXPECT_EQ(data.annotations[0].onset_s, 0.5);
    EXPECT_FALSE(data.annotations[0].duration_s);
    EXPECT_EQ(data.annotations[1].text, "bad blink");
    EXPECT_EQ(data.annotations[1].duration_s, 0.5);
}

TEST(EdfWriter, WritesTheEndOfTheRangeForWhatLiesBeyond) {
    const TempFolder folder;
    signal::EdfWriter writer(folder.Path("made.edf"), TwoSignals(1));
    writer.WriteRecord(Record{{1e9, -1e9, std::numeric_limits<double>::infinity()}, {0, 0}});
    writer.Finish();
    EXPECT_THAT(StoredValues(signal::ReadEdf(folder.Path("made.edf")), 0), ElementsAre(32767, -32768, 32767));
}

TEST(EdfWriter, LetsAnnotationsWaitForRoom) {
    const TempFolder folder;
    signal::EdfWriterHeader header = TwoSignals(3);
    header.annotation_bytes = 48;
    signal::EdfWriter writer(folder.Path("made.edf"), header);
    const std::string text(16, 'x');
    writer.WriteRecord(Record{{0, 0, 0}, {0, 0}}, {{0, {}, text}, {0.25, {}, text}, {0.5, {}, text}});
    writer.WriteRecord(Record{{0, 0, 0}, {0, 0}});
    writer.WriteRecord(Record{{0, 0, 0}, {0, 0}});
    writer.Finish();
    const signal::RecordingData data = signal::ReadEdf(folder.Path("made.edf"));
    ASSERT_EQ(data.annotations.size(), 3u);
    EXPECT_EQ(data.annotations[2].onset_s, 0.5);
    EXPECT_THAT(data.repairs, IsEmpty());
}

TEST(EdfWriter, TellsOfAnnotationsThatFoundNoRoom) {
    const TempFolder folder;
    signal::EdfWriterHeader header = TwoSignals(1);
    header.annotation_bytes = 48;
    signal::EdfWriter writer(folder.Path("made.edf"), header);
    const std::string text(16, 'x');
    writer.WriteRecord(Record{{0, 0, 0}, {0, 0}}, {{0, {}, text}, {0.25, {}, text}});
    EXPECT_THROW(writer.Finish(), std::invalid_argument);
}

TEST(EdfWriter, LeavesNoFileWhenItIsNotFinished) {
    const TempFolder folder;
    {
        signal::EdfWriter writer(folder.Path("made.edf"), TwoSignals(2));
        writer.WriteRecord(Record{{0, 0, 0}, {0, 0}});
        EXPECT_THROW(writer.Finish(), std::invalid_argument);
    }
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path("")));
}

TEST(EdfWriter, RefusesRecordsThatDoNotFit) {
    const TempFolder folder;
    signal::EdfWriter writer(folder.Path("made.edf"), TwoSignals(1));
    EXPECT_THROW(writer.WriteRecord(Record{{0, 0, 0}}), std::invalid_argument);
    EXPECT_THROW(writer.WriteRecord(Record{{0, 0}, {0, 0}}), std::invalid_argument);
    EXPECT_THROW(writer.WriteRecord(Record{{0, std::nan(""), 0}, {0, 0}}), std::invalid_argument);
    writer.WriteRecord(Record{{0, 0, 0}, {0, 0}});
    EXPECT_THROW(writer.WriteRecord(Record{{0, 0, 0}, {0, 0}}), std::invalid_argument);
}

TEST(EdfWriter, RefusesHeadersThatDoNotFit) {
    const TempFolder folder;
    const auto refused = [&](auto&& change) {
        signal::EdfWriterHeader header = TwoSignals(1);
        change(header);
        EXPECT_THROW(signal::EdfWriter(folder.Path("made.edf"), header), std::invalid_argument);
    };
    refused([](signal::EdfWriterHeader& h) { h.signals.clear(); });
    refused([](signal::EdfWriterHeader& h) { h.signals[0].label = "a label too long for it"; });
    refused([](signal::EdfWriterHeader& h) { h.signals[0].label = "F\u00FC"; });
    refused([](signal::EdfWriterHeader& h) { h.signals[0].samples = 0; });
    refused([](signal::EdfWriterHeader& h) { h.signals[0].physical_max = -1e5; });
    refused([](signal::EdfWriterHeader& h) { h.record_seconds = 0; });
    refused([](signal::EdfWriterHeader& h) { h.start->year = 1900; });
    refused([](signal::EdfWriterHeader& h) { h.annotation_bytes = 33; });
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path("")));
}

TEST(EdfWriter, SaysWhereItCannotWrite) {
    const TempFolder folder;
    EXPECT_THROW(signal::EdfWriter(folder.Path("none/made.edf"), TwoSignals(1)), std::runtime_error);
}

} // namespace orvanta::test

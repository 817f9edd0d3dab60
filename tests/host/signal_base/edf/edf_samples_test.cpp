// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/host/signal_base/edf/edf_open.h"

#include <thread>

namespace orvanta::test {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(EdfSamples, OfAnEdfFileAreAsStored) {
    const signal::RecordingData data = Open(PlainEdf(2));
    EXPECT_THAT(StoredValues(data, 0), ElementsAre(0, 1, 2, 3, 4, 5, 6, 7));
    EXPECT_THAT(StoredValues(data, 1), ElementsAre(0, -1, -2, -3, -4, -5, -6, -7));
    EXPECT_EQ(data.source->SampleCount(0), 8u);
    EXPECT_EQ(data.source->Layout(0).format, signal::SampleFormat::Int16);
    EXPECT_THAT(data.repairs, IsEmpty());
}

TEST(EdfSamples, OfABdfFileAreAsStored) {
    const signal::RecordingData data = Open(PlainBdf(2));
    EXPECT_THAT(StoredValues(data, 0),
                ElementsAre(0, 500000, 1000000, 1500000, 2000000, 2500000, 3000000, 3500000));
    EXPECT_THAT(StoredValues(data, 1),
                ElementsAre(0, -500000, -1000000, -1500000, -2000000, -2500000, -3000000, -3500000));
    EXPECT_EQ(data.source->Layout(1).format, signal::SampleFormat::Int24);
    EXPECT_THAT(data.repairs, IsEmpty());
}

TEST(EdfSamples, HaveTheGainAndOffsetOfTheirRanges) {
    EdfFile file = PlainEdf();
    file.signals[0].physical_min = "-100";
    file.signals[0].physical_max = "412";
    file.signals[0].digital_min = "0";
    file.signals[0].digital_max = "1024";
    const signal::RecordingData data = Open(file);
    EXPECT_DOUBLE_EQ(data.signals[0].gain, 0.5);
    EXPECT_DOUBLE_EQ(data.signals[0].offset, -100);
    EXPECT_NEAR(data.signals[1].gain, 0.1, 1e-15);
    EXPECT_NEAR(data.signals[1].offset, 0, 1e-12);
}

TEST(EdfSamples, MayHaveARatePerChannel) {
    EdfFile file = PlainEdf(2);
    file.duration = "2";
    file.signals[1].samples = 1;
    file.signals[1].values = {7, -8};
    const signal::RecordingData data = Open(file);
    EXPECT_EQ(data.signals[0].rate_hz, 2);
    EXPECT_EQ(data.signals[1].rate_hz, 0.5);
    EXPECT_THAT(StoredValues(data, 1), ElementsAre(7, -8));
}

TEST(EdfSamples, AreReadByThreadsAtOnce) {
    const signal::RecordingData data = Open(PlainEdf(64));
    std::vector<std::vector<std::int32_t>> seen(4);
    std::vector<std::thread> threads;
    for (std::vector<std::int32_t>& values : seen) {
        threads.emplace_back([&] { values = StoredValues(data, 0); });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (const std::vector<std::int32_t>& values : seen) {
        EXPECT_EQ(values, PlainEdf(64).signals[0].values);
    }
}

TEST(EdfHeader, GivesPatientRecordAndStart) {
    const signal::RecordingData data = Open(PlainEdf());
    EXPECT_EQ(data.format, "EDF");
    EXPECT_EQ(data.patient, "X X X X");
    EXPECT_EQ(data.record, "Startdate 02-MAR-2002 X X X");
    EXPECT_EQ(data.start, (signal::StartTime{2002, 3, 2, 10, 20, 30, 0}));
    EXPECT_EQ(data.block_seconds, 1);
    ASSERT_EQ(data.segments.size(), 1u);
    EXPECT_EQ(data.segments[0].count, 3u);
}

TEST(EdfHeader, NamesTheFormat) {
    EXPECT_EQ(Open(PlusEdf()).format, "EDF+C");
    EXPECT_EQ(Open(PlainBdf()).format, "BDF");
    EdfFile file = PlusEdf();
    file.reserved = "EDF+D";
    EXPECT_EQ(Open(file).format, "EDF+D");
}

TEST(EdfHeader, ReadsTwoDigitYearsFrom1985To2084) {
    EdfFile file = PlainEdf();
    file.date = "31.12.84";
    EXPECT_EQ(Open(file).start->year, 2084);
    file.date = "01.01.85";
    EXPECT_EQ(Open(file).start->year, 1985);
}

TEST(EdfHeader, TakesTheFourDigitYearOfEdfPlus) {
    EdfFile file = PlusEdf();
    file.date = "02.03.yy";
    file.recording = "Startdate 02-MAR-2099 X X X";
    const signal::RecordingData data = Open(file);
    EXPECT_EQ(data.start, (signal::StartTime{2099, 3, 2, 10, 20, 30, 0}));
    EXPECT_THAT(data.repairs, IsEmpty());
}

TEST(EdfHeader, KeepsTheDateWhenEdfPlusHidesIt) {
    EdfFile file = PlusEdf();
    file.recording = "Startdate X X X X";
    EXPECT_EQ(Open(file).start->year, 2002);
}

TEST(EdfHeader, TellsStatusAndAnnotationSignals) {
    EdfFile file = PlainBdf(1);
    file.signals[1].label = "Status";
    file.signals.push_back(AnnotationSignal({TimeKeeping("0")}, 8, true));
    file.reserved = "BDF+C";
    const signal::RecordingData data = Open(file);
    EXPECT_EQ(data.format, "BDF+C");
    EXPECT_FALSE(data.signals[0].status);
    EXPECT_TRUE(data.signals[1].status);
    EXPECT_TRUE(data.signals[2].annotations);
    EXPECT_FALSE(data.signals[1].annotations);
    EXPECT_THAT(data.repairs, IsEmpty());
}

TEST(EdfHeader, WritesMicrovoltsInOneWay) {
    for (const char* unit :
         {"uV", "UV", "uv", "\xB5V", "\xC2\xB5V", "\xCE\xBCV", "microV", "\xB5v", "uVolt", " uV"}) {
        EdfFile file = PlainEdf();
        file.signals[0].unit = unit;
        EXPECT_EQ(Open(file).signals[0].unit, "\u00B5V") << unit;
    }
}

} // namespace orvanta::test

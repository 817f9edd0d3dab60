// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/recording.h"
#include "tests/support/memory_source.h"

#include <gtest/gtest.h>

#include <limits>

namespace orvanta::signal {
namespace {

using DT = XTime::DTMode;
using AR = XTime::ARMode;
using Sample::Mode;

/// 100 Hz: 0 to 2 s, a gap of 10 s, 12 to 14 s.
class Cursor : public testing::Test {
protected:
    static RecordingData Data() {
        return test::MakeData({{"C3", 100, std::vector<double>(400)}}, {}, {{.block = 2, .gap_s = 10}});
    }
    std::int64_t At(double seconds, Mode mode) const {
        const XTime time = XTime::FromSeconds(seconds);
        return cursor_->GetSample(&time, mode, 0);
    }
    double StartAfter(std::int64_t sample) const {
        cursor_->SetPosition(sample);
        return cursor_->GetStartRecTime()->Seconds();
    }

    std::unique_ptr<EEGFileInfoType> file_ = MakeRecording(Data());
    TraceCursorType* cursor_ = file_->GetTraceCursor();
};

TEST_F(Cursor, MemorySamplesCountTheGap) {
    EXPECT_EQ(At(12.5, Mode::Memory), 1250);
}

TEST_F(Cursor, MemorySamplesRoundToTheNearest) {
    EXPECT_EQ(At(0.0149, Mode::Memory), 1);
    EXPECT_EQ(At(0.015, Mode::Memory), 2);
    EXPECT_EQ(At(-0.02, Mode::Memory), -2);
}

TEST_F(Cursor, FileSamplesCountNoGap) {
    EXPECT_EQ(At(12.5, Mode::File), 250);
    EXPECT_EQ(At(0.014, Mode::File), 1);
    EXPECT_EQ(At(0.016, Mode::File), 2);
}

TEST_F(Cursor, FileSamplesStayInside) {
    EXPECT_EQ(At(-5, Mode::File), 0);
    EXPECT_EQ(At(7, Mode::File), 200);
    EXPECT_EQ(At(99, Mode::File), 400);
}

TEST_F(Cursor, NoTimeIsSampleZero) {
    EXPECT_EQ(cursor_->GetSample(nullptr, Mode::Memory, 0), 0);
    EXPECT_EQ(cursor_->GetSample(nullptr, Mode::File, 0), 0);
}

TEST_F(Cursor, FarTimesHaveSamplesInReach) {
    EXPECT_EQ(At(9.2e9, Mode::Memory), 920'000'000'000);
    EXPECT_EQ(At(-9.2e9, Mode::Memory), -920'000'000'000);
}

TEST_F(Cursor, StartsAtTheBeginning) {
    EXPECT_EQ(*cursor_->GetStartRecTime(), XTime());
}

TEST_F(Cursor, MovesToASampleOfTheMemory) {
    EXPECT_DOUBLE_EQ(StartAfter(1250), 12.5);
}

TEST_F(Cursor, StaysInsideTheRecording) {
    EXPECT_DOUBLE_EQ(StartAfter(-1), 0);
    EXPECT_DOUBLE_EQ(StartAfter(1400), 13.99);
    EXPECT_DOUBLE_EQ(StartAfter(std::numeric_limits<std::int64_t>::max()), 13.99);
    EXPECT_DOUBLE_EQ(StartAfter(std::numeric_limits<std::int64_t>::min()), 0);
}

TEST_F(Cursor, TellsElapsedTime) {
    EXPECT_EQ(cursor_->GetTimeStrFromSmpl(Mode::Memory, 100, 366'150, DT::Time, AR::Elapsed), "01:01:01.500");
    EXPECT_EQ(cursor_->GetTimeStrFromSmpl(Mode::Memory, 100, -150, DT::Time, AR::Elapsed), "-00:00:01.500");
    EXPECT_EQ(cursor_->GetTimeStrFromSmpl(Mode::Memory, 0, 150, DT::Time, AR::Elapsed), "00:00:00.000");
}

TEST_F(Cursor, PlacesFileSamplesBehindTheGap) {
    EXPECT_EQ(cursor_->GetTimeStrFromSmpl(Mode::File, 100, 250, DT::Time, AR::Elapsed), "00:00:12.500");
    EXPECT_EQ(cursor_->GetTimeStrFromSmpl(Mode::File, 50, 125, DT::Time, AR::Elapsed), "00:00:12.500");
}

TEST_F(Cursor, WithoutAStartTimeTheClockCountsFromZero) {
    EXPECT_EQ(cursor_->GetTimeStrFromSmpl(Mode::Memory, 100, 150, DT::DateTime, AR::Clock), "00:00:01.500");
}

TEST_F(Cursor, TellsTheClockAndTheDate) {
    RecordingData data = Data();
    data.start = StartTime{2023, 12, 31, 23, 59, 59, 0};
    const auto file = MakeRecording(std::move(data));
    const TraceCursorType& cursor = *file->GetTraceCursor();
    EXPECT_EQ(cursor.GetTimeStrFromSmpl(Mode::Memory, 100, 50, DT::Time, AR::Clock), "23:59:59.500");
    EXPECT_EQ(cursor.GetTimeStrFromSmpl(Mode::Memory, 100, 150, DT::DateTime, AR::Clock),
              "2024-01-01 00:00:00.500");
    EXPECT_EQ(cursor.GetTimeStrFromSmpl(Mode::Memory, 100, 150, DT::DateTime, AR::Elapsed),
              "2024-01-01 00:00:01.500");
}

TEST_F(Cursor, TellsWhenItMovedToAnotherSample) {
    struct Counter : FlagListener {
        using FlagListener::FlagListener;
        void PerformAction() override { ++count; }
        int count = 0;
    };
    Counter counter("counter", cursor_->GetPositionFlag());
    cursor_->SetPosition(7);
    EXPECT_EQ(counter.count, 1);
    cursor_->SetPosition(7);
    cursor_->SetPosition(0);
    cursor_->SetPosition(-3); // kept at 0
    EXPECT_EQ(counter.count, 2);
}

TEST_F(Cursor, OfARecordingWithoutDataStaysAtZero) {
    const auto file = MakeRecording(test::MakeData({{"C3", 100, {}}}));
    file->GetTraceCursor()->SetPosition(5);
    EXPECT_EQ(*file->GetTraceCursor()->GetStartRecTime(), XTime());
    const XTime later = XTime::FromSeconds(3);
    EXPECT_EQ(file->GetTraceCursor()->GetSample(&later, Mode::File, 0), 0);
}

} // namespace
} // namespace orvanta::signal

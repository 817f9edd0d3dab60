// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/recording/kept_source.h"
#include "host/signal_base/recording_error.h"
#include "tests/support/counting_source.h"
#include "tests/support/failing_source.h"
#include "tests/support/memory_source.h"
#include "tests/support/small_recording.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <thread>

namespace orvanta::signal {
namespace {

using testing::Each;
using testing::ElementsAre;

constexpr std::uint64_t kBlock = 65536 * sizeof(float); // a page of 1 MiB holds four of these blocks
constexpr std::uint64_t kBlocks = 10;
constexpr std::uint64_t kAmple = 1 << 30;

std::shared_ptr<const BlockSource> TenBlocks() {
    std::vector<double> values(65536 * kBlocks);
    for (std::size_t i = 0; i < values.size(); ++i) {
        values[i] = static_cast<double>(i);
    }
    return test::MakeData({{"Cz", 65536, values}}).source;
}

std::vector<std::byte> Bytes(const BlockSource& source, std::uint64_t first, std::uint64_t count) {
    std::vector<std::byte> bytes(count * source.BlockBytes());
    source.Read(first, count, bytes.data());
    return bytes;
}

class KeptSamples : public testing::Test {
protected:
    std::shared_ptr<const BlockSource> whole = TenBlocks();
    std::shared_ptr<test::CountingSource> counted = std::make_shared<test::CountingSource>(whole);
    KeptSource source{counted};
};

TEST_F(KeptSamples, AreThoseOfTheFileWhereverAReadBegins) {
    const auto kept = source.Keep(kAmple);
    using Range = std::pair<std::uint64_t, std::uint64_t>;
    for (const auto& [first, count] : {Range(0, 10), {3, 1}, {3, 2}, {7, 3}, {9, 1}, {4, 0}, {0, 10}}) {
        EXPECT_EQ(Bytes(source, first, count), Bytes(*whole, first, count)) << first << ' ' << count;
    }
}

TEST_F(KeptSamples, AreReadOnceHoweverOftenTheyAreWanted) {
    const auto kept = source.Keep(kAmple);
    for (int i = 0; i < 3; ++i) {
        Bytes(source, 0, 10);
        Bytes(source, 5, 1);
    }
    EXPECT_THAT(counted->Reads(), Each(1u));
}

TEST_F(KeptSamples, AreReadAsFarAsTheyAreWanted) {
    const auto kept = source.Keep(kAmple);
    Bytes(source, 5, 1);
    EXPECT_THAT(counted->Reads(), ElementsAre(0, 0, 0, 0, 1, 1, 1, 1, 0, 0));
}

TEST_F(KeptSamples, AreReadEachTimeUnlessTheyAreToBeKept) {
    Bytes(source, 0, 10);
    Bytes(source, 0, 10);
    EXPECT_THAT(counted->Reads(), Each(2u));
}

TEST_F(KeptSamples, GoWithTheLastWhoWantsThem) {
    auto first = source.Keep(kAmple);
    auto second = source.Keep(kAmple);
    Bytes(source, 0, 10);
    first.reset();
    Bytes(source, 0, 10);
    EXPECT_EQ(counted->MostReads(), 1u);
    second.reset();
    Bytes(source, 0, 10);
    EXPECT_EQ(counted->MostReads(), 2u);
}

TEST_F(KeptSamples, OutliveTheSourceWithWhoeverWantsThem) {
    std::shared_ptr<const void> kept;
    {
        const KeptSource shortLived(counted);
        kept = shortLived.Keep(kAmple);
        Bytes(shortLived, 0, 10);
    }
    EXPECT_EQ(Bytes(source, 0, 1), Bytes(*whole, 0, 1));
}

TEST_F(KeptSamples, BeyondTheLimitAreReadEachTime) {
    const auto kept = source.Keep(4 * kBlock + 100);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(Bytes(source, 0, 10), Bytes(*whole, 0, 10));
    }
    EXPECT_THAT(counted->Reads(), ElementsAre(1, 1, 1, 1, 3, 3, 3, 3, 3, 3));
}

TEST_F(KeptSamples, ThatDoNotExistAreRefusedAsByTheFile) {
    const auto kept = source.Keep(kAmple);
    std::vector<std::byte> bytes(12 * kBlock);
    EXPECT_THROW(source.Read(9, 2, bytes.data()), RecordingError);
    EXPECT_THROW(source.Read(11, 1, bytes.data()), RecordingError);
}

TEST_F(KeptSamples, AreReadOnceByThreadsThatWantTheSame) {
    const auto kept = source.Keep(kAmple);
    {
        std::vector<std::jthread> threads;
        for (int i = 0; i < 4; ++i) {
            threads.emplace_back([this] { EXPECT_EQ(Bytes(source, 0, 10), Bytes(*whole, 0, 10)); });
        }
    }
    EXPECT_THAT(counted->Reads(), Each(1u));
}

/// Block 1 of a page cannot be read.
class DamagedSource final : public BlockSource {
public:
    explicit DamagedSource(std::shared_ptr<const BlockSource> whole) : whole_(std::move(whole)) {}
    std::size_t SignalCount() const override { return whole_->SignalCount(); }
    const SignalLayout& Layout(std::size_t signal) const override { return whole_->Layout(signal); }
    std::uint64_t BlockCount() const override { return whole_->BlockCount(); }
    std::size_t BlockBytes() const override { return whole_->BlockBytes(); }
    std::uint64_t SampleCount(std::size_t signal) const override { return whole_->SampleCount(signal); }
    void Read(std::uint64_t first, std::uint64_t count, std::byte* destination) const override {
        if (first <= 1 && first + count > 1) {
            throw RecordingError("disk", "block 1 is damaged", "copy the file again");
        }
        whole_->Read(first, count, destination);
    }

private:
    std::shared_ptr<const BlockSource> whole_;
};

TEST_F(KeptSamples, BesideADamageCanStillBeRead) {
    const KeptSource damaged(std::make_shared<DamagedSource>(whole));
    const auto kept = damaged.Keep(kAmple);
    EXPECT_EQ(Bytes(damaged, 2, 3), Bytes(*whole, 2, 3));
    EXPECT_THROW(Bytes(damaged, 0, 2), RecordingError);
}

TEST_F(KeptSamples, AreReadOnceTheFileCanBeReadAgain) {
    const auto failing = std::make_shared<test::FailingSource>(whole);
    failing->BeforeRead = [] { throw std::runtime_error("no network"); };
    const KeptSource flaky(failing);
    const auto kept = flaky.Keep(kAmple);
    EXPECT_THROW(Bytes(flaky, 0, 10), std::runtime_error);
    failing->BeforeRead = {};
    EXPECT_EQ(Bytes(flaky, 0, 10), Bytes(*whole, 0, 10));
    failing->BeforeRead = [] { throw std::runtime_error("no network"); };
    EXPECT_EQ(Bytes(flaky, 0, 10), Bytes(*whole, 0, 10));
}

TEST(Recording, KeepsItsSamplesWhileSomebodyWantsThem) {
    RecordingData data = test::SmallData();
    const auto counted = std::make_shared<test::CountingSource>(data.source);
    data.source = counted;
    const auto file = MakeRecording(std::move(data));
    auto kept = file->KeepSamples();
    Bytes(file->GetRecording()->Source(), 0, 5);
    Bytes(file->GetRecording()->Source(), 0, 5);
    EXPECT_THAT(counted->Reads(), Each(1u));
    kept.reset();
    Bytes(file->GetRecording()->Source(), 0, 5);
    EXPECT_THAT(counted->Reads(), Each(2u));
}

} // namespace
} // namespace orvanta::signal

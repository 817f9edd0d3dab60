// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/results/epoch_spectra.h"

#include "host/spectral_data/results/analysis.h"
#include "tests/host/spectral_data/results/analysis_fixture.h"
#include "tests/support/failing_source.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace orvanta::spectral {
namespace {

using Power = std::vector<float>;

/// One analysis twice: its epochs kept, and computed again.
class EpochAccess : public testing::Test {
protected:
    std::shared_ptr<const Analysis> Compute(const ComputeOptions& options) const {
        const MontageType montage = test::MontageOf(*recording, "Fp1-F3 = +Fp1 -F3\nmean = 0.5*Fp1 +0.5*Cz");
        return Analysis::Compute(test::InputOf(*recording, test::SmallMacro(), montage, options), nullptr);
    }
    static Power At(const Analysis& analysis, std::uint64_t epoch, std::uint32_t row) {
        const auto power = analysis.Epochs().Power(epoch, row);
        return {power.begin(), power.end()};
    }
    void ExpectSame(std::uint64_t epoch, std::uint32_t row) const {
        EXPECT_EQ(At(*kept, epoch, row), At(*again, epoch, row)) << "epoch " << epoch << " row " << row;
    }

    static constexpr std::uint64_t kEpochs = 19; // 10 s, windows of 1 s, half overlapped
    static constexpr std::uint32_t kRows = 5;
    test::GlobalsGuard guard;
    std::unique_ptr<EEGFileInfoType> recording = test::SmallRecording(10);
    std::shared_ptr<const Analysis> kept = Compute({});
    std::shared_ptr<const Analysis> again = Compute(test::WithoutMemory());
};

TEST_F(EpochAccess, TheBudgetDecides) {
    const std::uint64_t bytes = kEpochs * kRows * 5 * sizeof(float);
    ComputeOptions options;
    options.memory_bytes = bytes;
    EXPECT_TRUE(Compute(options)->Epochs().IsStored());
    options.memory_bytes = bytes - 1;
    EXPECT_FALSE(Compute(options)->Epochs().IsStored());
    options.memory_bytes = bytes;
    options.store_epochs = false;
    EXPECT_FALSE(Compute(options)->Epochs().IsStored());
}

TEST_F(EpochAccess, TraceByTraceBothGiveTheSameBits) {
    ASSERT_EQ(kept->EpochCount(), kEpochs);
    for (std::uint32_t row = 0; row < kRows; ++row) {
        for (std::uint64_t epoch = 0; epoch < kEpochs; ++epoch) {
            ExpectSame(epoch, row);
        }
    }
}

TEST_F(EpochAccess, BlockByBlockBothGiveTheSameBits) {
    for (const std::uint32_t rows : {1U, 3U, kRows}) {
        std::uint64_t next = 0;
        EXPECT_TRUE(again->Epochs().ForEachBlock(rows, [&](std::uint64_t first, std::uint64_t last) {
            EXPECT_EQ(first, next);
            next = last;
            for (std::uint64_t epoch = first; epoch < last; ++epoch) {
                for (std::uint32_t row = 0; row < rows; ++row) {
                    ExpectSame(epoch, row);
                }
            }
            return true;
        }));
        EXPECT_EQ(next, kEpochs);
    }
}

TEST_F(EpochAccess, BlocksEndWhereTheVisitorHasEnough) {
    for (const auto& analysis : {kept, again}) {
        int visits = 0;
        EXPECT_FALSE(analysis->Epochs().ForEachBlock(kRows, [&](std::uint64_t, std::uint64_t) {
            ++visits;
            return false;
        }));
        EXPECT_EQ(visits, 1);
    }
}

TEST_F(EpochAccess, BlocksHaveNoMoreRowsThanThereAre) {
    EXPECT_THROW(again->Epochs().ForEachBlock(kRows + 1, [](std::uint64_t, std::uint64_t) { return true; }),
                 std::out_of_range);
}

TEST(EpochBlocks, AreNotReadAgainAndStaySmall) {
    signal::RecordingData data = test::SmallData(36'000);
    auto source = std::make_shared<test::FailingSource>(data.source);
    data.source = source;
    const auto recording = signal::MakeRecording(std::move(data));
    ComputeOptions options = test::WithoutMemory();
    options.threads = 1;
    const auto analysis =
        Analysis::Compute(test::InputOf(*recording, test::SmallMacro(), MontageType(), options), nullptr);
    int reads = 0, blocks = 0;
    source->BeforeRead = [&] { ++reads; };
    analysis->Epochs().ForEachBlock(3, [&](std::uint64_t first, std::uint64_t last) {
        const int before = reads;
        for (std::uint64_t epoch = first; epoch < last; ++epoch) {
            for (std::uint32_t row = 0; row < 3; ++row) {
                analysis->Epochs().Power(epoch, row);
            }
        }
        EXPECT_EQ(reads, before) << "what a block holds is not read again";
        EXPECT_LE((last - first) * 3 * 5 * sizeof(float), std::size_t{4} << 20);
        ++blocks;
        return true;
    });
    EXPECT_EQ(blocks, 2); // 71,999 epochs of 60 bytes, 4 MiB at a time
    EXPECT_GT(reads, 0);
}

TEST_F(EpochAccess, EpochByEpochBothGiveTheSameBits) {
    for (std::uint64_t epoch = 0; epoch < kEpochs; ++epoch) {
        for (std::uint32_t row = 0; row < kRows; ++row) {
            ExpectSame(epoch, row);
        }
    }
}

TEST_F(EpochAccess, InAnyOrderBothGiveTheSameBits) {
    std::uint64_t state = 7;
    for (int i = 0; i < 300; ++i) {
        state = state * 6364136223846793005u + 1442695040888963407u;
        ExpectSame((state >> 33) % kEpochs, static_cast<std::uint32_t>((state >> 40) % kRows));
    }
}

TEST_F(EpochAccess, AllEpochsOfARowComeInOrder) {
    for (const auto& analysis : {kept, again}) {
        std::vector<Power> visited;
        analysis->Epochs().ForEach(
            3, [&](std::span<const float> power) { visited.emplace_back(power.begin(), power.end()); });
        ASSERT_EQ(visited.size(), kEpochs);
        EXPECT_EQ(visited.front(), At(*kept, 0, 3));
        EXPECT_EQ(visited.back(), At(*kept, 18, 3));
    }
}

TEST_F(EpochAccess, TheMeanOfTheEpochsIsTheMeanSpectrum) {
    double sum = 0;
    again->Epochs().ForEach(4, [&](std::span<const float> power) { sum += power[2]; });
    const double mean = kept->MeanAt(SPECT::Entity::Type::Power, {4, {}}, 2);
    EXPECT_NEAR(sum / kEpochs, mean, 1e-6 * mean);
}

TEST_F(EpochAccess, WhatDoesNotExistIsRefused) {
    for (const auto& analysis : {kept, again}) {
        EXPECT_THROW(analysis->Epochs().Power(kEpochs, 0), std::out_of_range);
        EXPECT_THROW(analysis->Epochs().Power(0, kRows), std::out_of_range);
        EXPECT_THROW(analysis->Epochs().ForEach(kRows, [](std::span<const float>) {}), std::out_of_range);
    }
}

} // namespace
} // namespace orvanta::spectral

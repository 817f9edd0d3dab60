// SPDX-License-Identifier: GPL-3.0-or-later
// Threads, cancelling, failing, and single epochs on demand.
#include "host/spectral_data/engine/engine.h"

#include "host/signal_base/recording_error.h"
#include "spectra_contract/platform.h"
#include "tests/host/spectral_data/engine/engine_cases.h"
#include "tests/support/raw_source.h"

#include <gtest/gtest.h>

#include <cstring>
#include <numeric>
#include <thread>

namespace orvanta::spectral {
namespace {

using signal::SampleFormat;
using test::RawSource;

constexpr std::size_t kSensors = 19;
constexpr std::int64_t kSamples = 6000;

std::vector<std::vector<double>> Stored(double range = 3000) {
    std::vector<std::vector<double>> stored;
    for (unsigned s = 0; s < kSensors; ++s) {
        stored.push_back(Counts(kSamples, s, range));
    }
    return stored;
}

/// Everything at once: all moments, bands, an average reference, a bipolar channel, pairs, stored powers.
EngineRequest EverythingAsked(Precision precision) {
    EngineRequest request = RequestFor(kSensors, kSamples, 50, 75, 64.0, Hanning(50));
    for (EngineSensor& sensor : request.sensors) {
        sensor.gain = 0.1;
    }
    request.derived.push_back({{{0, 1}, {7, -1}}, true});
    request.derived.push_back({{}, false});
    for (std::uint32_t s = 0; s < kSensors; ++s) {
        request.derived[1].terms.push_back({s, 1.0 / kSensors});
    }
    request.derived.push_back({{{3, 1}, {kSensors + 1, -1}}, true});
    request.pairs = {{0, 18}, {kSensors, 4}, {kSensors + 2, kSensors + 1}};
    request.bands = {{1, 5}, {5, 20}, {8, 8}};
    request.amplitude = request.log_power = true;
    request.store_bins = 21;
    request.precision = precision;
    return request;
}

template <class T>
bool SameBytes(const std::vector<T>& a, const std::vector<T>& b) {
    return a.size() == b.size() && (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof(T)) == 0);
}

void ExpectSameBytes(const EngineResult& a, const EngineResult& b) {
    EXPECT_EQ(a.epochs, b.epochs);
    const auto same = [](const Moments& x, const Moments& y) {
        return SameBytes(x.mean, y.mean) && SameBytes(x.m2, y.m2);
    };
    EXPECT_TRUE(same(a.power, b.power));
    EXPECT_TRUE(same(a.amplitude, b.amplitude));
    EXPECT_TRUE(same(a.log_power, b.log_power));
    EXPECT_TRUE(same(a.band_power, b.band_power));
    EXPECT_TRUE(SameBytes(a.cross, b.cross));
    EXPECT_TRUE(SameBytes(a.stored, b.stored));
}

TEST(EngineThreads, GiveTheSameBytesWhateverTheirNumber) {
    for (const Precision precision : {Precision::Float, Precision::Double}) {
        for (const SampleFormat format : {SampleFormat::Int16, SampleFormat::Float32}) {
            const RawSource source(format, Stored(), 64);
            EngineRequest request = EverythingAsked(precision);
            EngineResult one;
            ASSERT_TRUE(Accumulate(source, request, one, nullptr));
            ASSERT_EQ(one.epochs, 458U);
            for (unsigned threads = 2; threads <= 8; ++threads) {
                request.threads = threads;
                EngineResult many;
                ASSERT_TRUE(Accumulate(source, request, many, nullptr));
                SCOPED_TRACE(threads);
                ExpectSameBytes(one, many);
            }
        }
    }
}

TEST(EngineEpochs, ComeBackWithTheBitsThatWereStored) {
    for (const Precision precision : {Precision::Float, Precision::Double}) {
        for (const SampleFormat format : {SampleFormat::Int16, SampleFormat::Float32}) {
            const RawSource source(format, Stored(), 64);
            EngineRequest request = EverythingAsked(precision);
            EngineResult all;
            ASSERT_TRUE(Accumulate(source, request, all, nullptr));
            const std::vector<std::uint64_t> epochs{0, 1, 2, 77, 5, 457, 300};
            for (const std::vector<std::uint32_t>& rows :
                 {std::vector<std::uint32_t>{0, 3, 18}, std::vector<std::uint32_t>{20, 6, 19}}) {
                for (const unsigned threads : {1U, 3U}) {
                    request.threads = threads;
                    std::vector<float> out;
                    EpochPower(source, request, epochs, rows, out);
                    ASSERT_EQ(out.size(), epochs.size() * rows.size() * request.bins);
                    for (std::size_t e = 0; e < epochs.size(); ++e) {
                        for (std::size_t r = 0; r < rows.size(); ++r) {
                            const float* got = out.data() + (e * rows.size() + r) * request.bins;
                            const float* stored =
                                all.stored.data() + (rows[r] * all.epochs + epochs[e]) * request.store_bins;
                            EXPECT_EQ(std::memcmp(got, stored, request.store_bins * sizeof(float)), 0)
                                << "epoch " << epochs[e] << " row " << rows[r];
                        }
                    }
                }
            }
        }
    }
}

TEST(EngineEpochs, OfOneSensorAreManyInALaneGroup) {
    const RawSource source(SampleFormat::Int24, Stored(4e6), 64);
    EngineRequest request = RequestFor(kSensors, kSamples, 64, 50, 64.0, Hanning(64));
    request.store_bins = request.bins;
    EngineResult all;
    ASSERT_TRUE(Accumulate(source, request, all, nullptr));
    std::vector<std::uint64_t> epochs(all.epochs);
    std::iota(epochs.begin(), epochs.end(), 0);
    request.threads = 4;
    std::vector<float> out;
    EpochPower(source, request, epochs, std::vector<std::uint32_t>{11}, out);
    const float* stored = all.stored.data() + 11 * all.epochs * request.bins;
    EXPECT_EQ(std::memcmp(out.data(), stored, out.size() * sizeof(float)), 0);
    EXPECT_THROW(EpochPower(source, request, epochs, std::vector<std::uint32_t>{19}, out),
                 std::invalid_argument);
    epochs = {all.epochs};
    EXPECT_THROW(EpochPower(source, request, epochs, std::vector<std::uint32_t>{0}, out),
                 std::invalid_argument);
}

TEST(EngineEpochs, MeanIsTheMeanOfTheStoredPowers) {
    const RawSource source(SampleFormat::Int16, Stored(), 64);
    const EngineRequest request = EverythingAsked(Precision::Float);
    EngineResult all;
    ASSERT_TRUE(Accumulate(source, request, all, nullptr));
    for (std::size_t row = 0; row < all.rows; ++row) {
        for (std::size_t bin = 0; bin < request.store_bins; ++bin) {
            double sum = 0;
            for (std::size_t e = 0; e < all.epochs; ++e) {
                sum += all.stored[(row * all.epochs + e) * request.store_bins + bin];
            }
            const double mean = sum / static_cast<double>(all.epochs);
            EXPECT_NEAR(all.power.mean[row * all.bins + bin], mean, 1e-8 * mean) << row << " bin " << bin;
        }
        // The band of bins 1 … 4, 1 Hz each, of stored powers.
        double band = 0;
        for (std::size_t bin = 1; bin < 5; ++bin) {
            band += all.power.mean[row * all.bins + bin];
        }
        EXPECT_NEAR(all.band_power.mean[row * 3], band, 1e-6 * band) << row;
        EXPECT_EQ(all.band_power.mean[row * 3 + 2], 0) << row;
    }
}

/// Counts calls and cancels when it was asked often enough.
class ImpatientProgress final : public GenericProgress {
public:
    explicit ImpatientProgress(int patience) : patience_(patience) {}
    void SetText(const std::string&) override {}
    void SetPosition(double fraction) override {
        EXPECT_EQ(std::this_thread::get_id(), thread_);
        EXPECT_GE(fraction, last_);
        EXPECT_LE(fraction, 1);
        last_ = fraction;
    }
    bool IsCancelled() const override {
        EXPECT_EQ(std::this_thread::get_id(), thread_);
        return ++asked_ > patience_;
    }
    double Last() const { return last_; }

private:
    std::thread::id thread_ = std::this_thread::get_id();
    int patience_;
    mutable int asked_ = 0;
    double last_ = 0;
};

/// A recording whose reading takes its time, or fails behind a block.
class TroubledSource final : public RawSource {
public:
    TroubledSource(std::chrono::milliseconds delay, std::uint64_t failFrom)
        : RawSource(SampleFormat::Int16, Stored(), 64), delay_(delay), failFrom_(failFrom) {}
    void Read(std::uint64_t first, std::uint64_t count, std::byte* destination) const override {
        std::this_thread::sleep_for(delay_);
        if (first + count > failFrom_) {
            throw signal::RecordingError("slow.edf", "the file was cut at block 60", "open it again");
        }
        RawSource::Read(first, count, destination);
    }

private:
    std::chrono::milliseconds delay_;
    std::uint64_t failFrom_;
};

constexpr std::uint64_t kNever = 1'000'000;

TEST(EngineProgress, EndsAtOneOnTheCallersThread) {
    ImpatientProgress progress(kNever);
    EngineRequest request = RequestFor(kSensors, kSamples, 64, 50, 64.0, Hanning(64));
    request.threads = 4;
    EngineResult result;
    EXPECT_TRUE(Accumulate(TroubledSource(std::chrono::milliseconds(3), kNever), request, result, &progress));
    EXPECT_EQ(progress.Last(), 1);
}

TEST(EngineProgress, CancelsBeforeAndInTheMiddle) {
    EngineRequest request = RequestFor(kSensors, kSamples, 64, 50, 64.0, Hanning(64));
    for (const unsigned threads : {1U, 4U}) {
        request.threads = threads;
        for (const int patience : {0, 1, 2}) {
            ImpatientProgress progress(patience);
            EngineResult result;
            EXPECT_FALSE(Accumulate(TroubledSource(std::chrono::milliseconds(20), kNever), request, result,
                                    &progress));
            EXPECT_LT(progress.Last(), 1);
        }
    }
}

TEST(EngineReading, HandsAFailureToTheCaller) {
    EngineRequest request = RequestFor(kSensors, kSamples, 64, 50, 64.0, Hanning(64));
    for (const unsigned threads : {1U, 4U}) {
        request.threads = threads;
        EngineResult result;
        try {
            Accumulate(TroubledSource(std::chrono::milliseconds(0), 60), request, result, nullptr);
            FAIL() << "the failure was swallowed";
        } catch (const signal::RecordingError& error) {
            EXPECT_EQ(error.Reason(), "the file was cut at block 60");
        }
        std::vector<float> out;
        const std::vector<std::uint64_t> late{180};
        EXPECT_THROW(EpochPower(TroubledSource(std::chrono::milliseconds(0), 60), request, late,
                                std::vector<std::uint32_t>{0}, out),
                     signal::RecordingError);
    }
}

} // namespace
} // namespace orvanta::spectral

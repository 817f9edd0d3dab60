// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/recording/resampled_source.h"

#include "host/signal_base/recording/sample_values.h"
#include "host/signal_base/recording_error.h"

#include <soxr.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <stdexcept>

namespace orvanta::signal {

namespace {

constexpr std::size_t kLargestBlock = std::size_t{256} << 20;
/// A tile's samples of one signal, at least.
constexpr std::uint64_t kTileSamples = 8192;
/// Samples before and after a tile at the old rate; the filter reaches about 200 of them to either side.
constexpr std::uint64_t kMarginSamples = 512;
/// Bytes of tiles that are kept.
constexpr std::size_t kCacheBytes = std::size_t{64} << 20;
/// Raw bytes that are read at once while a tile is gathered.
constexpr std::size_t kReadBytes = std::size_t{4} << 20;

std::uint64_t DivideUp(std::uint64_t a, std::uint64_t b) {
    return (a + b - 1) / b;
}

/// Values around a stretch: index −margin … count + margin − 1, the outside reflected in the end points.
std::vector<double> Reflected(const std::vector<double>& values, std::size_t before, std::size_t after) {
    const auto count = static_cast<std::int64_t>(values.size());
    const auto at = [&](std::int64_t i) {
        // Folds beyond one reflection stop at the far end.
        if (i < 0) {
            return 2 * values.front() - values[static_cast<std::size_t>(std::min(-i, count - 1))];
        }
        if (i >= count) {
            return 2 * values.back() -
                   values[static_cast<std::size_t>(std::max<std::int64_t>(0, 2 * count - 2 - i))];
        }
        return values[static_cast<std::size_t>(i)];
    };
    std::vector<double> wide;
    wide.reserve(before + values.size() + after);
    for (auto i = -static_cast<std::int64_t>(before); i < count + static_cast<std::int64_t>(after); ++i) {
        wide.push_back(at(i));
    }
    return wide;
}

std::vector<double> Resample(const std::vector<double>& values, std::uint32_t from, std::uint32_t to) {
    const std::size_t count = values.size() / from * to;
    std::vector<double> out(count);
    const soxr_io_spec_t io = soxr_io_spec(SOXR_FLOAT64_I, SOXR_FLOAT64_I);
    const soxr_quality_spec_t quality = soxr_quality_spec(SOXR_VHQ, 0);
    const soxr_runtime_spec_t runtime = soxr_runtime_spec(1);
    std::size_t used = 0;
    std::size_t made = 0;
    const soxr_error_t error = soxr_oneshot(from, to, 1, values.data(), values.size(), &used, out.data(),
                                            out.size(), &made, &io, &quality, &runtime);
    if (error != nullptr) {
        throw std::runtime_error(std::string("resampling failed: ") + soxr_strerror(error));
    }
    out.resize(made);
    out.resize(count);
    return out;
}

} // namespace

/// Resampled signals of blocks [first, first + count): signal by signal, as the source's signals_ are.
struct ResampledSource::Tile {
    std::uint64_t first = 0;
    std::uint64_t count = 0;
    std::vector<std::vector<float>> signals;
};

ResampledSource::ResampledSource(std::shared_ptr<const BlockSource> inner, std::vector<BlockSegment> segments,
                                 std::vector<std::size_t> signals, std::uint32_t samples)
    : inner_(std::move(inner)), segments_(std::move(segments)), signals_(std::move(signals)),
      samples_(samples), blockBytes_(inner_->BlockBytes()) {
    const std::size_t added = std::size_t{samples} * sizeof(float);
    if (blockBytes_ > kLargestBlock || added * signals_.size() > kLargestBlock - blockBytes_) {
        throw std::length_error("a block of resampled signals exceeds 256 MiB");
    }
    std::uint32_t fewest = samples;
    for (std::size_t signal = 0; signal < inner_->SignalCount(); ++signal) {
        layouts_.push_back(inner_->Layout(signal));
    }
    for (const std::size_t signal : signals_) {
        fewest = std::min(fewest, layouts_.at(signal).samples);
        layouts_[signal] = {SampleFormat::Float32, samples, blockBytes_, sizeof(float)};
        blockBytes_ += added;
    }
    tileBlocks_ = DivideUp(kTileSamples, samples);
    marginBlocks_ = DivideUp(kMarginSamples, fewest);
}

ResampledSource::~ResampledSource() = default;

bool ResampledSource::IsResampled(std::size_t signal) const {
    return std::binary_search(signals_.begin(), signals_.end(), signal);
}

std::uint64_t ResampledSource::SampleCount(std::size_t signal) const {
    const std::uint64_t stored = inner_->SampleCount(signal);
    if (!IsResampled(signal)) {
        return stored;
    }
    const std::uint32_t perBlock = inner_->Layout(signal).samples;
    return stored / perBlock * samples_ + stored % perBlock * samples_ / perBlock;
}

void ResampledSource::Read(std::uint64_t first, std::uint64_t count, std::byte* destination) const {
    const std::size_t innerBytes = inner_->BlockBytes();
    const std::size_t added = std::size_t{samples_} * sizeof(float);
    // The inner blocks are read into the end of the destination and drawn apart from there: block i's new
    // place ends before block i + 1's old one.
    std::byte* narrow = destination + count * (blockBytes_ - innerBytes);
    inner_->Read(first, count, narrow);
    TilePtr tile;
    for (std::uint64_t i = 0; i < count; ++i) {
        std::byte* to = destination + i * blockBytes_;
        std::memmove(to, narrow + i * innerBytes, innerBytes);
        const std::uint64_t block = first + i;
        if (tile == nullptr || block - tile->first >= tile->count) {
            tile = FindTile(block);
        }
        for (std::size_t s = 0; s < signals_.size(); ++s) {
            std::memcpy(to + innerBytes + s * added,
                        tile->signals[s].data() + (block - tile->first) * samples_, added);
        }
    }
}

ResampledSource::TilePtr ResampledSource::FindTile(std::uint64_t block) const {
    const auto holds = [&](const TilePtr& tile) {
        return block >= tile->first && block - tile->first < tile->count;
    };
    {
        const std::lock_guard lock(mutex_);
        const auto found = std::find_if(recent_.begin(), recent_.end(), holds);
        if (found != recent_.end()) {
            recent_.splice(recent_.begin(), recent_, found);
            return recent_.front();
        }
    }
    // Blocks that no stretch of time claims are resampled by themselves.
    BlockSegment segment{block, 1, 0};
    for (const BlockSegment& candidate : segments_) {
        if (block >= candidate.first_block && block - candidate.first_block < candidate.count) {
            segment = candidate;
        }
    }
    const std::uint64_t inside = (block - segment.first_block) / tileBlocks_ * tileBlocks_;
    TilePtr tile =
        MakeTile(segment.first_block + inside, std::min(tileBlocks_, segment.count - inside), segment);

    const std::size_t bytes = tileBlocks_ * samples_ * sizeof(float) * signals_.size();
    const std::lock_guard lock(mutex_);
    recent_.push_front(tile);
    if (recent_.size() > std::max<std::size_t>(1, kCacheBytes / bytes)) {
        recent_.pop_back();
    }
    return tile;
}

ResampledSource::TilePtr ResampledSource::MakeTile(std::uint64_t first, std::uint64_t count,
                                                   const BlockSegment& segment) const {
    const std::uint64_t end = segment.first_block + segment.count;
    const std::uint64_t from = first - std::min(marginBlocks_, first - segment.first_block);
    const std::uint64_t to = first + count + std::min(marginBlocks_, end - (first + count));

    // Only what is stored: the last block may be filled in part.
    std::vector<std::vector<double>> values(signals_.size());
    const std::uint64_t step = std::max<std::uint64_t>(1, kReadBytes / inner_->BlockBytes());
    std::vector<std::byte> raw;
    for (std::uint64_t block = from; block < to; block += step) {
        const std::uint64_t blocks = std::min(step, to - block);
        raw.resize(blocks * inner_->BlockBytes());
        inner_->Read(block, blocks, raw.data());
        for (std::size_t i = 0; i < signals_.size(); ++i) {
            const SignalLayout& layout = inner_->Layout(signals_[i]);
            const std::uint64_t stored = inner_->SampleCount(signals_[i]);
            for (std::uint64_t b = 0; b < blocks; ++b) {
                const std::byte* at = raw.data() + b * inner_->BlockBytes() + layout.offset;
                const std::uint64_t before = (block + b) * layout.samples;
                const std::uint64_t here =
                    std::min<std::uint64_t>(layout.samples, stored > before ? stored - before : 0);
                for (std::uint64_t s = 0; s < here; ++s) {
                    values[i].push_back(StoredValue(layout.format, at + s * layout.stride));
                }
            }
        }
    }

    auto tile = std::make_shared<Tile>();
    tile->first = first;
    tile->count = count;
    for (std::size_t i = 0; i < signals_.size(); ++i) {
        const std::uint32_t perBlock = inner_->Layout(signals_[i]).samples;
        std::vector<float> out(count * samples_, 0.0F);
        if (!values[i].empty()) {
            const std::uint64_t missingBefore = marginBlocks_ - (first - from);
            const std::uint64_t whole = (count + 2 * marginBlocks_) * perBlock;
            const std::uint64_t before = missingBefore * perBlock;
            const std::vector<double> wide = Reflected(values[i], before, whole - before - values[i].size());
            const std::vector<double> resampled = Resample(wide, perBlock, samples_);
            std::transform(resampled.begin() + static_cast<std::ptrdiff_t>(marginBlocks_ * samples_),
                           resampled.begin() +
                               static_cast<std::ptrdiff_t>((marginBlocks_ + count) * samples_),
                           out.begin(), [](double value) { return static_cast<float>(value); });
        }
        tile->signals.push_back(std::move(out));
    }
    return tile;
}

} // namespace orvanta::signal

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/results/epoch_spectra.h"

#include <algorithm>
#include <numeric>
#include <stdexcept>
#include <utility>

namespace orvanta::spectral {

namespace {

/// Most that is computed ahead when the epochs are asked for one after the other.
constexpr std::uint64_t kRunBytes = std::uint64_t{4} << 20;

} // namespace

EpochSpectra::EpochSpectra(std::shared_ptr<const signal::Recording> recording, EngineRequest request,
                           std::uint32_t rows, std::vector<float> stored)
    : recording_(std::move(recording)), request_(std::move(request)), rows_(rows),
      stored_(std::move(stored)) {}

std::span<const float> EpochSpectra::Power(std::uint64_t epoch, std::uint32_t row) const {
    Check(epoch, row);
    if (IsStored()) {
        const std::size_t at = (row * request_.epochs.size() + epoch) * request_.bins;
        return std::span(stored_).subspan(at, request_.bins);
    }
    if (block_.Holds(epoch, row)) {
        return InBlock(epoch, row);
    }
    // A view walks along one trace (CSA) or across the traces of one epoch (maps, exports). Where it goes
    // shows with the second step; a first step fetches no more than it needs.
    const bool sameEpoch = epoch - block_.firstEpoch < block_.epochs;
    const bool sameRow = row - block_.firstRow < block_.rows;
    if (sameEpoch) {
        Fill(epoch, 1, 0, rows_);
    } else if (sameRow && block_.rows == 1) {
        Fill(epoch, EpochsPerRun(epoch, 1), row, 1);
    } else {
        Fill(epoch, 1, row, 1);
    }
    return InBlock(epoch, row);
}

void EpochSpectra::ForEach(std::uint32_t row,
                           const std::function<void(std::span<const float>)>& visit) const {
    for (std::uint64_t epoch = 0; epoch < request_.epochs.size(); ++epoch) {
        if (!IsStored() && !block_.Holds(epoch, row)) {
            Check(epoch, row);
            Fill(epoch, EpochsPerRun(epoch, 1), row, 1);
        }
        visit(Power(epoch, row));
    }
}

bool EpochSpectra::ForEachBlock(
    std::uint32_t rows, const std::function<bool(std::uint64_t first, std::uint64_t last)>& visit) const {
    for (std::uint64_t first = 0, last = 0; first < request_.epochs.size(); first = last) {
        last = first + EpochsPerRun(first, rows);
        if (!IsStored() && rows > 0) {
            Check(first, rows - 1);
            Fill(first, last - first, 0, rows);
        }
        if (!visit(first, last)) {
            return false;
        }
    }
    return true;
}

void EpochSpectra::Check(std::uint64_t epoch, std::uint32_t row) const {
    if (epoch >= request_.epochs.size() || row >= rows_) {
        throw std::out_of_range("epoch " + std::to_string(epoch) + " or row " + std::to_string(row) +
                                " does not exist");
    }
}

std::span<const float> EpochSpectra::InBlock(std::uint64_t epoch, std::uint32_t row) const {
    const std::size_t at =
        ((epoch - block_.firstEpoch) * block_.rows + (row - block_.firstRow)) * request_.bins;
    return std::span(block_.power).subspan(at, request_.bins);
}

void EpochSpectra::Fill(std::uint64_t epoch, std::uint64_t epochs, std::uint32_t row,
                        std::uint32_t rows) const {
    std::vector<std::uint64_t> wantedEpochs(epochs);
    std::iota(wantedEpochs.begin(), wantedEpochs.end(), epoch);
    std::vector<std::uint32_t> wantedRows(rows);
    std::iota(wantedRows.begin(), wantedRows.end(), row);
    Block block{epoch, epochs, row, rows, {}};
    EpochPower(recording_->Source(), request_, wantedEpochs, wantedRows, block.power);
    block_ = std::move(block);
}

std::uint64_t EpochSpectra::EpochsPerRun(std::uint64_t first, std::uint32_t rows) const {
    const std::uint64_t fit = kRunBytes / (std::uint64_t{request_.bins} * std::max(rows, 1U) * sizeof(float));
    return std::clamp<std::uint64_t>(fit, 1, request_.epochs.size() - first);
}

} // namespace orvanta::spectral

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/engine/setup.h"

#include <bit>
#include <cmath>
#include <new>
#include <stdexcept>
#include <string>

namespace orvanta::spectral {

namespace {

void Require(bool holds, const char* what) {
    if (!holds) {
        throw std::invalid_argument(std::string("spectral engine: ") + what);
    }
}

void CheckSensors(const signal::BlockSource& source, const EngineRequest& request) {
    Require(!request.sensors.empty(), "no sensor is asked for");
    Require(request.sensors.size() <= 0x7fffffff, "too many sensors");
    for (const EngineSensor& sensor : request.sensors) {
        Require(sensor.signal < source.SignalCount(), "a sensor names a signal that the recording lacks");
        Require(!std::isinf(sensor.gain) && std::isfinite(sensor.offset),
                "a sensor's gain is infinite or its offset no finite number");
        const signal::SignalLayout& layout = source.Layout(sensor.signal);
        Require(layout.samples > 0, "a signal has no samples in a block");
        Require(layout.samples == source.Layout(request.sensors[0].signal).samples,
                "the sensors have different sampling rates");
        const std::size_t last = CheckedProduct(layout.samples - 1, layout.stride);
        Require(layout.offset <= source.BlockBytes() && last <= source.BlockBytes() - layout.offset &&
                    BytesOf(layout.format) <= source.BlockBytes() - layout.offset - last,
                "a signal's samples reach beyond their block");
        Require((source.SampleCount(sensor.signal) + layout.samples - 1) / layout.samples <=
                    source.BlockCount(),
                "a signal has more samples than its blocks hold");
    }
}

void CheckNodes(const EngineRequest& request) {
    const std::size_t sensors = request.sensors.size();
    for (std::size_t i = 0; i < request.derived.size(); ++i) {
        for (const NodeTerm& term : request.derived[i].terms) {
            Require(term.node < sensors + i, "a derived node names a node that is not before it");
            Require(std::isfinite(term.weight), "a derived node's weight is no finite number");
        }
    }
    for (const NodePair& pair : request.pairs) {
        Require(pair.a < sensors + request.derived.size() && pair.b < sensors + request.derived.size(),
                "a pair names a node that does not exist");
    }
}

void CheckEpochs(const signal::BlockSource& source, const EngineRequest& request) {
    std::uint64_t samples = std::numeric_limits<std::int64_t>::max();
    for (const EngineSensor& sensor : request.sensors) {
        samples = std::min(samples, source.SampleCount(sensor.signal));
    }
    std::int64_t before = 0;
    for (const std::int64_t epoch : request.epochs) {
        Require(epoch >= before, "the epochs are not in ascending order from sample 0 on");
        Require(request.window <= samples && static_cast<std::uint64_t>(epoch) <= samples - request.window,
                "an epoch ends behind the last sample");
        before = epoch;
    }
}

} // namespace

std::size_t CheckedProduct(std::size_t a, std::size_t b) {
    if (b != 0 && a > std::numeric_limits<std::size_t>::max() / b) {
        throw std::bad_alloc();
    }
    return a * b;
}

void CheckRequest(const signal::BlockSource& source, const EngineRequest& request) {
    CheckSensors(source, request);
    CheckNodes(request);
    Require(request.window > 0, "the window has no samples");
    Require(request.window <= 0x40000000 && request.padded == std::bit_ceil(request.window),
            "the transform's length is not the smallest power of two that holds the window");
    Require(request.taper.size() == request.window, "the taper is not as long as the window");
    double energy = 0;
    for (const double weight : request.taper) {
        energy += weight * weight;
    }
    Require(std::isfinite(energy) && energy > 0, "the taper has no energy or is not finite");
    Require(std::isfinite(request.rate_hz) && request.rate_hz > 0, "the sampling rate is not above zero");
    Require(request.bins > 0 && request.bins <= request.padded / 2 + 1, "more bins than the transform gives");
    Require(request.store_bins <= request.bins, "more bins to store than are kept");
    for (const BinRange& band : request.bands) {
        Require(band.first <= band.last && band.last <= request.bins, "a band lies outside the kept bins");
    }
    CheckEpochs(source, request);
}

} // namespace orvanta::spectral

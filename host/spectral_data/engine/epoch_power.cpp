// SPDX-License-Identifier: GPL-3.0-or-later
// Single epochs on demand. Lanes are independent of each other, so here they hold several epochs of few
// sensors instead of one epoch of many, and every value still comes out with the bits it has in the whole
// computation.
#include "host/spectral_data/engine/kernel/combine.h"
#include "host/spectral_data/engine/kernel/interleave.h"
#include "host/spectral_data/engine/kernel/transform.h"
#include "host/spectral_data/engine/lane_reader.h"
#include "host/spectral_data/engine/ordered_work.h"
#include "host/spectral_data/engine/setup.h"

#include <algorithm>
#include <stdexcept>

namespace orvanta::spectral {

namespace {

/// What the rows asked for depend on.
struct Needs {
    std::vector<std::uint32_t> sensors;     ///< ascending
    std::vector<std::uint32_t> derived;     ///< ascending
    std::vector<std::uint32_t> nodeOfRow;   ///< per row asked for
    std::vector<std::uint32_t> placeOfNode; ///< per node, in sensors, or behind them in derived
};

template <class T>
Needs NeedsOf(const Setup<T>& setup, std::span<const std::uint32_t> rows) {
    const auto& derived = setup.request.derived;
    const auto sensors = static_cast<std::uint32_t>(setup.Sensors());
    std::vector<std::uint32_t> nodeOfRow(setup.Sensors());
    for (std::uint32_t s = 0; s < sensors; ++s) {
        nodeOfRow[s] = s;
    }
    for (std::uint32_t i = 0; i < derived.size(); ++i) {
        if (derived[i].accumulated) {
            nodeOfRow.push_back(sensors + i);
        }
    }
    Needs needs;
    std::vector<bool> needed(setup.Sensors() + derived.size());
    for (const std::uint32_t row : rows) {
        if (row >= nodeOfRow.size()) {
            throw std::invalid_argument("spectral engine: a row is asked for that the result lacks");
        }
        needs.nodeOfRow.push_back(nodeOfRow[row]);
        needed[nodeOfRow[row]] = true;
    }
    for (std::size_t i = derived.size(); i-- > 0;) {
        if (needed[sensors + i]) {
            for (const NodeTerm& term : derived[i].terms) {
                needed[term.node] = true;
            }
        }
    }
    std::uint32_t place = 0;
    for (std::uint32_t node = 0; node < needed.size(); ++node) {
        needs.placeOfNode.push_back(place);
        if (needed[node]) {
            (node < sensors ? needs.sensors : needs.derived)
                .push_back(node < sensors ? node : node - sensors);
            ++place;
        }
    }
    return needs;
}

/// Works on pieces of the epochs asked for, with buffers of its own.
template <class T>
class EpochWorker {
public:
    EpochWorker(const Setup<T>& setup, const Needs& needs, std::span<const std::uint64_t> epochs,
                std::span<float> out)
        : setup_(setup), needs_(needs), epochs_(epochs), out_(out), raw_(setup.source), reader_(setup),
          mean_(2 * setup.lanes), scale_(setup.lanes),
          work_(CheckedProduct(2 * std::size_t{setup.plan->length}, setup.lanes)),
          power_(setup.pitch * setup.lanes), spectrum_(2 * setup.pitch * setup.lanes),
          turned_(setup.pitch * setup.lanes) {}

    /// \param first,last positions in the list of epochs
    void Run(std::size_t first, std::size_t last) {
        const std::size_t places = needs_.sensors.size() + needs_.derived.size();
        const std::size_t count = last - first;
        if (powers_.size() < count * places * setup_.pitch) {
            powers_ = AlignedArray<T>(CheckedProduct(count * places, setup_.pitch));
            spectra_ = AlignedArray<T>(needs_.derived.empty() ? 0 : 2 * powers_.size());
        }
        std::vector<LaneStart> starts;
        std::vector<std::size_t> targets;
        for (std::size_t e = 0; e < count; ++e) {
            for (std::size_t s = 0; s < needs_.sensors.size(); ++s) {
                starts.push_back({needs_.sensors[s], Begin(first + e)});
                targets.push_back(e * places + s);
                if (starts.size() == setup_.lanes) {
                    Sensors(starts, targets);
                    starts.clear();
                    targets.clear();
                }
            }
        }
        if (!starts.empty()) {
            Sensors(starts, targets);
        }
        for (std::size_t e = 0; e < count; ++e) {
            for (std::size_t i = 0; i < needs_.derived.size(); ++i) {
                Derived(needs_.derived[i], e * places, e * places + needs_.sensors.size() + i);
            }
            for (std::size_t r = 0; r < needs_.nodeOfRow.size(); ++r) {
                const T* from = Power(e * places + needs_.placeOfNode[needs_.nodeOfRow[r]]);
                float* to = out_.data() + ((first + e) * needs_.nodeOfRow.size() + r) * setup_.bins;
                std::transform(from, from + setup_.bins, to,
                               [](T power) { return static_cast<float>(power); });
            }
        }
    }

private:
    std::uint64_t Begin(std::size_t at) const {
        return static_cast<std::uint64_t>(setup_.request.epochs[epochs_[at]]);
    }
    T* Power(std::size_t place) { return powers_.data() + place * setup_.pitch; }
    T* Spectrum(std::size_t place) { return spectra_.data() + place * 2 * setup_.pitch; }

    void Sensors(const std::vector<LaneStart>& starts, const std::vector<std::size_t>& targets) {
        const std::size_t lanes = setup_.lanes, pitch = setup_.pitch;
        const auto [low, high] = std::ranges::minmax(starts, {}, &LaneStart::sample);
        const std::uint64_t perBlock = setup_.source.Layout(setup_.request.sensors[0].signal).samples;
        raw_.Hold(low.sample / perBlock, (high.sample + setup_.request.window + perBlock - 1) / perBlock);
        reader_.Fill(raw_, starts, setup_.request.window);
        reader_.Mean(0, mean_.data());
        scale_.Clear();
        for (std::size_t lane = 0; lane < starts.size(); ++lane) {
            scale_[lane] = setup_.scale[starts[lane].sensor];
        }
        TransformJob<T> job;
        job.plan = setup_.plan.get();
        job.samples = reader_.Row(0);
        job.mean = mean_.data();
        job.taper = setup_.taper.data();
        job.window = setup_.request.window;
        job.bins = setup_.bins;
        job.scale = scale_.data();
        job.work = work_.data();
        job.power = power_.data();
        job.spectrum = needs_.derived.empty() ? nullptr : spectrum_.data();
        Transform(job);
        Turn(power_.data(), lanes, targets, [this](std::size_t place) { return Power(place); });
        if (!needs_.derived.empty()) {
            Turn(spectrum_.data(), 2 * lanes, targets, [this](std::size_t place) { return Spectrum(place); });
            Turn(spectrum_.data() + lanes, 2 * lanes, targets,
                 [this, pitch](std::size_t place) { return Spectrum(place) + pitch; });
        }
    }

    template <class Target>
    void Turn(const T* rows, std::size_t stride, const std::vector<std::size_t>& targets, Target target) {
        Deinterleave(rows, stride, setup_.pitch, turned_.data(), setup_.pitch);
        for (std::size_t lane = 0; lane < targets.size(); ++lane) {
            std::copy_n(turned_.data() + lane * setup_.pitch, setup_.pitch, target(targets[lane]));
        }
    }

    void Derived(std::uint32_t index, std::size_t base, std::size_t place) {
        std::vector<const T*> terms;
        std::vector<T> weights;
        for (const NodeTerm& term : setup_.request.derived[index].terms) {
            terms.push_back(Spectrum(base + needs_.placeOfNode[term.node]));
            weights.push_back(static_cast<T>(term.weight));
        }
        Combine(terms.data(), weights.data(), terms.size(), setup_.pitch, Spectrum(place), Power(place));
    }

    const Setup<T>& setup_;
    const Needs& needs_;
    std::span<const std::uint64_t> epochs_;
    std::span<float> out_;
    RawWindow raw_;
    LaneReader<T> reader_;
    AlignedArray<T> mean_, scale_, work_, power_, spectrum_, turned_;
    AlignedArray<T> powers_;  ///< of a piece: epochs × places × pitch
    AlignedArray<T> spectra_; ///< the same, twice the pitch
};

/// Cuts the list into pieces that fill the lanes and stay together in the recording.
template <class T>
std::vector<std::size_t> Pieces(const Setup<T>& setup, std::size_t sensors,
                                std::span<const std::uint64_t> epochs) {
    const std::size_t most = std::max<std::size_t>(1, setup.lanes / std::max<std::size_t>(1, sensors));
    const auto& begins = setup.request.epochs;
    std::vector<std::size_t> cuts{0};
    std::int64_t low = 0, high = 0;
    for (std::size_t i = 0; i < epochs.size(); ++i) {
        const std::int64_t begin = begins[epochs[i]];
        const bool fresh = i == cuts.back();
        low = fresh ? begin : std::min(low, begin);
        high = fresh ? begin : std::max(high, begin);
        if (!fresh && (i - cuts.back() == most ||
                       static_cast<std::uint64_t>(high - low) + setup.request.window > setup.batchSpan)) {
            cuts.push_back(i);
            low = high = begin;
        }
    }
    cuts.push_back(epochs.size());
    return cuts;
}

template <class T>
void EpochPowerAs(const signal::BlockSource& source, const EngineRequest& request,
                  std::span<const std::uint64_t> epochs, std::span<const std::uint32_t> rows,
                  std::vector<float>& out) {
    const Setup<T> setup(source, request);
    const Needs needs = NeedsOf(setup, rows);
    for (const std::uint64_t epoch : epochs) {
        if (epoch >= request.epochs.size()) {
            throw std::invalid_argument("spectral engine: an epoch is asked for that the request lacks");
        }
    }
    out.assign(CheckedProduct(CheckedProduct(epochs.size(), rows.size()), setup.bins), 0);
    if (out.empty()) {
        return;
    }
    const std::vector<std::size_t> cuts = Pieces(setup, needs.sensors.size(), epochs);
    const std::size_t pieces = cuts.size() - 1;
    // Neighbouring pieces share blocks of the recording: a thread takes a run of them.
    constexpr std::size_t kRun = 16;
    const std::size_t runs = (pieces + kRun - 1) / kRun;
    const unsigned workers = WorkerCount(request.threads, runs);
    std::vector<std::unique_ptr<EpochWorker<T>>> own(workers);
    WorkState state;
    const auto work = [&](unsigned worker, std::size_t run) {
        if (!own[worker]) {
            own[worker] = std::make_unique<EpochWorker<T>>(setup, needs, epochs, out);
        }
        for (std::size_t piece = run * kRun; piece < std::min(pieces, (run + 1) * kRun); ++piece) {
            own[worker]->Run(cuts[piece], cuts[piece + 1]);
        }
    };
    if (workers == 1) {
        for (std::size_t run = 0; run < runs; ++run) {
            work(0, run);
        }
        return;
    }
    RunOrdered(
        runs, workers, work, [](unsigned, std::size_t) {}, state, epochs.size(), nullptr);
}

} // namespace

void EpochPower(const signal::BlockSource& source, const EngineRequest& request,
                std::span<const std::uint64_t> epochs, std::span<const std::uint32_t> rows,
                std::vector<float>& out) {
    CheckRequest(source, request);
    if (request.precision == Precision::Float) {
        EpochPowerAs<float>(source, request, epochs, rows, out);
    } else {
        EpochPowerAs<double>(source, request, epochs, rows, out);
    }
}

} // namespace orvanta::spectral

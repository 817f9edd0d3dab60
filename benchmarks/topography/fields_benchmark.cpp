// SPDX-License-Identifier: GPL-3.0-or-later
// Sixteen maps of 200 × 200 pixels from the values of their electrodes, and a head of 400 × 400 pixels.
#include "benchmarks/topography/electrodes_for_maps.h"
#include "benchmarks/window_benchmarks.h"
#include "host/chart_view/topography/electrode_hull.h"
#include "host/chart_view/topography/head_picture.h"
#include "host/chart_view/topography/map_surface.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace {

using namespace orvanta::chart;

constexpr int kMaps = 16;
constexpr int kSide = 200;
constexpr int kHeadSide = 400;

/// Of the pixels of a map.
std::vector<HeadPosition> Points() {
    std::vector<HeadPosition> points;
    for (int pixel = 0; pixel < kSide * kSide; ++pixel) {
        const Place place{(pixel % kSide + 0.5) / kSide * 2 - 1, (pixel / kSide + 0.5) / kSide * 2 - 1};
        if (std::hypot(place.x, place.y) <= 1) {
            points.push_back(OnHead(place));
        }
    }
    return points;
}

/// Argument: electrodes.
void WeightsOfAMap(benchmark::State& state) {
    const std::vector<HeadPosition> electrodes = orvanta::SpreadElectrodes(state.range(0));
    const std::vector<HeadPosition> points = Points();
    orvanta::MeasureRounds(state,
                           [&] { benchmark::DoNotOptimize(SphericalSpline(electrodes).WeightsAt(points)); });
}
BENCHMARK(WeightsOfAMap)->Arg(32)->Arg(64)->Arg(128)->MeasureProcessCPUTime()->Unit(benchmark::kMillisecond);

/// Argument: electrodes.
void FieldsOfSixteenMaps(benchmark::State& state) {
    const std::vector<HeadPosition> points = Points();
    const SplineWeights weights =
        SphericalSpline(orvanta::SpreadElectrodes(state.range(0))).WeightsAt(points);
    std::mt19937 random(1);
    std::normal_distribution<float> normal;
    std::vector<float> values(static_cast<std::size_t>(kMaps * state.range(0)));
    std::generate(values.begin(), values.end(), [&] { return normal(random); });
    std::vector<float> fields(kMaps * points.size());
    orvanta::MeasureRounds(state, [&] {
        Interpolate(weights, values, fields);
        benchmark::DoNotOptimize(fields.data());
    });
}
BENCHMARK(FieldsOfSixteenMaps)
    ->Arg(32)
    ->Arg(64)
    ->Arg(128)
    ->MeasureProcessCPUTime()
    ->Unit(benchmark::kMillisecond);

/// Argument: samples along each side of a pixel.
void TurningHead(benchmark::State& state) {
    const HeadMesh& mesh = MapHead();
    std::vector<float> values;
    std::vector<float> covers;
    for (const HeadPosition& direction : mesh.directions) {
        values.push_back(static_cast<float>(direction.x));
        covers.push_back(static_cast<float>(direction.z + 0.3));
    }
    HeadView view = kFrontView;
    orvanta::MeasureRounds(state, [&] {
        view = Dragged(view, 7, 0, kHeadSide);
        benchmark::DoNotOptimize(PictureOf({mesh,
                                            values,
                                            covers,
                                            {},
                                            Palettes().front().colors,
                                            -1,
                                            1,
                                            view,
                                            1,
                                            kHeadSide,
                                            static_cast<int>(state.range(0)),
                                            6}));
    });
}
BENCHMARK(TurningHead)->Arg(1)->Arg(2)->MeasureProcessCPUTime()->Unit(benchmark::kMillisecond);

} // namespace

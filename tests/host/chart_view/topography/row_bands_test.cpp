// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/topography/row_bands.h"

#include "host/chart_view/topography/flat_map.h"
#include "host/chart_view/topography/head_picture.h"
#include "tests/host/chart_view/maps/map_case.h"

#include <QThreadPool>

#include <atomic>
#include <cmath>
#include <gtest/gtest.h>
#include <latch>
#include <stdexcept>

namespace {

using namespace orvanta::chart;

/// So many cores while it lives.
class Cores {
public:
    explicit Cores(int count) : before_(QThreadPool::globalInstance()->maxThreadCount()) {
        QThreadPool::globalInstance()->setMaxThreadCount(count);
    }
    ~Cores() { QThreadPool::globalInstance()->setMaxThreadCount(before_); }
    Cores(const Cores&) = delete;
    Cores& operator=(const Cores&) = delete;

private:
    int before_;
};

class BandsOfRows : public testing::TestWithParam<int> {};

TEST_P(BandsOfRows, AreEachRowOnce) {
    for (const int rows : {0, 1, 15, 16, 17, 100, 1000}) {
        std::vector<std::atomic<int>> worked(static_cast<std::size_t>(rows));
        const Cores cores(GetParam());
        ForRowBands(rows, 16, [&](int first, int last) {
            EXPECT_EQ(first % 16, 0);
            for (int row = first; row < last; ++row) {
                ++worked[static_cast<std::size_t>(row)];
            }
        });
        for (const std::atomic<int>& times : worked) {
            EXPECT_EQ(times, 1) << rows;
        }
    }
}

TEST_P(BandsOfRows, PassFailuresOn) {
    const Cores cores(GetParam());
    const auto fail = [](int first, int) {
        if (first == 0) {
            throw std::bad_alloc();
        }
    };
    EXPECT_THROW(ForRowBands(1000, 16, fail), std::bad_alloc);
}

INSTANTIATE_TEST_SUITE_P(Cores, BandsOfRows, testing::Values(1, 2, 4));

TEST(BandsOfRowsAlone, AreDoneWhileTheOtherThreadsAreBusy) {
    const Cores cores(2);
    std::latch release(1), ended(2);
    for (int thread = 0; thread < 2; ++thread) {
        QThreadPool::globalInstance()->start([&] {
            release.wait();
            ended.count_down();
        });
    }
    int rows = 0;
    ForRowBands(1000, 16, [&](int first, int last) { rows += last - first; });
    EXPECT_EQ(rows, 1000);
    release.count_down();
    ended.wait();
    QThreadPool::globalInstance()->waitForDone();
}

TEST(BandsOfRowsAlone, MayBeMadeOfBands) {
    const Cores cores(4);
    std::atomic<int> rows = 0;
    ForRowBands(64, 1, [&](int first, int last) {
        ForRowBands(last - first, 1, [&](int from, int to) { rows += to - from; });
    });
    EXPECT_EQ(rows, 64);
}

/// 1.5 to 34 over the head.
std::vector<float> Values(const std::vector<HeadPosition>& places) {
    std::vector<float> values;
    for (const HeadPosition& place : places) {
        values.push_back(
            static_cast<float>(1.5 + 32.5 * std::exp(-3 * std::hypot(place.x - 0.4, place.y + 0.7))));
    }
    return values;
}

std::vector<HeadPosition> Places() {
    std::vector<HeadPosition> places;
    for (const ElectInfo& electrode : orvanta::test::TwentyOneElectrodes()) {
        places.push_back(electrode.Position);
    }
    return places;
}

owl::TImage FlatOn(int count) {
    const Cores cores(count);
    const std::vector<HeadPosition> places = Places();
    const auto surface = SharedFlatSurface(places);
    const std::vector<float> field = surface->FieldOf(Values(places));
    return DiscOf({{},
                   "",
                   surface->reach,
                   field,
                   surface->covers,
                   surface->beyond,
                   FindPalette("viridis")->colors,
                   {1.5, 34},
                   {}},
                  301);
}

owl::TImage HeadOn(int count, double opacity) {
    const Cores cores(count);
    const std::vector<HeadPosition> places = Places();
    const auto surface = SharedHeadSurface(places);
    const std::vector<float> field = surface->FieldOf(Values(places));
    return PictureOf({surface->mesh,
                      field,
                      surface->covers,
                      surface->beyond,
                      FindPalette("viridis")->colors,
                      1.5,
                      34,
                      {200, 40},
                      opacity,
                      203,
                      2,
                      6});
}

TEST(PicturesOfMaps, AreTheSameOnAnyNumberOfCores) {
    EXPECT_EQ(FlatOn(4), FlatOn(1));
    EXPECT_EQ(FlatOn(7), FlatOn(1));
    EXPECT_EQ(HeadOn(4, 1), HeadOn(1, 1));
    EXPECT_EQ(HeadOn(7, 0.5), HeadOn(1, 0.5));
}

} // namespace

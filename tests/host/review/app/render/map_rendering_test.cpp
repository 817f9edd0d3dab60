// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/render/map_rendering.h"

#include "host/review/app/module_library.h"
#include "host/review/app/render/picture_file.h"
#include "host/review/cli/exit_status.h"
#include "host/spectral_data/results/errors.h"
#include "tests/support/edf_file.h"
#include "tests/support/qt/recording_dc.h"
#include "tests/support/refusal.h"
#include "tests/support/temp_folder.h"

#include <QColor>
#include <QImage>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <set>

namespace {

using namespace orvanta::review;
using orvanta::cli::UsageError;
using orvanta::spectral::NothingComputable;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

constexpr int kRate = 128;
constexpr int kSeconds = 16;
constexpr SPECT::PlotSet kAlpha{0, 2, 0, 50, true, false};
constexpr SPECT::PlotSet kDelta{0, 0, 0, 50, true, false};

/// 10 Hz, in µV \p amplitude, on a little noise without a pattern.
orvanta::test::EdfFileSignal Rhythm(const std::string& label, double amplitude) {
    orvanta::test::EdfFileSignal signal;
    signal.label = label;
    signal.samples = kRate;
    for (int i = 0; i < kRate * kSeconds; ++i) {
        const double noise = (i * i * 7 + i * 3) % 23 - 11;
        const double value = amplitude * std::sin(2 * std::numbers::pi * 10 * i / kRate) + noise * 0.2;
        signal.values.push_back(static_cast<std::int32_t>(std::lround(value * 10)));
    }
    return signal;
}

/// Nineteen electrodes whose rhythm is strong at the back of the left side, and a request for its map.
class MapRenderingTest : public testing::Test {
protected:
    MapRenderingTest() {
        request.analysis.file = folder.Path("left.edf");
        WriteRecording({"Fp1", "Fp2", "F7", "F3", "Fz", "F4", "F8", "T7", "C3", "Cz", "C4", "T8", "P7", "P3",
                        "Pz", "P4", "P8", "O1", "O2"});
        request.analysis.quiet = true;
        request.out = folder.Path("out.png");
        request.width = 400;
        request.height = 300;
        page.maps = {kAlpha};
    }

    void WriteRecording(const std::vector<std::string>& labels) {
        orvanta::test::EdfFile file;
        file.record_count = kSeconds;
        for (const std::string& label : labels) {
            file.signals.push_back(Rhythm(label, label == "P3"                    ? 60
                                                 : label == "P7" || label == "O1" ? 40
                                                                                  : 2));
        }
        folder.Write("left.edf", file.Bytes());
    }
    std::vector<DrawnMap> Draw() { return MapRendering(request, page, false).Draw(module.Bridge(), dc); }
    /// How bright the map is on average inside an ellipse of fractions of the picture: the more, the higher
    /// the values.
    double Brightness(double left, double top, double right, double bottom) {
        if (picture.isNull()) {
            MapRendering rendering(request, page, false);
            picture = PixelsOf({{request.width, request.height}, 1, "", [&](owl::TDC& surface) {
                                    drawn = rendering.Draw(module.Bridge(), surface);
                                }});
        }
        double sum = 0;
        int count = 0;
        for (int y = static_cast<int>(top * picture.height()); y < bottom * picture.height(); ++y) {
            for (int x = static_cast<int>(left * picture.width()); x < right * picture.width(); ++x) {
                sum += qGray(picture.pixel(x, y));
                ++count;
            }
        }
        return sum / count;
    }
    template <typename Failure>
    std::string Refusal() {
        return orvanta::test::RefusalOf<Failure>([this] { MapRendering(request, page, false); });
    }

    orvanta::test::TempFolder folder;
    ModuleLibrary module{LibraryFolder()};
    orvanta::test::RecordingDC dc;
    PictureRequest request;
    MapsPage page;
    QImage picture;
    std::vector<DrawnMap> drawn;
};

TEST_F(MapRenderingTest, ShowsWhatIsLeftAndBehindAtTheLeftAndBelow) {
    // The nose is up; the disc lies left of its scale.
    const double leftBack = Brightness(0.25, 0.62, 0.33, 0.75);
    EXPECT_GT(leftBack, 2 * Brightness(0.5, 0.62, 0.58, 0.75));
    EXPECT_GT(leftBack, 2 * Brightness(0.25, 0.3, 0.33, 0.43));
    EXPECT_GT(leftBack, 2 * Brightness(0.5, 0.3, 0.58, 0.43));
}

TEST_F(MapRenderingTest, ShowsItOnTheLeftSideOfAHead) {
    page.threeD = true;
    page.from = HeadSide::Left;
    const double left = Brightness(0.2, 0.2, 0.6, 0.5);
    picture = {};
    page.from = HeadSide::Right;
    EXPECT_GT(left, 1.2 * Brightness(0.2, 0.2, 0.6, 0.5));
}

TEST_F(MapRenderingTest, ShowsItAtTheLeftOfAHeadSeenFromBehind) {
    page.threeD = true;
    page.from = HeadSide::Back;
    EXPECT_GT(Brightness(0.2, 0.25, 0.35, 0.5), 1.5 * Brightness(0.5, 0.25, 0.65, 0.5));
}

TEST_F(MapRenderingTest, WritesTitleUnitAndNumbersOfTheScale) {
    request.analysis.entity = "power";
    Draw();
    EXPECT_THAT(dc.Texts(), Contains("Band: Alpha - Measure: Abs"));
    EXPECT_THAT(dc.Texts(), Contains("µV²"));
}

TEST_F(MapRenderingTest, WritesTheEndsOfTheScaleAskedFor) {
    page.maps.front().bAutoScale = false;
    page.maps.front().LoScale = 250;
    page.maps.front().HiScale = 750;
    Draw();
    EXPECT_THAT(dc.Texts(), testing::IsSupersetOf({"250", "500", "750"}));
}

TEST_F(MapRenderingTest, GivesEveryMapOfThePageAPlaceOfItsOwn) {
    page.maps = {kAlpha, kDelta, kAlpha};
    const std::vector<DrawnMap> maps = Draw();
    ASSERT_THAT(maps, SizeIs(3)); // in 2 × 2 places
    EXPECT_EQ(maps[0].title, "Band: Alpha - Measure: Abs");
    EXPECT_EQ(maps[1].title, "Band: Delta - Measure: Abs");
    EXPECT_EQ(maps[0].area, (owl::TRect{0, 0, 200, 150}));
    EXPECT_EQ(maps[1].area, (owl::TRect{200, 0, 400, 150}));
    EXPECT_EQ(maps[2].area, (owl::TRect{0, 150, 200, 300}));
}

TEST_F(MapRenderingTest, DrawsEveryMapInsideItsPlace) {
    page.maps = {kAlpha, kDelta};
    page.rows = 1;
    page.columns = 2;
    Draw();
    EXPECT_THAT(dc.CallsOf("clip"), ElementsAre("clip 0,0,200,300", "clip 200,0,400,300"));
    EXPECT_EQ(dc.CallsOf("noclip").size(), 2U);
    // The second map's title stands in the middle of its half.
    EXPECT_THAT(dc.CallsOf("text"), Contains(testing::AllOf(HasSubstr("\"Band: Delta - Measure: Abs\""),
                                                            HasSubstr("text 300,"))));
}

TEST_F(MapRenderingTest, DrawsOneScaleForAllMapsWhenAsked) {
    page.maps = {kAlpha, kDelta};
    Draw();
    EXPECT_EQ(std::ranges::count(dc.Texts(), "µV²"), 2);
    dc.Clear();
    page.commonScale = true;
    Draw();
    EXPECT_EQ(std::ranges::count(dc.Texts(), "µV²"), 1);
}

TEST_F(MapRenderingTest, ShowsNamesAndValuesWhenAsked) {
    Draw();
    EXPECT_THAT(dc.Texts(), testing::Not(Contains("P3")));
    dc.Clear();
    page.names = true;
    Draw();
    EXPECT_THAT(dc.Texts(), testing::IsSupersetOf({"Fp1", "P3", "O2"}));
}

TEST_F(MapRenderingTest, DrawsContoursUnlessThereShallBeNone) {
    const auto colors = [&](int contours) {
        page.contours = contours;
        dc.Clear();
        Draw();
        std::set<std::uint32_t> all;
        for (const owl::TImage& image : dc.Images()) {
            all.insert(image.pixels.begin(), image.pixels.end());
        }
        return all.size();
    };
    // A contour blends with what lies under it, in many shades.
    EXPECT_GT(colors(6), colors(0) + 200);
}

TEST_F(MapRenderingTest, LeavesOutAnElectrodeWithoutAPlace) {
    WriteRecording({"P3", "Pz", "P4", "C3", "C4", "EEG X99"});
    page.names = true;
    Draw();
    EXPECT_THAT(dc.Texts(), Contains("P4"));
    EXPECT_THAT(dc.Texts(), testing::Not(Contains("X99")));
}

TEST_F(MapRenderingTest, RefusesARecordingWithoutKnownPlaces) {
    WriteRecording({"EEG X1", "EEG X2", "EEG X3"});
    EXPECT_EQ(Refusal<NothingComputable>(),
              request.analysis.file + ": no electrode has a name with a known place on the head (name the "
                                      "channels as in the 10-05 system, such as Fp1 or POz)");
}

TEST_F(MapRenderingTest, RefusesWhatBelongsToPairsOfElectrodes) {
    request.analysis.entity = "coherence";
    EXPECT_THAT(Refusal<UsageError>(), HasSubstr("--entity coherence: belongs to pairs"));
}

TEST_F(MapRenderingTest, RefusesAMontage) {
    request.analysis.montage = "Average reference";
    EXPECT_EQ(Refusal<UsageError>(), "--montage: maps show the electrodes as recorded (leave it out)");
}

TEST_F(MapRenderingTest, RefusesAFileThatCannotBeWrittenBeforeItComputes) {
    request.out = folder.Path("none/out.png");
    request.analysis.file = folder.Path("left.edf");
    request.assignments = {"fft_seconds=60", "mode=spots"}; // would be refused by the computation
    EXPECT_THAT(Refusal<std::runtime_error>(), HasSubstr("none/out.png: cannot be written"));
}

struct Grid {
    std::size_t maps;
    int rows, columns; ///< asked for, 0 for open
    int hasRows, hasColumns;
};

TEST(MapsPageFor, FillsInRowsAndColumns) {
    for (const Grid& grid :
         {Grid{1, 0, 0, 1, 1}, Grid{2, 0, 0, 1, 2}, Grid{3, 0, 0, 2, 2}, Grid{5, 0, 0, 2, 3},
          Grid{5, 1, 0, 1, 5}, Grid{5, 0, 2, 3, 2}, Grid{2, 3, 3, 3, 3}}) {
        MapsPage page;
        page.maps.resize(grid.maps);
        page.rows = grid.rows;
        page.columns = grid.columns;
        const MapsPage filled = MapsPageFor(page, SPECT::Entity::Type::Power, false);
        EXPECT_EQ(filled.rows, grid.hasRows) << grid.maps;
        EXPECT_EQ(filled.columns, grid.hasColumns) << grid.maps;
    }
}

std::string RefusalOf(const MapsPage& page) {
    try {
        MapsPageFor(page, SPECT::Entity::Type::Power, false);
        return "not refused";
    } catch (const UsageError& failure) {
        return failure.what();
    }
}

TEST(MapsPageFor, RefusesAGridWithoutRoom) {
    MapsPage page;
    page.maps = {kAlpha, kDelta, kAlpha};
    page.rows = 1;
    page.columns = 2;
    EXPECT_EQ(RefusalOf(page), "--rows 1 and --cols 2: no room for 3 maps (there are at most 8 of each)");
    page.columns = 9;
    EXPECT_EQ(RefusalOf(page), "--rows 1 and --cols 9: no room for 3 maps (there are at most 8 of each)");
}

TEST(MapsPageFor, RefusesAnUnknownPaletteAndTellsThoseThereAre) {
    MapsPage page;
    page.maps = {kAlpha};
    page.palette = "rainbow";
    EXPECT_EQ(RefusalOf(page), "--palette rainbow: no such palette (there are viridis, cividis, inferno, "
                               "difference, turbo, grey)");
}

TEST(MapsPageFor, RefusesOneScaleForSeveralUnits) {
    MapsPage page;
    page.maps = {kAlpha, {3, 2}};
    page.commonScale = true;
    EXPECT_EQ(RefusalOf(page),
              "--common-scale: the maps are in µV² and in Hz (choose measures of one unit, or "
              "leave it out)");
}

TEST_F(MapRenderingTest, DrawsAFrameForEveryEpoch) {
    MapRendering rendering(request, MapsPage(page), true);
    std::vector<std::uint64_t> frames;
    std::vector<std::string> titles;
    rendering.DrawCartoon(module.Bridge(), [&](std::uint64_t frame, std::uint64_t count, const auto& draw) {
        EXPECT_EQ(count, 15U); // of 2 s, each a second after the last
        frames.push_back(frame);
        dc.Clear();
        draw(dc);
        titles.push_back(dc.Texts().back());
    });
    EXPECT_THAT(frames, ElementsAre(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14));
    EXPECT_EQ(titles.front(), "Time: 00:00:00.000");
    EXPECT_EQ(titles.back(), "Time: 00:00:14.000");
}

TEST_F(MapRenderingTest, DrawsTheCartoonsBandAndMeasureWithOneScale) {
    MapRendering rendering(request, page, true);
    std::vector<std::vector<std::string>> texts;
    rendering.DrawCartoon(module.Bridge(), [&](std::uint64_t, std::uint64_t, const auto& draw) {
        dc.Clear();
        draw(dc);
        texts.push_back(dc.Texts());
        texts.back().pop_back(); // the time
    });
    EXPECT_EQ(texts.front().front(), "Band: Alpha   Measure: Abs");
    for (const auto& frame : texts) {
        EXPECT_EQ(frame, texts.front());
    }
}

TEST_F(MapRenderingTest, DrawsAStretchOfEpochsInEveryFrameOfAWiderPage) {
    page.rows = 2;
    page.columns = 3;
    request.width = 1200; // room for the times
    MapRendering rendering(request, page, true);
    std::uint64_t count = 0;
    std::vector<std::string> last;
    rendering.DrawCartoon(module.Bridge(), [&](std::uint64_t, std::uint64_t all, const auto& draw) {
        count = all;
        dc.Clear();
        draw(dc);
        last = dc.Texts();
    });
    EXPECT_EQ(count, 10U);
    EXPECT_THAT(last, testing::IsSupersetOf({"Time: 00:00:09.000", "00:00:05.000 - 00:00:07.000 sec."}));
}

TEST_F(MapRenderingTest, EndsACartoonWithWhatGoesWrong) {
    MapRendering rendering(request, page, true);
    int frames = 0;
    EXPECT_THROW(rendering.DrawCartoon(module.Bridge(),
                                       [&](std::uint64_t, std::uint64_t, const auto&) {
                                           if (++frames == 3) {
                                               throw std::runtime_error("disk full");
                                           }
                                       }),
                 std::runtime_error);
    EXPECT_EQ(frames, 3);
}

} // namespace

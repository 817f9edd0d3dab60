// SPDX-License-Identifier: GPL-3.0-or-later
// What a map window's own picture shows.
#include "host/chart_view/topography/palettes.h"
#include "tests/host/chart_view/electrode_sets.h"
#include "tests/host/chart_view/maps/map_case.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <limits>

namespace {

using namespace orvanta::chart;
using namespace orvanta::test;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// Bare: nothing but colours.
void ShowColorsOnly(MapCase& map, const char* palette) {
    map.ChangeDisplay([&](MapDisplay& display) {
        display.palette = palette;
        display.contours = 0;
        display.ownScale = false;
    });
    map.Map().SetRange(0, 10, false, false);
}

/// From about 2 at the front to 10 at the back on the right: a rhythm as it is found.
double Rhythm(const HeadPosition& at) {
    const double away = std::hypot(at.x - 0.4, at.y + 0.7, at.z - 0.6);
    return 2 + 8 * std::exp(-1.2 * away * away);
}

class MapPicture : public testing::TestWithParam<bool> {};

/// The picture without dots, so that the colour under each is seen.
QImage Bare(MapCase& map) {
    map.ChangeDisplay([](MapDisplay& display) { display.electrodes = false; });
    QImage picture = map.Picture();
    map.ChangeDisplay([](MapDisplay& display) { display.electrodes = true; });
    return picture;
}

QColor ColorAt(const QImage& picture, const owl::TPoint& at) {
    return picture.pixelColor(at.x, at.y);
}

double Hue(const QColor& color) {
    return color.hsvHueF() * 360;
}

TEST(FlatMapPicture, HasEachElectrodesValueAtItsPlace) {
    const std::vector<ElectInfo> electrodes = TwentyOneElectrodes();
    MapCase map(electrodes, false, 420, 420);
    ShowColorsOnly(map, "grey");
    map.SetField(Rhythm);
    const QImage picture = Bare(map);
    int compared = 0;
    for (std::size_t i = 0; i < electrodes.size(); ++i) {
        const HeadPosition& place = electrodes[i].Position;
        if (place.z > 0.1) { // the line of the head covers those on the edge
            const int grey = ColorAt(picture, map.PlaceOf(electrodes[i].Name)).red();
            EXPECT_NEAR(grey, 25.5 * Rhythm(place), 4) << electrodes[i].Name;
            ++compared;
        }
    }
    EXPECT_EQ(compared, 9); // F3 Fz F4 C3 Cz C4 P3 Pz P4
}

TEST(HeadMapPicture, HasEachElectrodesValueAtItsPlace) {
    const std::vector<ElectInfo> electrodes = TwentyOneElectrodes();
    MapCase map(electrodes, true, 300, 300);
    ShowColorsOnly(map, "turbo");
    map.SetField(Rhythm);
    const Colors& colors = FindPalette("turbo")->colors;
    int compared = 0;
    for (const HeadView& view : {kTopView, HeadView{180, 30}, HeadView{0, 30}}) {
        map.Map().SetView(view);
        const QImage picture = Bare(map);
        for (std::size_t i = 0; i < electrodes.size(); ++i) {
            const double share = Rhythm(electrodes[i].Position) / 10;
            if (!map.Shows(electrodes[i].Name) || electrodes[i].Position.z < 0.1) {
                continue;
            }
            // Light and shade change the brightness, not the hue.
            const owl::TColor expected = colors[static_cast<std::size_t>(share * 255)];
            const QColor plain(owl::Red(expected), owl::Green(expected), owl::Blue(expected));
            EXPECT_NEAR(Hue(ColorAt(picture, map.PlaceOf(electrodes[i].Name))), Hue(plain), 8)
                << electrodes[i].Name;
            ++compared;
        }
    }
    EXPECT_GE(compared, 12);
}

TEST_P(MapPicture, HasTheRightSideToTheRight) {
    MapCase map(TwentyOneElectrodes(), GetParam());
    ShowColorsOnly(map, "difference");
    map.SetField([](const HeadPosition& p) { return 5 + 5 * p.x; });
    const QImage picture = Bare(map);
    const QColor right = ColorAt(picture, map.PlaceOf("C4"));
    const QColor left = ColorAt(picture, map.PlaceOf("C3"));
    EXPECT_GT(right.red(), right.blue());
    EXPECT_LT(left.red(), left.blue());
    EXPECT_GT(map.PlaceOf("C4").x, map.PlaceOf("C3").x);
}

TEST_P(MapPicture, HasTheNoseAtTheTop) {
    MapCase map(TwentyOneElectrodes(), GetParam());
    ShowColorsOnly(map, "difference");
    map.SetField([](const HeadPosition& p) { return 5 + 5 * p.y; });
    const QImage picture = Bare(map);
    const QColor front = ColorAt(picture, map.PlaceOf("Fz"));
    EXPECT_GT(front.red(), front.blue());
    EXPECT_LT(map.PlaceOf("Fz").y, map.PlaceOf("Pz").y);
}

TEST(FlatMapPicture, IsMirroredWithItsValues) {
    // An even width: the head's middle lies between two pixels.
    MapCase map(TwentyOneElectrodes(), false, 300, 260);
    ShowColorsOnly(map, "grey");
    const auto pictureOf = [&map](double side) {
        map.SetField(
            [side](const HeadPosition& p) { return 5 + 4 * side * p.x + 2 * p.x * p.y * side + p.y; });
        return Bare(map);
    };
    const QImage plain = pictureOf(1);
    const QImage mirrored = pictureOf(-1).mirrored(true, false);
    const owl::TPoint cz = map.PlaceOf("Cz");
    int compared = 0;
    for (int y = cz.y - 50; y < cz.y + 50; ++y) {
        for (int x = cz.x - 50; x < cz.x + 50; ++x) {
            EXPECT_NEAR(plain.pixelColor(x, y).red(), mirrored.pixelColor(x, y).red(), 1);
            ++compared;
        }
    }
    EXPECT_EQ(compared, 10000);
}

TEST(FlatMapPicture, TurnsWithItsElectrodes) {
    // Rings of electrodes that a quarter turn about the vertex maps onto themselves.
    std::vector<ElectInfo> electrodes;
    for (int i = 0; i < 16; ++i) {
        const double angle = i * 3.14159265358979 / 8;
        const double z = i % 2 == 0 ? 0.2 : 0.7;
        const double across = std::sqrt(1 - z * z);
        electrodes.push_back(
            {"E" + std::to_string(i), {across * std::sin(angle), across * std::cos(angle), z}, true});
    }
    MapCase map(electrodes, false, 300, 300);
    ShowColorsOnly(map, "grey");
    map.SetField([](const HeadPosition& p) { return 5 + 3 * p.x + 2 * p.y * p.y; });
    const QImage plain = Bare(map);
    map.SetField([](const HeadPosition& p) { return 5 + 3 * p.y + 2 * p.x * p.x; }); // turned to the left
    const QImage turned = Bare(map);
    const owl::TPoint right = map.PlaceOf("E4");
    const owl::TPoint left = map.PlaceOf("E12");
    const owl::TPoint middle{(right.x + left.x) / 2, right.y};
    for (int dy = -40; dy <= 40; ++dy) {
        for (int dx = -40; dx <= 40; ++dx) {
            EXPECT_NEAR(turned.pixelColor(middle.x + dy, middle.y - dx - 1).red(),
                        plain.pixelColor(middle.x + dx, middle.y + dy).red(), 3);
        }
    }
}

TEST_P(MapPicture, ShowsEqualValuesInOneColor) {
    MapCase map(TwentyOneElectrodes(), GetParam());
    ShowColorsOnly(map, "difference");
    map.Map().SetRange(1, 9, true, false);
    map.SetValues(std::vector<double>(21, 5));
    const QImage picture = Bare(map);
    for (const char* electrode : {"Cz", "Pz", "F3", "C4"}) {
        const QColor color = ColorAt(picture, map.PlaceOf(electrode)); // the middle of the palette
        EXPECT_LT(color.saturation(), 10) << electrode;
        EXPECT_GT(color.lightness(), 180) << electrode;
    }
}

TEST_P(MapPicture, LeavesOutAnElectrodeWithoutAValue) {
    std::vector<double> values(21, 2);
    MapCase map(TwentyOneElectrodes(), GetParam());
    ShowColorsOnly(map, "grey");
    values[9] = kNaN; // Cz
    map.SetValues(values);
    EXPECT_TRUE(map.Shows("Cz"));
    // It has its neighbours' value.
    const QImage picture = Bare(map);
    EXPECT_NEAR(ColorAt(picture, map.PlaceOf("Cz")).red(), ColorAt(picture, map.PlaceOf("Fz")).red(), 60);
}

TEST_P(MapPicture, CountsElectrodesAtOnePlaceAsTheirMean) {
    std::vector<ElectInfo> electrodes = ElectrodesNamed({"F3", "F4", "P3", "P4", "Cz"});
    electrodes.push_back(electrodes.back());
    electrodes.back().Name = "Cz again";
    MapCase map(electrodes, GetParam());
    ShowColorsOnly(map, "grey");
    map.SetValues({5, 5, 5, 5, 2, 8});
    const QImage picture = Bare(map);
    EXPECT_NEAR(ColorAt(picture, map.PlaceOf("Cz again")).red(), 128, 12);
}

struct NothingCase {
    const char* name;
    std::vector<std::string> electrodes;
    std::vector<double> values;
    const char* description;
};

class NothingToDraw : public testing::TestWithParam<std::tuple<bool, NothingCase>> {};

TEST_P(NothingToDraw, IsSaidOnAnEmptyHead) {
    const auto& [threeD, what] = GetParam();
    MapCase map(ElectrodesNamed(what.electrodes), threeD);
    map.SetValues(what.values);
    EXPECT_EQ(map.Map().accessibleDescription().toStdString(), what.description);
    const QImage said = map.Picture();
    // The head and the text, and no colour of a palette.
    for (const char* electrode : {"Cz", "C3"}) {
        EXPECT_FALSE(map.Shows(electrode));
    }
    map.Map().SetRange(0, 1, false, false);
    EXPECT_EQ(map.Picture(), said); // there is no bar either
    const QRgb ground = map.Map().palette().color(QPalette::Window).rgb();
    int drawn = 0;
    for (int y = 0; y < said.height(); ++y) {
        for (int x = 0; x < said.width(); ++x) {
            drawn += said.pixel(x, y) != ground ? 1 : 0;
        }
    }
    EXPECT_GT(drawn, 500);
}

INSTANTIATE_TEST_SUITE_P(
    Reasons, NothingToDraw,
    testing::Combine(testing::Bool(),
                     testing::Values(NothingCase{"NoElectrodes", {}, {1, 2}, "No electrodes"},
                                     NothingCase{"UnknownNames",
                                                 {"xyz", "uvw"},
                                                 {1, 2},
                                                 "No electrode has a known place on the head"},
                                     NothingCase{"NoValues", {"Cz", "C3"}, {kNaN, kNaN}, "No values"},
                                     NothingCase{"MissingValues", {"Cz", "C3"}, {}, "No values"})),
    [](const auto& kind) {
        return std::string(std::get<0>(kind.param) ? "Head" : "Flat") + std::get<1>(kind.param).name;
    });

class FewElectrodes : public testing::TestWithParam<std::tuple<bool, int>> {};

TEST_P(FewElectrodes, AreDrawnWithTheirValues) {
    const auto [threeD, count] = GetParam();
    std::vector<std::string> names = {"Cz", "Fz", "C4", "Pz"};
    names.resize(static_cast<std::size_t>(count));
    MapCase map(ElectrodesNamed(names), threeD);
    ShowColorsOnly(map, "grey");
    map.SetValues(std::vector<double>(names.size(), 5));
    for (const std::string& name : names) {
        EXPECT_TRUE(map.Shows(name)) << name;
    }
    // A field of one value, maybe between stripes.
    const QImage picture = Bare(map);
    const owl::TPoint cz = map.PlaceOf("Cz");
    bool middleGrey = false;
    for (int dx = -6; dx <= 6; ++dx) {
        middleGrey = middleGrey || std::abs(picture.pixelColor(cz.x + dx, cz.y).red() - 128) < 16;
    }
    EXPECT_TRUE(middleGrey);
}

INSTANTIATE_TEST_SUITE_P(Counts, FewElectrodes,
                         testing::Combine(testing::Bool(), testing::Values(1, 2, 3, 4)));

// Values of any size: a field is the same in every unit.
TEST_P(MapPicture, DoesNotDependOnTheUnitOfItsValues) {
    MapCase map(TwentyOneElectrodes(), GetParam());
    ShowColorsOnly(map, "grey");
    map.ChangeDisplay([](MapDisplay& display) { display.contours = 6; });
    const auto pictureIn = [&map](double unit, double zero) {
        map.SetField([=](const HeadPosition& p) { return zero + unit * (p.x + 2 * p.y); });
        map.Map().SetRange(1, 1, true, false); // that of the values
        return Bare(map);
    };
    const QImage plain = pictureIn(1, 0);
    EXPECT_EQ(pictureIn(1e-300, 0), plain);
    EXPECT_EQ(pictureIn(1e-42, 0), plain);
    EXPECT_EQ(pictureIn(1e60, 0), plain);
    EXPECT_EQ(pictureIn(7e307, 0), plain); // the range is wider than a double holds
    const QImage onTop = pictureIn(1, 1e9);
    const owl::TPoint c3 = map.PlaceOf("C3");
    EXPECT_NEAR(ColorAt(onTop, c3).red(), ColorAt(plain, c3).red(), 1);
}

TEST_P(MapPicture, IsOfTheEndsOfTheScaleFarBeyondIt) {
    MapCase map(TwentyOneElectrodes(), GetParam());
    ShowColorsOnly(map, "grey");
    const auto lightness = [&map](double value) {
        map.SetValues(std::vector<double>(21, value));
        return ColorAt(Bare(map), map.PlaceOf("Cz")).lightness();
    };
    EXPECT_LT(lightness(-1e300), 10);
    EXPECT_GT(lightness(1e300), 220);
}

TEST_P(MapPicture, IsDrawnInAnySize) {
    for (const auto& [width, height] :
         {std::pair(1, 1), {5, 5}, {20, 20}, {60, 60}, {200, 10}, {10, 200}, {600, 600}}) {
        MapCase map(TwentyOneElectrodes(), GetParam(), width, height);
        map.SetField([](const HeadPosition& p) { return p.x; });
        EXPECT_FALSE(map.Picture().isNull()) << width << " x " << height;
    }
}

TEST_P(MapPicture, HasTheColorsOfItsPalette) {
    MapCase map(TwentyOneElectrodes(), GetParam());
    map.SetField([](const HeadPosition& p) { return p.x; });
    QImage earlier;
    for (const Palette& palette : Palettes()) {
        map.ChangeDisplay([&palette](MapDisplay& display) { display.palette = palette.name; });
        const QImage picture = map.Picture();
        EXPECT_NE(picture, earlier) << palette.name;
        earlier = picture;
    }
}

TEST_P(MapPicture, ShowsNewValuesOfTheSameElectrodes) {
    MapCase map(TwentyOneElectrodes(), GetParam());
    ShowColorsOnly(map, "grey");
    const auto lightness = [&map](double value) {
        map.SetValues(std::vector<double>(21, value));
        return ColorAt(Bare(map), map.PlaceOf("Cz")).lightness();
    };
    EXPECT_LT(lightness(2), 80);
    EXPECT_GT(lightness(8), 170);
}

INSTANTIATE_TEST_SUITE_P(Kinds, MapPicture, testing::Bool(),
                         [](const auto& kind) { return kind.param ? "Head" : "Flat"; });

} // namespace

// SPDX-License-Identifier: GPL-3.0-or-later
// Maps of smooth fields against SciPy: tools/reference/map_reference.py.
#include "host/chart_view/topography/spherical_spline.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace orvanta::chart;
using Points = std::vector<HeadPosition>;

std::vector<float> Numbers(const QJsonValue& array) {
    std::vector<float> numbers;
    for (const QJsonValue& value : array.toArray()) {
        numbers.push_back(static_cast<float>(value.toDouble()));
    }
    return numbers;
}

Points PointsOf(const QJsonValue& array) {
    Points points;
    for (const QJsonValue& value : array.toArray()) {
        const QJsonArray point = value.toArray();
        points.push_back({point[0].toDouble(), point[1].toDouble(), point[2].toDouble()});
    }
    return points;
}

/// A field of 1.5 to 34 µV² over 19, 64 or 128 electrodes.
class MapReference : public testing::TestWithParam<int> {
protected:
    MapReference() {
        QFile file(ORVANTA_TEST_DATA "/reference/maps.json");
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        const QJsonArray cases = QJsonDocument::fromJson(file.readAll())["cases"].toArray();
        reference = cases[GetParam()].toObject();
        electrodes = PointsOf(reference["electrodes"]);
        values = Numbers(reference["values"]);
    }

    static std::vector<float> Field(const Points& electrodes, const std::vector<float>& values,
                                    const Points& points) {
        std::vector<float> field(points.size());
        Interpolate(SphericalSpline(electrodes).WeightsAt(points), values, field);
        return field;
    }
    static void ExpectNear(const std::vector<float>& found, const std::vector<float>& expected) {
        EXPECT_THAT(found, testing::Pointwise(testing::FloatNear(1e-3F), expected));
    }

    QJsonObject reference;
    Points electrodes;
    std::vector<float> values;
};

TEST_P(MapReference, AgreesBetweenElectrodes) {
    ExpectNear(Field(electrodes, values, PointsOf(reference["points"])), Numbers(reference["at_points"]));
}

TEST_P(MapReference, AgreesAtTheElectrodes) {
    ExpectNear(Field(electrodes, values, electrodes), Numbers(reference["at_electrodes"]));
}

TEST_P(MapReference, AgreesWhereAnElectrodeIsLeftOut) {
    std::vector<float> leftOut;
    for (std::size_t i = 0; i < electrodes.size(); ++i) {
        Points others = electrodes;
        std::vector<float> theirs = values;
        others.erase(others.begin() + static_cast<std::ptrdiff_t>(i));
        theirs.erase(theirs.begin() + static_cast<std::ptrdiff_t>(i));
        leftOut.push_back(Field(others, theirs, {electrodes[i]})[0]);
    }
    ExpectNear(leftOut, Numbers(reference["left_out"]));
    double squares = 0;
    for (std::size_t i = 0; i < values.size(); ++i) {
        squares += std::pow(leftOut[i] - values[i], 2);
    }
    EXPECT_NEAR(std::sqrt(squares / static_cast<double>(values.size())), reference["left_out_rms"].toDouble(),
                1e-4);
}

INSTANTIATE_TEST_SUITE_P(Sets, MapReference, testing::Values(0, 1, 2));

} // namespace

// SPDX-License-Identifier: GPL-3.0-or-later
#include "side_bar/regression_rows.h"

#include "host/signal_base/sensors/sensor_impl.h"
#include "tests/side_bar/settings_case.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using namespace orvanta::side_bar;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

SensorType SensorNamed(const std::string& name) {
    auto impl = std::make_unique<SensorType::Impl>();
    impl->elect.Name = name;
    return SensorType(std::move(impl));
}

class RegressionRows : public testing::Test {
protected:
    QStringList Texts(const BCIReg& row) const {
        QStringList texts;
        for (int column = 0; column < kRegressionColumns; ++column) {
            texts << RegressionText(row, column);
        }
        return texts;
    }
    SensorType cz = SensorNamed("Cz");
};

TEST_F(RegressionRows, ShowNumbersInTheUsersNumerals) {
    const BCIReg row{&cz, 9.765625, -0.12345, 12345.678, 0.000012344, 1180};
    {
        const orvanta::test::NumeralsOf english(QLocale::English);
        EXPECT_EQ(Texts(row), (QStringList{"Cz", "9.77", "-0.123", "1.235E+04", "1.234E-05", "1180"}));
    }
    const orvanta::test::NumeralsOf german(QLocale::German);
    EXPECT_EQ(Texts(row), (QStringList{"Cz", "9,77", "-0,123", "1,235E+04", "1,234E-05", "1180"}));
}

TEST_F(RegressionRows, SayNotAvailableForWhatIsNotComputable) {
    EXPECT_EQ(Texts({&cz, 1, kNaN, kNaN, kNaN, 0}), (QStringList{"Cz", "1.00", "n/a", "n/a", "n/a", "0"}));
}

TEST_F(RegressionRows, StandOutFromTheLimitOn) {
    for (const auto& [r, expected] : {std::pair(0.3, true),
                                      {-0.3, true},
                                      {1.0, true},
                                      {0.2999, false},
                                      {-0.2999, false},
                                      {0.0, false},
                                      {kNaN, false}}) {
        EXPECT_EQ(StandsOut({&cz, 1, r, 0, 0, 9}), expected) << r;
    }
}

TEST_F(RegressionRows, StandByValueInEveryColumnOfNumbers) {
    const BCIReg small{&cz, 9, -0.9, 9, 9, 9};
    const BCIReg large{&cz, 10, 0.1, 10, 10, 10};
    for (const int column : {kFrequency, kR, kK, kM, kCount}) {
        EXPECT_TRUE(StandsAbove(small, large, column, Qt::AscendingOrder)) << column;
        EXPECT_FALSE(StandsAbove(large, small, column, Qt::AscendingOrder)) << column;
        EXPECT_TRUE(StandsAbove(large, small, column, Qt::DescendingOrder)) << column;
        EXPECT_FALSE(StandsAbove(small, small, column, Qt::AscendingOrder)) << column;
    }
}

TEST_F(RegressionRows, StandByNameWhateverTheCase) {
    const SensorType lower = SensorNamed("fp1");
    const BCIReg first{&cz, 9, 0, 0, 0, 0};
    const BCIReg second{&lower, 1, 0, 0, 0, 0};
    EXPECT_TRUE(StandsAbove(first, second, kSensor, Qt::AscendingOrder));
    EXPECT_TRUE(StandsAbove(second, first, kSensor, Qt::DescendingOrder));
}

TEST_F(RegressionRows, StandBelowAllOthersWhenNotComputable) {
    const BCIReg none{&cz, 1, kNaN, kNaN, kNaN, 0};
    const BCIReg some{&cz, 1, -1, -1, -1, 2};
    for (const auto order : {Qt::AscendingOrder, Qt::DescendingOrder}) {
        EXPECT_TRUE(StandsAbove(some, none, kR, order));
        EXPECT_FALSE(StandsAbove(none, some, kR, order));
        EXPECT_FALSE(StandsAbove(none, none, kR, order));
    }
}

} // namespace

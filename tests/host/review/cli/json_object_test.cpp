// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/cli/json_object.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <limits>

namespace orvanta::cli {
namespace {

TEST(JsonObject, WithoutMembersIsEmpty) {
    EXPECT_EQ(JsonObject().Text(), "{}");
}

TEST(JsonObject, MembersStandInTheirOrder) {
    JsonObject object;
    object.Add("b", 1);
    object.Add("a", "text");
    EXPECT_EQ(object.Text(), R"({"b":1,"a":"text"})");
}

TEST(JsonObject, NumbersAreShortestAndNullWhereTheyAreNone) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    const std::vector<double> values = {0.1, 2, 1e-7, std::numeric_limits<double>::quiet_NaN(), -kInfinity};
    JsonObject object;
    object.AddNumbers("v", values);
    EXPECT_EQ(object.Text(), R"({"v":[0.1,2,1e-07,null,null]})");
}

TEST(JsonObject, NoNumbersAreAnEmptyArray) {
    JsonObject object;
    object.AddNumbers("v", {});
    EXPECT_EQ(object.Text(), R"({"v":[]})");
}

TEST(JsonObject, ObjectsAreNested) {
    JsonObject one;
    one.Add("x", 1);
    JsonObject object;
    object.AddObjects("all", {one, JsonObject()});
    object.AddObjects("none", {});
    EXPECT_EQ(object.Text(), R"({"all":[{"x":1},{}],"none":[]})");
}

TEST(JsonObject, MembersOfAnotherFollow) {
    JsonObject other;
    other.Add("b", 2);
    JsonObject object;
    object.AddMembers(JsonObject());
    object.AddMembers(other);
    object.Add("c", 3);
    object.AddMembers(other);
    EXPECT_EQ(object.Text(), R"({"b":2,"c":3,"b":2})");
}

TEST(JsonObject, QuotesInNamesAreEscaped) {
    JsonObject object;
    object.Add("a\"b", "c\"d");
    EXPECT_EQ(object.Text(), R"({"a\"b":"c\"d"})");
}

} // namespace
} // namespace orvanta::cli

// SPDX-License-Identifier: GPL-3.0-or-later
// Cases that end in every way a case can, for the test of the runner.
#include <cstdlib>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {

int casesSoFar = 0;

TEST(Well, One) {}

TEST(Well, Two) {}

class Numbers : public testing::TestWithParam<int> {};

TEST_P(Numbers, AreBelowThree) {
    EXPECT_LT(GetParam(), 3);
}

INSTANTIATE_TEST_SUITE_P(Small, Numbers, testing::Values(1, 2));

TEST(Crash, Before) {}

TEST(Crash, Aborts) {
    std::abort();
}

TEST(Crash, After) {}

TEST(Silence, Before) {}

TEST(Silence, EndsTheProcess) {
    std::exit(0);
}

TEST(Silence, After) {}

TEST(Hang, Before) {}

TEST(Hang, NeverEnds) {
    pause();
}

TEST(Skipping, IsNotPassing) {
    GTEST_SKIP();
}

TEST(Together, OnlyOneGoesWell) {
    EXPECT_EQ(++casesSoFar, 1);
}

TEST(Together, TheOtherDoesNot) {
    EXPECT_EQ(++casesSoFar, 1);
}

} // namespace

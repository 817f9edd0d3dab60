// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/saving/batch_plan.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace orvanta::spectrum_view;
using testing::ElementsAre;
using testing::IsEmpty;

const EventsCountMap kEyes = {{XEventType("Open", EventClass::State), 3},
                              {XEventType("Closed", EventClass::State), 2}};

BatchStep Seconds(double seconds) {
    return {seconds, {}, {}, false};
}
BatchStep Window(const char* name) {
    return {{}, name, {}, false};
}
BatchStep Save(const char* label) {
    return {{}, {}, label, true};
}
BatchStep SaveWindow(const char* name) {
    return {{}, name, {}, true};
}

TEST(BatchPlan, OfALengthSavesEveryEventUnderEveryWindow) {
    for (const auto& [key, seconds] : {std::pair(0x31U, 1.0), {0x32U, 2.0}, {0x34U, 4.0}}) {
        EXPECT_THAT(BatchSteps(key, kEyes, {}),
                    ElementsAre(Seconds(seconds), Window("Rectangular"), Save("Closed"), Save("Open"),
                                Window("Hamming"), Save("Closed"), Save("Open"), Window("Hanning"),
                                Save("Closed"), Save("Open"), Window("Triangular"), Save("Closed"),
                                Save("Open")));
        EXPECT_EQ(CountBatchFiles(key, kEyes, {}), 8u);
    }
}

TEST(BatchPlan, OfALengthSetsLengthAndWindowsWithoutEvents) {
    EXPECT_THAT(BatchSteps('2', {}, {}), ElementsAre(Seconds(2), Window("Rectangular"), Window("Hamming"),
                                                     Window("Hanning"), Window("Triangular")));
    EXPECT_EQ(CountBatchFiles('2', {}, {}), 0u);
}

TEST(BatchPlan, OfEventsSavesEachAsItIs) {
    EXPECT_THAT(BatchSteps('E', kEyes, {}), ElementsAre(Save("Closed"), Save("Open")));
    EXPECT_EQ(CountBatchFiles('E', kEyes, {}), 2u);
}

TEST(BatchPlan, OfWindowsSavesEachWhateverTheEvents) {
    for (const EventsCountMap& types : {kEyes, EventsCountMap()}) {
        EXPECT_THAT(BatchSteps('W', types, {}), ElementsAre(SaveWindow("Rectangular"), SaveWindow("Hamming"),
                                                            SaveWindow("Hanning"), SaveWindow("Triangular")));
        EXPECT_EQ(CountBatchFiles('W', types, {}), 4u);
    }
}

TEST(BatchPlan, LeavesOutRejectedLabelsThatAreExactlyTheSame) {
    EXPECT_THAT(BatchSteps('E', kEyes, {"Closed", "open", "Ope", "Other"}), ElementsAre(Save("Open")));
    EXPECT_EQ(CountBatchFiles('1', kEyes, {"Closed"}), 4u);
}

TEST(BatchPlan, OfAllIsThatOfThreeKeys) {
    EXPECT_THAT(BatchKeys('A'), ElementsAre('1', '2', '4'));
    EXPECT_THAT(BatchSteps('A', kEyes, {}), IsEmpty());
    EXPECT_EQ(CountBatchFiles('A', kEyes, {}), 24u);
}

TEST(BatchPlan, OfOtherKeysIsEmpty) {
    for (const unsigned key : {0x33U, 0x30U, 0x38U, 0x10U, 0x11U, 0x26U, unsigned{'a'}, unsigned{'e'},
                               unsigned{'w'}, unsigned{'B'}}) {
        EXPECT_THAT(BatchSteps(key, kEyes, {}), IsEmpty()) << key;
        EXPECT_THAT(BatchKeys(key), IsEmpty()) << key;
        EXPECT_EQ(CountBatchFiles(key, kEyes, {}), 0u) << key;
    }
}

} // namespace

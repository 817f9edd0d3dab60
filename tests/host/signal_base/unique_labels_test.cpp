// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/unique_labels.h"

#include "host/signal_base/limited_list.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace orvanta::signal {
namespace {

using Labels = std::vector<std::string>;

Labels Unique(const Labels& labels) {
    std::vector<SignalHeader> signals(labels.size());
    for (std::size_t i = 0; i < labels.size(); ++i) {
        signals[i].label = labels[i];
    }
    MakeLabelsUnique(signals);
    Labels result;
    for (const SignalHeader& signal : signals) {
        result.push_back(signal.label);
    }
    return result;
}

TEST(MakeLabelsUnique, KeepsLabelsThatDiffer) {
    EXPECT_EQ(Unique({"Fp1", "Fp2"}), (Labels{"Fp1", "Fp2"}));
}

TEST(MakeLabelsUnique, NumbersTheLaterOnes) {
    EXPECT_EQ(Unique({"EEG", "EEG", "Cz", "EEG"}), (Labels{"EEG", "EEG-2", "Cz", "EEG-3"}));
}

TEST(MakeLabelsUnique, LeavesOutNumbersThatAreTaken) {
    EXPECT_EQ(Unique({"A", "A", "A-2", "A"}), (Labels{"A", "A-3", "A-2", "A-4"}));
    EXPECT_EQ(Unique({"A", "A", "A-2", "A-2"}), (Labels{"A", "A-3", "A-2", "A-2-2"}));
}

TEST(MakeLabelsUnique, SaysWhichWereRenamed) {
    std::vector<SignalHeader> signals(3);
    EXPECT_EQ(MakeLabelsUnique(signals), (std::vector<std::size_t>{1, 2}));
}

Labels Listed(int count) {
    Labels lines;
    {
        LimitedList list(lines, "row: ");
        for (int i = 1; i <= count; ++i) {
            list.Add(std::to_string(i));
        }
    }
    return lines;
}

TEST(LimitedList, KeepsTwentyLines) {
    EXPECT_EQ(Listed(20).size(), 20u);
    EXPECT_EQ(Listed(20).back(), "row: 20");
}

TEST(LimitedList, CountsTheRest) {
    EXPECT_EQ(Listed(25).size(), 21u);
    EXPECT_EQ(Listed(25).back(), "row: and 5 more");
}

} // namespace
} // namespace orvanta::signal

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/results/montage_nodes.h"

#include "host/signal_base/montage/montage_impl.h"
#include "tests/support/small_recording.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace orvanta::spectral {
namespace {

/// Nodes of Fp1 (0), F3 (1) and Cz (2) under a montage given by its lines.
class LayingOut : public testing::Test {
protected:
    MontageNodes Nodes(const std::string& lines, bool cross = true) {
        return Nodes(test::MontageOf(*recording, lines), cross);
    }
    MontageNodes Nodes(const MontageType& montage, bool cross = true) {
        return LayOut({test::SensorOf(*recording, "Fp1"), test::SensorOf(*recording, "F3"),
                       test::SensorOf(*recording, "Cz")},
                      montage, cross);
    }
    /// A montage of one channel that may name a sensor twice.
    MontageType OneChannel(const std::vector<std::pair<const char*, double>>& terms) {
        auto channel = std::make_unique<ChnType::Impl>();
        channel->name = "made";
        for (const auto& [sensor, weight] : terms) {
            channel->terms.push_back({test::SensorOf(*recording, sensor), weight});
        }
        auto montage = std::make_unique<MontageType::Impl>();
        montage->channels.push_back(std::make_shared<ChnType>(std::move(channel)));
        return MontageType(std::move(montage));
    }
    MontageType Standard(MontageType::Kind kind) {
        for (const auto& montage : *recording->GetMontageList()) {
            if (montage->GetKind() == kind) {
                return *montage;
            }
        }
        throw std::invalid_argument("no such montage");
    }

    std::unique_ptr<EEGFileInfoType> recording = test::SmallRecording();
};

std::string Text(const DerivedNode& node) {
    std::string text = node.accumulated ? "" : "(only for others) ";
    for (const NodeTerm& term : node.terms) {
        text += std::to_string(term.weight).substr(0, 6) + "*" + std::to_string(term.node) + " ";
    }
    return text;
}

TEST_F(LayingOut, AChannelThatIsOneSensorSharesItsRow) {
    const MontageNodes nodes = Nodes("Cz = +Cz\nFp1 = +Fp1");
    EXPECT_TRUE(nodes.derived.empty());
    EXPECT_EQ(nodes.rows, 3u);
    EXPECT_EQ(nodes.channels[0].trace->row, 2u);
    EXPECT_EQ(nodes.channels[1].trace->row, 0u);
}

TEST_F(LayingOut, AsRecordedNothingIsDerived) {
    const MontageNodes nodes = Nodes(*recording->GetMontageList()->GetUniMtg());
    EXPECT_TRUE(nodes.derived.empty());
    EXPECT_EQ(nodes.channels.size(), 3u);
}

TEST_F(LayingOut, ADifferenceIsANodeOfItsOwn) {
    const MontageNodes nodes = Nodes("Fp1-F3 = +Fp1 -F3");
    ASSERT_EQ(nodes.derived.size(), 1u);
    EXPECT_EQ(Text(nodes.derived[0]), "1.0000*0 -1.000*1 ");
    EXPECT_EQ(nodes.rows, 4u);
    EXPECT_EQ(nodes.channels[0].trace->row, 3u);
}

TEST_F(LayingOut, ASensorWithAnotherWeightIsDerived) {
    const MontageNodes nodes = Nodes("half = 0.5*Fp1");
    ASSERT_EQ(nodes.derived.size(), 1u);
    EXPECT_EQ(Text(nodes.derived[0]), "0.5000*0 ");
}

TEST_F(LayingOut, EqualCombinationsShareANode) {
    const MontageNodes nodes = Nodes("a = +Fp1 -F3\nb = -F3 +Fp1");
    EXPECT_EQ(nodes.derived.size(), 1u);
    EXPECT_EQ(nodes.channels[0].trace->row, nodes.channels[1].trace->row);
}

TEST_F(LayingOut, SharesOfOneSensorAddUp) {
    const MontageNodes nodes = Nodes(OneChannel({{"Fp1", 1}, {"Fp1", 1}, {"F3", -1}}));
    ASSERT_EQ(nodes.derived.size(), 1u);
    EXPECT_EQ(Text(nodes.derived[0]), "2.0000*0 -1.000*1 ");
}

TEST_F(LayingOut, ASensorAgainstItselfIsTheSilentSignal) {
    const MontageNodes nodes = Nodes(OneChannel({{"F3", 1}, {"F3", -1}}));
    ASSERT_EQ(nodes.derived.size(), 1u);
    EXPECT_EQ(Text(nodes.derived[0]), "0.0000*0 ");
    EXPECT_FALSE(nodes.channels[0].trace->pair);
}

TEST_F(LayingOut, APairRunsFromTheSecondElectrodeToTheFirst) {
    const MontageNodes nodes = Nodes("Fp1-F3 = +Fp1 -F3");
    ASSERT_EQ(nodes.pairs.size(), 1u);
    EXPECT_EQ(nodes.pairs[0].a, 1u);
    EXPECT_EQ(nodes.pairs[0].b, 0u);
    EXPECT_EQ(nodes.channels[0].trace->pair, 0u);
}

TEST_F(LayingOut, EqualPairsAreComputedOnceReversedOnesApart) {
    const MontageNodes nodes = Nodes("a = +Fp1 -F3\nb = +Fp1 -F3\nc = +F3 -Fp1");
    EXPECT_EQ(nodes.pairs.size(), 2u);
    EXPECT_EQ(nodes.channels[1].trace->pair, 0u);
    EXPECT_EQ(nodes.channels[2].trace->pair, 1u);
}

TEST_F(LayingOut, WithoutCrossSpectraThereAreNoPairs) {
    const MontageNodes nodes = Nodes("Fp1-F3 = +Fp1 -F3", false);
    EXPECT_TRUE(nodes.pairs.empty());
    EXPECT_FALSE(nodes.channels[0].trace->pair);
}

TEST_F(LayingOut, AnAverageReferenceUsesOneMeanThatIsNotAccumulated) {
    const MontageNodes nodes = Nodes(Standard(MontageType::Kind::AverageReference));
    ASSERT_EQ(nodes.derived.size(), 4u);
    EXPECT_EQ(Text(nodes.derived[0]), "(only for others) 0.3333*0 0.3333*1 0.3333*2 ");
    EXPECT_EQ(Text(nodes.derived[1]), "1.0000*0 -1.000*3 ");
    EXPECT_EQ(Text(nodes.derived[2]), "1.0000*1 -1.000*3 ");
    EXPECT_EQ(nodes.rows, 6u);
    EXPECT_EQ(nodes.channels[0].trace->row, 3u);
    EXPECT_EQ(nodes.channels[2].trace->row, 5u);
    EXPECT_TRUE(nodes.pairs.empty());
}

TEST_F(LayingOut, AChannelOfASensorThatIsNotAnalysedHasNoRow) {
    const MontageType montage = test::MontageOf(*recording, "Cz = +Cz\nFp1-F3 = +Fp1 -F3");
    const MontageNodes nodes = LayOut({test::SensorOf(*recording, "Fp1")}, montage, true);
    ASSERT_EQ(nodes.channels.size(), 2u);
    EXPECT_FALSE(nodes.channels[0].trace);
    EXPECT_FALSE(nodes.channels[1].trace);
    EXPECT_EQ(nodes.rows, 1u);
}

TEST_F(LayingOut, AnEmptyMontageLeavesTheSensors) {
    const MontageNodes nodes = Nodes(MontageType());
    EXPECT_EQ(nodes.rows, 3u);
    EXPECT_TRUE(nodes.channels.empty());
}

} // namespace
} // namespace orvanta::spectral

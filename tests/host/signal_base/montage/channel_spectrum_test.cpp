// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/recording.h"
#include "spectra_contract/spectrum.h"
#include "tests/support/memory_source.h"

#include <gtest/gtest.h>

namespace orvanta::signal {
namespace {

class NamedSpectrum : public SpectrumSingle {
public:
    explicit NamedSpectrum(std::string name) : SpectrumSingle(nullptr), name_(std::move(name)) {}
    const std::string& GetName() const override { return name_; }

private:
    std::string name_;
};

TEST(Channel, AcceptsItsOwnSpectrumAndThatOfItsFirstElectrode) {
    const std::vector<double> samples(10);
    const auto file = MakeRecording(test::MakeData({{"C3", 10, samples}, {"Cz", 10, samples}}));
    const ChnType& channel = *file->GetMontageList()->GetRefMtg()->GetChn(0);
    const NamedSpectrum own("C3-Cz");
    const NamedSpectrum electrode("C3");
    const NamedSpectrum other("Cz");
    EXPECT_TRUE(channel.AcceptsSpectrum(&own));
    EXPECT_TRUE(channel.AcceptsSpectrum(&electrode));
    EXPECT_FALSE(channel.AcceptsSpectrum(&other));
    EXPECT_FALSE(channel.AcceptsSpectrum(nullptr));
}

} // namespace
} // namespace orvanta::signal

// SPDX-License-Identifier: GPL-3.0-or-later
// The shipped window functions against SciPy: tools/reference/spectra.py.
#include "host/spectral_data/settings/tapers.h"
#include "tests/host/spectral_data/reference/reference_data.h"

#include <gtest/gtest.h>

namespace orvanta::spectral {
namespace {

TEST(TaperReference, PeriodicFormsAreSciPys) {
    const nlohmann::json reference = test::ReadReference("tapers.json");
    ASSERT_EQ(reference.size(), 35u);
    for (const auto& taper : reference) {
        const auto expected = taper["values"].get<std::vector<double>>();
        const auto actual = FindTaper(taper["taper"]).Values(static_cast<std::uint32_t>(expected.size()));
        ASSERT_EQ(actual.size(), expected.size());
        for (std::size_t i = 0; i < expected.size(); ++i) {
            EXPECT_NEAR(actual[i], expected[i], 1e-14)
                << taper["taper"] << " " << expected.size() << ": " << i;
        }
    }
}

} // namespace
} // namespace orvanta::spectral

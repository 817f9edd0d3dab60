// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/results/comparison_of.h"

#include "host/spectral_data/not_computable.h"
#include "host/spectral_data/statistics/comparison.h"

namespace orvanta::spectral {

using SPECT::Entity::Type;

namespace {

SampleMoments LogPower(const Analysis& analysis, TraceRow trace, std::uint32_t bin) {
    const auto [mean, m2] = analysis.LogPowerAt(trace, bin);
    return {mean, m2, analysis.EpochCount(), analysis.EffectiveLogCount()};
}

} // namespace

bool AreComparable(const Analysis& main, const Analysis& secondary) {
    return main.Bins() == secondary.Bins() && main.Resolution() == secondary.Resolution() &&
           main.Montage() == secondary.Montage();
}

TraceComparison CompareRows(const Analysis& main, TraceRow mainTrace, const Analysis& secondary,
                            TraceRow secondaryTrace, SPECT::Entity::Type entity) {
    TraceComparison comparison;
    for (std::uint32_t bin = 0; bin < main.Bins(); ++bin) {
        TestResult test{kNaN, kNaN, kNaN};
        if (entity == Type::Power || entity == Type::Amplitude) {
            test = WelchTest(LogPower(main, mainTrace, bin), LogPower(secondary, secondaryTrace, bin));
        } else if (entity == Type::Coherence) {
            test = CoherenceTest(main.MeanAt(entity, mainTrace, bin), main.EffectiveCount(),
                                 secondary.MeanAt(entity, secondaryTrace, bin), secondary.EffectiveCount());
        }
        comparison.t.push_back(test.t);
        comparison.df.push_back(test.df);
        comparison.p.push_back(test.p);
    }
    comparison.ratio = Ratio(main.MeanOf(entity, mainTrace), secondary.MeanOf(entity, secondaryTrace));
    return comparison;
}

double EffectiveCountOf(const Analysis& analysis, Type entity) {
    switch (entity) {
    case Type::Power:
    case Type::Amplitude:
        return analysis.EffectiveLogCount();
    case Type::Coherence:
        return analysis.EffectiveCount();
    case Type::Phase:
        break;
    }
    return kNaN;
}

} // namespace orvanta::spectral

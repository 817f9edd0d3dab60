// SPDX-License-Identifier: GPL-3.0-or-later
// How an analysis describes itself.
#include "host/signal_base/time/time_text.h"
#include "host/spectral_data/files/number_text.h"
#include "host/spectral_data/results/spect_macro_result_impl.h"
#include "host/spectral_data/results/text.h"
#include "spectra_contract/file_path.h"

#include <algorithm>
#include <ostream>
#include <sstream>

using orvanta::spectral::EpochInterval;
using orvanta::spectral::EpochPlan;
using orvanta::spectral::EpochsText;
using orvanta::spectral::FixedText;
using orvanta::spectral::NumberText;

namespace {

constexpr std::size_t kBeginWidth = 14;

std::string ElapsedText(const XTime* time) {
    constexpr unsigned kNanosecondsPerSecond = 1'000'000'000;
    return orvanta::signal::TimeText(
        orvanta::signal::MillisecondsOf(time->Nanoseconds(), kNanosecondsPerSecond));
}

} // namespace

std::string SpectMacroResult::GetName() const {
    const std::string file = FilePath(impl_->macro.GetFileName()).GetFile();
    return file.empty() ? "Spectrum " + std::to_string(impl_->number) : file;
}

void SpectMacroResult::GetShortInfo(std::ostream& text) const {
    const SpectraMacro settings = impl_->Settings();
    text << NumberText(settings.GetFFTSeconds()) << " s, " << std::to_string(settings.GetOverlapPerc())
         << " %, " << settings.GetDSPWindowStr() << ", " << EpochsText(GetFFTCount());
}

void SpectMacroResult::GetLongInfo(std::ostream& text) const {
    std::ostringstream settings;
    impl_->Settings().GetLongDescrStr(settings);
    const std::string lines = settings.str();
    text << "Name: " << GetName() << '\n' << lines;
    if (!lines.empty() && lines.back() != '\n') {
        text << '\n';
    }
    text << "Montage: " << GetMontage().GetName() << '\n'
         << "Rate: " << NumberText(GetFFTSR()) << " Hz\n"
         << "FFT samples: " << std::to_string(GetFFTSamples()) << '\n'
         << "Resolution: " << NumberText(GetResolutionHz()) << " Hz\n"
         << "Epochs used: " << std::to_string(GetFFTCount()) << '\n'
         << "Computed: " << (IsComputed() ? "yes" : "no") << '\n';
}

void SpectMacroResult::GetProcDataString(char* buffer, std::size_t size) const {
    if (buffer == nullptr || size == 0) {
        return;
    }
    const EpochPlan plan = impl_->Plan();
    const double rate = impl_->Rate();
    const double seconds = rate > 0 ? static_cast<double>(CoveredSamples(plan)) / rate : 0;
    const std::string text = EpochsText(plan.starts.size()) + ", " + FixedText(seconds, 1) + " s";
    buffer[text.copy(buffer, size - 1)] = '\0';
}

std::list<std::string> SpectMacroResult::GetFFTIntervalList() const {
    std::list<std::string> texts;
    const EpochPlan plan = impl_->Plan();
    for (const std::int64_t start : plan.starts) {
        const XTimeInterval time = EpochInterval(*impl_->Data(), plan.geometry, start);
        std::string begin = ElapsedText(time.GetBeginPtr());
        begin.resize(std::max(begin.size(), kBeginWidth), ' ');
        texts.push_back(begin + '\t' + ElapsedText(time.GetEndPtr()));
    }
    return texts;
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/cli/montage_choice.h"

#include "host/review/cli/exit_status.h"
#include "host/review/cli/own_montages.h"
#include "host/signal_base/recording.h"
#include "host/signal_base/text.h"

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <vector>

namespace orvanta::cli {

namespace {

constexpr std::string_view kReference = "Reference ";

/// The reference montage against another electrode; false when the argument names none.
bool ChooseReference(EEGFileInfoType& recording, const std::string& argument) {
    if (!signal::SameText(std::string_view(argument).substr(0, kReference.size()), kReference)) {
        return false;
    }
    const SensorType* sensor = recording.GetTraceInfo()->FindSensor(argument.substr(kReference.size()));
    MontageList& list = *recording.GetMontageList();
    MontageType* reference = list.GetRefMtg();
    const auto electrode = [&]() -> const ChnType* {
        const MontageType& recorded = *list.GetUniMtg();
        const auto found = std::find_if(recorded.BeginChn(), recorded.EndChn(), [&](const auto& channel) {
            return sensor != nullptr && channel->GetTerms().front().Sensor == sensor;
        });
        return found == recorded.EndChn() ? nullptr : found->get();
    }();
    if (electrode == nullptr) {
        return false;
    }
    for (std::size_t i = 0; i < reference->GetNumTraces(); ++i) {
        reference->GetChn(i)->AssignChannel(electrode);
    }
    for (std::size_t i = 0; i < list.Size(); ++i) {
        if (list.Get(i) == reference) {
            return recording.ChangeMntg(i, false);
        }
    }
    return recording.ChangeMntg(list.GetCurrentIndex(), false, reference);
}

void ChooseFromFile(EEGFileInfoType& recording, const std::string& file, const std::string& name) {
    std::vector<MontageType> montages = signal::ReadMontageFile(file, *recording.GetTraceInfo());
    const auto wanted = std::find_if(montages.begin(), montages.end(), [&](const MontageType& montage) {
        return name.empty() || signal::SameText(montage.GetName(), name);
    });
    if (wanted == montages.end()) {
        throw UsageError(file + ": holds no montage \"" + name +
                         "\" (give FILE:NAME with one of its [NAME] lines)");
    }
    recording.ChangeMntg(recording.GetMontageList()->Add(std::move(*wanted)), false);
}

/// One of the recording's list; false when none has the name.
bool ChooseListed(EEGFileInfoType& recording, const std::string& name) {
    const MontageList& list = *recording.GetMontageList();
    const MontageType* found = list.Find(name);
    for (std::size_t i = 0; found != nullptr && i < list.Size(); ++i) {
        if (list.Get(i) == found) {
            recording.ChangeMntg(i, false);
            return true;
        }
    }
    return false;
}

/// The file in an argument that is FILE or FILE:NAME; empty when it is neither.
std::string PathIn(const std::string& argument) {
    for (const std::string& file : {argument, argument.substr(0, argument.rfind(':'))}) {
        if (std::filesystem::exists(file) && !std::filesystem::is_directory(file)) {
            return file;
        }
    }
    return {};
}

} // namespace

std::string MontageFileOf(const EEGFileInfoType& recording, const std::string& argument) {
    const MontageType* listed = recording.GetMontageList()->Find(argument);
    if (argument.empty() || (listed != nullptr && listed->GetKind() != MontageType::Kind::User)) {
        return {};
    }
    if (std::string path = PathIn(argument); !path.empty()) {
        return path;
    }
    const OwnMontages own = LoadOwnMontages();
    const OwnMontage* found = own.Find(argument);
    return found != nullptr ? found->file : std::string();
}

void ChooseMontage(EEGFileInfoType& recording, const std::string& argument) {
    if (ChooseListed(recording, argument)) {
        return;
    }
    if (const std::string file = PathIn(argument); !file.empty()) {
        ChooseFromFile(recording, file, file == argument ? "" : argument.substr(file.size() + 1));
        return;
    }
    const OwnMontages own = LoadOwnMontages();
    own.OfferTo(recording);
    if (ChooseListed(recording, argument) || ChooseReference(recording, argument)) {
        return;
    }
    if (const OwnMontage* found = own.Find(argument)) {
        Made(*found, recording); // tells why it does not fit
    }
    std::string names;
    for (const auto& montage : *recording.GetMontageList()) {
        names += (names.empty() ? "\"" : ", \"") + montage->GetName() + "\"";
    }
    throw UsageError(argument + ": no such montage (one of " + names +
                     ", \"Reference\" and an electrode, or a montage file)");
}

} // namespace orvanta::cli

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/cli/own_montages.h"

#include "host/platform/user_folders.h"
#include "host/signal_base/text.h"
#include "spectra_contract/recording.h"

#include <algorithm>
#include <filesystem>
#include <tuple>
#include <utility>

namespace orvanta::cli {

namespace {

constexpr const char* kFolder = "MONTAGE";
constexpr const char* kEnding = ".mtg";

void AddMontagesOf(const std::string& file, OwnMontages& own) {
    try {
        for (signal::MontageText& text : signal::ParseMontages(signal::ReadMontageText(file), file)) {
            own.montages.push_back({file, std::move(text)});
        }
    } catch (const signal::RecordingError& error) {
        own.problems.emplace_back(error.what());
    }
}

auto SortKey(const OwnMontage& own) {
    return std::tuple(signal::LowerCase(own.text.name), own.text.name, own.file);
}

} // namespace

const OwnMontage* OwnMontages::Find(const std::string& name) const {
    const auto found = std::find_if(montages.begin(), montages.end(), [&name](const OwnMontage& own) {
        return signal::SameText(own.text.name, name);
    });
    return found == montages.end() ? nullptr : &*found;
}

void OwnMontages::OfferTo(EEGFileInfoType& recording) const {
    for (const OwnMontage& own : montages) {
        try {
            recording.GetMontageList()->Add(Made(own, recording));
        } catch (const signal::MontageError&) {
            continue; // of another set of electrodes
        }
    }
}

OwnMontages LoadOwnMontages() {
    OwnMontages own;
    std::error_code error;
    std::filesystem::directory_iterator entry(platform::DefaultDataFolder() + kFolder, error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        if (entry->path().extension() == kEnding) {
            AddMontagesOf(entry->path(), own);
        }
    }
    std::sort(own.montages.begin(), own.montages.end(),
              [](const OwnMontage& a, const OwnMontage& b) { return SortKey(a) < SortKey(b); });
    std::sort(own.problems.begin(), own.problems.end());
    return own;
}

MontageType Made(const OwnMontage& own, const EEGFileInfoType& recording) {
    return signal::MakeUserMontage(own.text, own.file, *recording.GetTraceInfo());
}

} // namespace orvanta::cli

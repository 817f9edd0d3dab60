// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/montage/montage_folder.h"

#include "host/platform/atomic_file.h"
#include "host/review/app/refusal_text.h"
#include "host/signal_base/montage/montage_file.h"
#include "host/toolkit/message_module.h"
#include "host/toolkit/services.h"
#include "spectra_contract/recording.h"

#include <algorithm>
#include <cerrno>
#include <stdexcept>
#include <system_error>

namespace orvanta::review {

namespace {

constexpr std::string_view kEnding = ".mtg";

std::string PathOf(const std::string& folder, const std::string& name) {
    return folder + name + std::string(kEnding);
}

auto Find(auto& files, const std::string& name) {
    return std::ranges::find(files, name, &MontageFile::name);
}

void CheckNameIsFree(const std::string& path) {
    if (owl::CurrentServices().files->Access(path, owl::FileAccess::kExists) == 0) {
        throw std::runtime_error(path + ": another file has this name (choose another name)");
    }
}

void MakeFolder(const std::string& folder) {
    if (const int error = owl::CurrentServices().files->MakeFolders(folder)) {
        throw std::runtime_error(folder + ": " + std::generic_category().message(error) +
                                 " (make the folder, or one above it, writable)");
    }
}

void Remove(const std::string& path) {
    const int error = owl::CurrentServices().files->Remove(path);
    if (error != 0 && error != ENOENT) {
        throw std::runtime_error(path + ": " + std::generic_category().message(error) +
                                 " (make its folder writable)");
    }
}

/// Those in the text that fit, behind the others.
void AddFitting(const MontageFile& file, const TraceInfoType& sensors, std::vector<MontageType>& montages) {
    const std::string name = file.name + std::string(kEnding);
    for (const signal::MontageText& montage : signal::ParseMontages(file.text, name)) {
        try {
            montages.push_back(signal::MakeUserMontage(montage, name, sensors));
        } catch (const signal::MontageError&) {
            continue; // of another set of electrodes
        }
    }
}

} // namespace

MontageFiles LoadMontageFiles(const std::string& folder) {
    MontageFiles found;
    for (const std::string& name : owl::CurrentServices().files->FilesIn(folder, std::string(kEnding))) {
        try {
            found.files.push_back(
                {name.substr(0, name.size() - kEnding.size()), signal::ReadMontageText(folder + name)});
        } catch (const signal::RecordingError& error) {
            found.problems.push_back(RefusalText(error, PModule::Named("Orvanta")));
        }
    }
    return found;
}

void StoreMontageFiles(const std::string& folder, std::vector<MontageFile>& stored,
                       const std::vector<MontageFile>& wanted) {
    for (const MontageFile& file : wanted) {
        if (Find(stored, file.name) == stored.end()) {
            CheckNameIsFree(PathOf(folder, file.name));
        }
    }
    for (const MontageFile& file : wanted) {
        const auto old = Find(stored, file.name);
        if (old != stored.end() && *old == file) {
            continue;
        }
        MakeFolder(folder);
        platform::WriteFileAtomically(PathOf(folder, file.name), file.text);
        if (old != stored.end()) {
            *old = file;
        } else {
            stored.push_back(file);
        }
    }
    for (auto file = stored.begin(); file != stored.end();) {
        if (Find(wanted, file->name) != wanted.end()) {
            ++file;
            continue;
        }
        Remove(PathOf(folder, file->name));
        file = stored.erase(file);
    }
}

std::vector<std::string> OfferMontages(EEGFileInfoType& recording, const std::vector<MontageFile>& files) {
    std::vector<std::string> problems;
    std::vector<MontageType> montages;
    for (const MontageFile& file : files) {
        try {
            AddFitting(file, *recording.GetTraceInfo(), montages);
        } catch (const signal::RecordingError& error) {
            problems.push_back(RefusalText(error, PModule::Named("Orvanta")));
        }
    }
    MontageList& list = *recording.GetMontageList();
    list.ReplaceUser(std::move(montages));
    if (recording.GetTraceInfo()->GetMtg().GetKind() == MontageType::Kind::User) {
        recording.ChangeMntg(list.GetCurrentIndex(), true);
    } else {
        recording.GetMontageFlag().Set();
    }
    return problems;
}

} // namespace orvanta::review

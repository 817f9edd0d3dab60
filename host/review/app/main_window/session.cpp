// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/session.h"

#include "host/review/app/events/event_editor.h"
#include "host/review/app/main_window/document.h"
#include "host/review/app/main_window/kept_marks.h"
#include "host/spectral_data/settings/macro_file.h"
#include "spectra_contract/recording.h"
#include "spectra_contract/spectra_mgr.h"

#include <QLoggingCategory>

#include <algorithm>
#include <cmath>

namespace orvanta::review {

namespace {

std::optional<std::size_t> PlaceOf(const SpectMacroResult* analysis, const SpectraMgr& manager) {
    const auto found = std::find(manager.begin(), manager.end(), analysis);
    return found != manager.end() ? std::optional(static_cast<std::size_t>(found - manager.begin()))
                                  : std::nullopt;
}

/// The macro of the file when it still says the same, so that its name is known; else the settings alone.
std::optional<SpectraMacro> MacroOf(const SavedAnalysis& saved) {
    try {
        const SpectraMacro settings = spectral::ParseMacroFile(saved.file, saved.settings);
        SpectraMacro macro;
        const bool same = !saved.file.empty() && macro.Load(saved.file) == 0 && macro == settings;
        return same ? macro : settings;
    } catch (const std::runtime_error& error) {
        qInfo("%s", error.what());
        return std::nullopt;
    }
}

void RestoreMontage(const std::string& name, EEGFileInfoType& recording) {
    const MontageList& list = *recording.GetMontageList();
    const auto found =
        std::ranges::find_if(list, [&](const auto& montage) { return montage->GetName() == name; });
    if (found != list.end()) {
        recording.ChangeMntg(static_cast<std::size_t>(found - list.begin()), true);
    }
}

std::vector<std::string> RestoreEvents(const std::string& file, EventEditor& events) {
    if (file.empty()) {
        return {};
    }
    try {
        return events.Load(file);
    } catch (const std::runtime_error& error) {
        return {error.what()};
    }
}

SpectMacroResult* At(const std::vector<SpectMacroResult*>& made, std::optional<std::size_t> place) {
    return place && *place < made.size() ? made[*place] : nullptr;
}

} // namespace

Session SessionOf(const Document& document) {
    Session session;
    EEGFileInfoType& recording = document.Recording();
    TraceCursorType& cursor = *recording.GetTraceCursor();
    if (const unsigned rate = cursor.GetMemDataSR()) {
        session.position =
            static_cast<double>(cursor.GetSample(cursor.GetStartRecTime(), Sample::Mode::Memory, 0)) / rate;
    }
    session.events = document.EventsElsewhere();
    session.montage = recording.GetTraceInfo()->GetMtg().GetName();
    session.heads = document.HasMapsOnHeads();
    session.spectrum = document.Look();
    session.marks = document.Marks().Unsaved();
    const SpectraMgr& manager = document.Analyses();
    for (const SpectMacroResult* analysis : manager) {
        const SpectraMacro& macro = analysis->GetMacro();
        session.analyses.push_back({macro.GetFileName(), spectral::FormatMacroFile(macro)});
    }
    session.main = PlaceOf(manager.GetMain(), manager);
    session.secondary = PlaceOf(manager.GetSecondary(), manager);
    return session;
}

std::vector<std::string> Restore(const Session& session, Document& document, const GenericGUI& gui) {
    std::vector<std::string> remarks = RestoreEvents(session.events, document.Events());
    EEGFileInfoType& recording = document.Recording();
    document.SetMapsOnHeads(session.heads);
    document.SetLook(session.spectrum);
    signal::MarkChannels(recording, session.marks);
    RestoreMontage(session.montage, recording);
    TraceCursorType& cursor = *recording.GetTraceCursor();
    if (std::isfinite(session.position)) {
        constexpr double kLongest = 1e9; // seconds
        cursor.SetPosition(std::llround(std::clamp(session.position, 0.0, kLongest) * cursor.GetMemDataSR()));
    }
    SpectraMgr& manager = document.Analyses();
    std::vector<SpectMacroResult*> made; // null where the settings make no sense
    for (const SavedAnalysis& saved : session.analyses) {
        const std::optional<SpectraMacro> macro = MacroOf(saved);
        made.push_back(macro ? new SpectMacroResult(*macro, &recording, &gui) : nullptr);
        if (made.back() != nullptr) {
            manager.push_back(made.back());
        }
    }
    if (SpectMacroResult* main = At(made, session.main)) {
        manager.SetMain(main);
    }
    if (SpectMacroResult* secondary = At(made, session.secondary)) {
        manager.SetSecondary(secondary);
    }
    return remarks;
}

} // namespace orvanta::review

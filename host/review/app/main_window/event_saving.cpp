// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/event_saving.h"

#include "host/platform/interrupts.h"
#include "host/review/app/events/event_editor.h"
#include "host/review/app/gui.h"
#include "host/review/app/main_window/host_text.h"
#include "host/toolkit/modal_gateway.h"
#include "spectra_contract/file_path.h"

#include <QMessageBox>
#include <QPushButton>

#include <array>
#include <optional>

namespace orvanta::review {

namespace {

/// \return number of the button, from 0; nothing when the box was closed otherwise
std::optional<std::size_t> Ask(HWND parent, const QString& text, const QString& details,
                               const std::vector<std::pair<QMessageBox::ButtonRole, QString>>& buttons) {
    QMessageBox box(QMessageBox::Warning, "Orvanta", text, QMessageBox::NoButton, parent.Widget());
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(details);
    std::vector<QAbstractButton*> made;
    made.reserve(buttons.size());
    for (const auto& [role, caption] : buttons) {
        made.push_back(box.addButton(caption, role));
    }
    owl::CurrentModalGateway().RunModal(box);
    for (std::size_t i = 0; i < made.size(); ++i) {
        if (box.clickedButton() == made[i]) {
            return i;
        }
    }
    return std::nullopt;
}

QString Cancel() {
    return HostQText("cancel", "&Cancel");
}

std::string Filter() {
    return HostText("eventsTables", "Events tables") + "|*.tsv";
}

/// \return true when the events were saved elsewhere
bool SaveElsewhere(HWND parent, EventEditor& events) {
    const FilePath file(events.GetFile());
    const std::optional<std::string> chosen = owl::CurrentModalGateway().AskFileToSave(
        parent, {.title = HostText("eventsElsewhere", "Save Events As"),
                 .filter = Filter(),
                 .extension = "tsv",
                 .folder = file.GetFolder(),
                 .name = file.GetFile() + ".tsv"});
    if (chosen) {
        events.SaveAs(*chosen);
    }
    return chosen.has_value();
}

/// Takes the events of a table; the changes here are lost.
/// \return false when the table makes no sense, after a message
bool Load(EventEditor& events, const std::string& file) {
    try {
        std::string repairs;
        for (const std::string& repair : events.Load(file)) {
            repairs += (repairs.empty() ? "" : "\n") + repair;
        }
        if (!repairs.empty()) {
            Gui().ShowWarning(repairs);
        }
        return true;
    } catch (const std::runtime_error& error) {
        Gui().ShowError(error.what());
        return false;
    }
}

enum class Next { Done, GivenUp, Again, Elsewhere, Overwrite, Load };

Next AfterConflict(HWND parent, const EventsFileChanged& changed) {
    const auto answer =
        Ask(parent, HostQText("eventsConflict", "Another program has changed the events."), changed.what(),
            {{QMessageBox::DestructiveRole, HostQText("eventsOverwrite", "&Overwrite")},
             {QMessageBox::DestructiveRole, HostQText("eventsLoad", "&Load theirs")},
             {QMessageBox::ActionRole, HostQText("eventsOther", "Save &Elsewhere...")},
             {QMessageBox::RejectRole, Cancel()}});
    constexpr std::array kAnswers = {Next::Overwrite, Next::Load, Next::Elsewhere, Next::GivenUp};
    return kAnswers[answer.value_or(kAnswers.size() - 1)];
}

Next AfterFailure(HWND parent, const std::exception& error) {
    const auto answer = Ask(parent, HostQText("eventsFailed", "The events could not be saved."), error.what(),
                            {{QMessageBox::AcceptRole, HostQText("eventsRetry", "&Try Again")},
                             {QMessageBox::ActionRole, HostQText("eventsOther", "Save &Elsewhere...")},
                             {QMessageBox::RejectRole, Cancel()}});
    return answer == 0 ? Next::Again : answer == 1 ? Next::Elsewhere : Next::GivenUp;
}

Next TrySave(HWND parent, EventEditor& events, Next how) {
    try {
        if (how == Next::Elsewhere) {
            return SaveElsewhere(parent, events) ? Next::Done : Next::GivenUp;
        }
        if (how == Next::Load) {
            return Load(events, events.GetFile()) ? Next::Done : Next::GivenUp;
        }
        events.Save(how == Next::Overwrite ? EventEditor::Existing::Overwrite : EventEditor::Existing::Keep);
        return Next::Done;
    } catch (const EventsFileChanged& changed) {
        return AfterConflict(parent, changed);
    } catch (const std::runtime_error& error) {
        return AfterFailure(parent, error);
    }
}

bool SaveUnasked(EventEditor& events) {
    try {
        events.Save();
    } catch (const std::runtime_error& error) {
        qWarning("%s", error.what());
    }
    return true;
}

bool SaveUntilDone(HWND parent, EventEditor& events, Next next) {
    while (next != Next::Done && next != Next::GivenUp) {
        next = TrySave(parent, events, next);
    }
    return next == Next::Done;
}

} // namespace

bool SaveEvents(HWND parent, EventEditor& events) {
    return SaveUntilDone(parent, events, Next::Again);
}

bool SaveEventsAs(HWND parent, EventEditor& events) {
    return SaveUntilDone(parent, events, Next::Elsewhere);
}

void OpenEvents(HWND parent, EventEditor& events) {
    if (!AskToSaveEvents(parent, events)) {
        return;
    }
    const auto chosen =
        owl::CurrentModalGateway().AskFileToOpen(parent, {.title = HostText("eventsOpen", "Open Events"),
                                                          .filter = Filter(),
                                                          .extension = {},
                                                          .folder = FilePath(events.GetFile()).GetFolder(),
                                                          .name = {}});
    if (chosen) {
        Load(events, *chosen);
    }
}

bool AskToSaveEvents(HWND parent, EventEditor& events) {
    if (!events.IsChanged()) {
        return true;
    }
    if (platform::WasInterrupted()) {
        return SaveUnasked(events);
    }
    const auto answer = Ask(parent, HostQText("eventsChanged", "The events have changed. Save them?"), {},
                            {{QMessageBox::AcceptRole, HostQText("eventsSave", "&Save")},
                             {QMessageBox::DestructiveRole, HostQText("eventsDiscard", "&Discard")},
                             {QMessageBox::RejectRole, Cancel()}});
    return answer == 0 ? SaveEvents(parent, events) : answer == 1;
}

} // namespace orvanta::review

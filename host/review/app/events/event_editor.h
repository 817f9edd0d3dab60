// SPDX-License-Identifier: GPL-3.0-or-later
// Changes of a recording's events by the user, with undo and redo.
#pragma once

#include "spectra_contract/recording.h"

#include <cstddef>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace orvanta::review {

/// The table on the disk is not the one that was read or written here; "PATH: reason (remedy)". The user
/// decides: EventEditor::Save with Existing::Overwrite, or EventEditor::Load.
class EventsFileChanged : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The user's events of one recording, kept in a table beside it (BIDS, tab-separated). What the recording
/// itself holds cannot be changed. Every change is told through the events manager's flag, so that views and
/// analyses notice. As long as this lives, the events are changed through it alone. GUI thread.
class EventEditor {
public:
    /// What becomes of a table that another program has changed.
    enum class Existing { Keep, Overwrite };

    /// \param recording must outlive this
    explicit EventEditor(EEGFileInfoType& recording);
    ~EventEditor();
    EventEditor(const EventEditor&) = delete;
    EventEditor& operator=(const EventEditor&) = delete;

    const EEGFileInfoType& GetRecording() const;
    /// In time order; an event is named by its place here, until the next change.
    const std::vector<EventRecord>& Events() const;
    /// False for an event of the recording itself.
    bool IsOwn(std::size_t event) const;
    /// Why there cannot be such an event of the user's, as "reason (remedy)"; empty when there can. The table
    /// must be able to hold it, and it must overlap the recording.
    std::string WhyNot(const EventRecord& event) const;

    /// \return place of the new event \throws std::invalid_argument with the text of WhyNot
    std::size_t Add(const EventRecord& event);
    /// An event that begins as before keeps its place. \return its place
    /// \throws std::invalid_argument for an event that is not the user's, and with the text of WhyNot
    std::size_t Replace(std::size_t event, const EventRecord& changed);
    /// \param events in any order; none changes nothing
    /// \throws std::invalid_argument for an event that is not the user's; then all stay
    void Remove(std::span<const std::size_t> events);

    bool CanUndo() const;
    bool CanRedo() const;
    /// What would be undone, as a text for a menu: "Add Artifact"; empty when there is nothing.
    std::string UndoText() const;
    std::string RedoText() const;
    void Undo();
    void Redo();

    /// The table's file; empty for a recording that is not on the disk.
    std::string GetFile() const;
    /// True when the file does not hold the events as they are.
    bool IsChanged() const;
    /// Writes the table; atomic. Columns and rows of others in it are kept. Without events of the user's and
    /// without a table nothing is written.
    /// \throws EventsFileChanged
    /// \throws std::runtime_error "PATH: reason (remedy)"; the events then stay in memory and the file whole
    void Save(Existing existing = Existing::Keep);
    /// Writes the table to another file, whatever that holds, and keeps the events there from now on.
    /// \throws std::runtime_error "PATH: reason (remedy)"; then nothing has changed
    void SaveAs(const std::string& path);
    /// Takes the user's events from a table and keeps them there from now on; changes are forgotten.
    /// \return what was repaired, one line each
    /// \throws std::runtime_error "PATH: reason (remedy)"; then nothing has changed
    std::vector<std::string> Load(const std::string& path);

    /// Set after every change, undo and redo included.
    ManagedFlag& GetChangedFlag() const;

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

} // namespace orvanta::review

// SPDX-License-Identifier: GPL-3.0-or-later
// Changes of a recording's events by the user, with undo and redo.
#pragma once

#include "spectra_contract/recording.h"

#include <cstddef>
#include <memory>
#include <span>
#include <string>

namespace orvanta::review {

/// The user's events of one recording, kept in a table beside it (BIDS, tab-separated). What the recording
/// itself holds cannot be changed. Every change is told through the events manager's flag, so that views and
/// analyses notice. GUI thread.
class EventEditor {
public:
    /// \param recording must outlive this
    explicit EventEditor(EEGFileInfoType& recording);
    ~EventEditor();
    EventEditor(const EventEditor&) = delete;
    EventEditor& operator=(const EventEditor&) = delete;

    /// In time order; an event is named by its place here, until the next change.
    const std::vector<EventRecord>& Events() const;
    /// False for an event of the recording itself.
    bool IsOwn(std::size_t event) const;

    /// \return place of the new event
    std::size_t Add(const EventRecord& event);
    /// \throws std::invalid_argument for an event that is not the user's
    std::size_t Replace(std::size_t event, const EventRecord& changed);
    void Remove(std::span<const std::size_t> events);

    bool CanUndo() const;
    bool CanRedo() const;
    /// What would be undone, as a text for a menu: "Add Artifact"; empty when there is nothing.
    std::string UndoText() const;
    std::string RedoText() const;
    void Undo();
    void Redo();

    /// The table's file.
    std::string GetFile() const;
    /// True when the file does not hold the events as they are.
    bool IsChanged() const;
    /// Writes the table; atomic. Columns and rows of others in it are kept.
    /// \throws std::runtime_error "PATH: reason (remedy)"; the events then stay in memory and the file whole
    void Save();

    /// Set after every change, undo and redo included.
    ManagedFlag& GetChangedFlag() const;

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

} // namespace orvanta::review

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/events/event_history.h"

#include <algorithm>
#include <iterator>

namespace orvanta::review {

namespace {

void Exchange(EventsManager& events, const std::vector<PlacedEvent>& removed,
              const std::vector<PlacedEvent>& inserted) {
    std::vector<std::size_t> places;
    std::transform(removed.begin(), removed.end(), std::back_inserter(places),
                   [](const PlacedEvent& placed) { return placed.Place; });
    events.Change(places, inserted);
}

} // namespace

void EventHistory::Make(EventChange change) {
    changes_.resize(done_);
    if (saved_ && *saved_ > done_) {
        saved_.reset();
    }
    changes_.push_back(std::move(change));
    Redo();
}

const EventChange* EventHistory::Last() const {
    return done_ == 0 ? nullptr : &changes_[done_ - 1];
}

const EventChange* EventHistory::Next() const {
    return done_ == changes_.size() ? nullptr : &changes_[done_];
}

void EventHistory::Undo() {
    if (done_ > 0) {
        const EventChange& change = changes_[--done_];
        Exchange(events_, change.inserted, change.removed);
    }
}

void EventHistory::Redo() {
    if (done_ < changes_.size()) {
        const EventChange& change = changes_[done_++];
        Exchange(events_, change.removed, change.inserted);
    }
}

void EventHistory::Clear() {
    changes_.clear();
    done_ = 0;
    saved_ = 0;
}

} // namespace orvanta::review

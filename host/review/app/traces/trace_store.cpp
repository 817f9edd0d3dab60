// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/trace_store.h"

#include "host/review/app/traces/file_page.h"

namespace orvanta::review {

struct TraceStore::Impl {
    std::shared_ptr<const signal::Recording> recording;
    std::vector<TraceChannel> lines;
    TraceFilter filter;
};

TraceStore::TraceStore(std::shared_ptr<const signal::Recording> recording) : impl_(std::make_unique<Impl>()) {
    impl_->recording = std::move(recording);
}

TraceStore::~TraceStore() = default;

void TraceStore::SetLines(std::vector<TraceChannel> lines, const TraceFilter& filter) {
    impl_->lines = std::move(lines);
    impl_->filter = filter;
}

TracePage TraceStore::Read(const PageRequest& request, std::span<const std::size_t> lines) const {
    std::vector<TraceChannel> wanted;
    for (const std::size_t line : lines) {
        wanted.push_back(impl_->lines.at(line));
    }
    return FilePage(*impl_->recording, wanted, impl_->filter, request).Read();
}

double TraceStore::Progress() const {
    return 1;
}

std::string TraceStore::Failure() const {
    return {};
}

void TraceStore::SetGrown(std::function<void()>) {}

} // namespace orvanta::review

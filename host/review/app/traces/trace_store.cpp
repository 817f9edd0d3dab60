// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/trace_store.h"

#include "host/review/app/traces/file_page.h"
#include "host/review/app/traces/pyramid_worker.h"

#include <algorithm>
#include <utility>

namespace orvanta::review {

namespace {

/// A page that is read within this many seconds needs no pyramid.
constexpr double kAtOnce = 0.005;
/// So long may a page take for details that the pyramid does not have.
constexpr double kForDetails = 0.03;

bool SameValues(const std::vector<TraceChannel>& a, const std::vector<TraceChannel>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const TraceChannel& x, const TraceChannel& y) { return SameValues(x, y); });
}

} // namespace

struct TraceStore::Impl {
    std::shared_ptr<const signal::Recording> recording;
    std::size_t budget = 0;
    std::vector<TraceChannel> lines;
    TraceFilter filter;
    std::shared_ptr<Pyramid> pyramid;
    PyramidWorker worker;
};

TraceStore::TraceStore(std::shared_ptr<const signal::Recording> recording, std::size_t budget)
    : impl_(std::make_unique<Impl>()) {
    impl_->recording = std::move(recording);
    impl_->budget = budget;
    impl_->pyramid = std::make_shared<Pyramid>(impl_->recording, impl_->lines, impl_->filter, budget);
}

TraceStore::~TraceStore() = default;

void TraceStore::SetLines(std::vector<TraceChannel> lines, const TraceFilter& filter) {
    const bool same = SameValues(lines, impl_->lines) && filter == impl_->filter;
    if (!same) {
        impl_->pyramid = std::make_shared<Pyramid>(impl_->recording, lines, filter, impl_->budget);
    }
    impl_->lines = std::move(lines);
    impl_->filter = filter;
    if (!same) {
        impl_->worker.Start(impl_->pyramid);
    }
}

TracePage TraceStore::Read(const PageRequest& request, std::span<const std::size_t> lines) const {
    std::vector<TraceChannel> wanted;
    for (const std::size_t line : lines) {
        wanted.push_back(impl_->lines.at(line));
    }
    FilePage fromFile(*impl_->recording, wanted, impl_->filter, request);
    const Pyramid& pyramid = *impl_->pyramid;
    const double seconds = fromFile.Seconds();
    const bool hasPyramidAll = pyramid.Covers(request) && pyramid.IsFineEnough(request);
    if (fromFile.HasRunsOnly() || seconds <= kAtOnce || (seconds <= kForDetails && !hasPyramidAll)) {
        return fromFile.Read();
    }
    return pyramid.Read(request, lines);
}

double TraceStore::Progress() const {
    return impl_->pyramid->Progress();
}

std::string TraceStore::Failure() const {
    return impl_->worker.Failure();
}

void TraceStore::SetGrown(std::function<void()> grown) {
    impl_->worker.SetGrown(std::move(grown));
}

} // namespace orvanta::review

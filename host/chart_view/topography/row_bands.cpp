// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/topography/row_bands.h"

#include <QThreadPool>

#include <algorithm>
#include <atomic>
#include <exception>
#include <latch>
#include <memory>
#include <mutex>
#include <utility>

namespace orvanta::chart {

namespace {

/// Bands of rows that several threads take in turn.
class Bands {
public:
    Bands(int rows, int height, const std::function<void(int, int)>& work)
        : rows_(rows), height_(height), work_(work), left_((rows + height - 1) / height) {}

    /// Works on one band after another until none is left to begin with.
    void Work() {
        for (int first = next_.fetch_add(height_); first < rows_; first = next_.fetch_add(height_)) {
            try {
                work_(first, std::min(rows_, first + height_));
            } catch (...) {
                const std::lock_guard lock(failureMutex_);
                failure_ = std::current_exception();
            }
            left_.count_down();
        }
    }
    /// Until all bands are done. \throws what the work threw, if anything
    void Wait() {
        left_.wait();
        if (failure_) {
            std::rethrow_exception(failure_);
        }
    }

private:
    const int rows_, height_;
    const std::function<void(int, int)>& work_; ///< there until all bands are done
    std::atomic<int> next_ = 0;                 ///< row
    std::latch left_;                           ///< bands
    std::mutex failureMutex_;
    std::exception_ptr failure_;
};

/// Work of a thread of the pool, which may come when all bands are done.
class Helper final : public QRunnable {
public:
    explicit Helper(std::shared_ptr<Bands> bands) : bands_(std::move(bands)) {
        made_.store(true, std::memory_order_release);
    }
    void run() override {
        // The pool's own locks order this, too, but a thread sanitizer does not see those of Qt.
        if (made_.load(std::memory_order_acquire)) {
            bands_->Work();
        }
    }

private:
    std::shared_ptr<Bands> bands_;
    std::atomic<bool> made_ = false;
};

} // namespace

void ForRowBands(int rows, int step, const std::function<void(int, int)>& work) {
    constexpr int kBandsOfCore = 2; // some rows take longer than others
    QThreadPool& pool = *QThreadPool::globalInstance();
    const int cores = pool.maxThreadCount();
    const int steps = (rows + step - 1) / step;
    const int height = (steps + kBandsOfCore * cores - 1) / std::max(1, kBandsOfCore * cores) * step;
    if (cores <= 1 || height >= rows) {
        if (rows > 0) {
            work(0, rows);
        }
        return;
    }
    const auto bands = std::make_shared<Bands>(rows, height, work);
    for (int helper = 1; helper < std::min(cores, steps); ++helper) {
        if (auto more = std::make_unique<Helper>(bands); pool.tryStart(more.get())) {
            static_cast<void>(more.release()); // the pool's
        } else {
            break;
        }
    }
    bands->Work();
    bands->Wait();
}

} // namespace orvanta::chart

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/engine/ordered_work.h"

#include "spectra_contract/platform.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <thread>

namespace orvanta::spectral {

namespace {

/// How often the waiting thread looks whether the user has had enough.
constexpr std::chrono::milliseconds kGlance{40};

class OrderedRun {
public:
    OrderedRun(std::size_t pieces, const std::function<void(unsigned, std::size_t)>& work,
               const std::function<void(unsigned, std::size_t)>& finish, WorkState& state)
        : pieces_(pieces), work_(work), finish_(finish), state_(state) {}

    void Worker(unsigned worker) {
        try {
            // Pieces are taken in order, so whoever waits for its turn waits for a piece that is under way.
            for (std::size_t piece = next_++; piece < pieces_ && !state_.stop; piece = next_++) {
                work_(worker, piece);
                std::unique_lock lock(mutex_);
                turn_.wait(lock, [&] { return finished_ == piece || state_.stop; });
                if (state_.stop) {
                    break;
                }
                lock.unlock();
                finish_(worker, piece);
                lock.lock();
                ++finished_;
                turn_.notify_all();
            }
        } catch (...) {
            const std::lock_guard lock(mutex_);
            if (!error_) {
                error_ = std::current_exception();
            }
            state_.stop = true;
        }
        const std::lock_guard lock(mutex_);
        ++idle_;
        turn_.notify_all();
    }

    /// \return false when cancelled
    bool Wait(unsigned workers, std::uint64_t total, GenericProgress* progress) {
        bool cancelled = false;
        std::unique_lock lock(mutex_);
        while (!turn_.wait_for(lock, kGlance, [&] { return idle_ == workers; })) {
            if (progress == nullptr) {
                continue;
            }
            lock.unlock();
            progress->SetPosition(static_cast<double>(state_.epochsDone) / static_cast<double>(total));
            const bool enough = progress->IsCancelled();
            lock.lock();
            if (enough) {
                cancelled = true;
                state_.stop = true;
                turn_.notify_all();
            }
        }
        return !cancelled;
    }

    void StopNow() {
        const std::lock_guard lock(mutex_);
        state_.stop = true;
        turn_.notify_all();
    }
    std::exception_ptr Error() const { return error_; }

private:
    const std::size_t pieces_;
    const std::function<void(unsigned, std::size_t)>& work_;
    const std::function<void(unsigned, std::size_t)>& finish_;
    WorkState& state_;
    std::atomic<std::size_t> next_ = 0;
    std::mutex mutex_;
    std::condition_variable turn_;
    std::size_t finished_ = 0;
    unsigned idle_ = 0;
    std::exception_ptr error_;
};

} // namespace

bool RunOrdered(std::size_t pieces, unsigned workers, const std::function<void(unsigned, std::size_t)>& work,
                const std::function<void(unsigned, std::size_t)>& finish, WorkState& state,
                std::uint64_t total, GenericProgress* progress) {
    if (progress != nullptr && progress->IsCancelled()) {
        return false;
    }
    OrderedRun run(pieces, work, finish, state);
    bool completed = false;
    {
        std::vector<std::jthread> threads;
        try {
            for (unsigned worker = 0; worker < workers; ++worker) {
                threads.emplace_back([&run, worker] { run.Worker(worker); });
            }
            completed = run.Wait(workers, total, progress);
        } catch (...) {
            // No thread to be had, or the progress display threw: the workers must end before the run does.
            run.StopNow();
            throw;
        }
    }
    if (run.Error()) {
        std::rethrow_exception(run.Error());
    }
    if (completed && progress != nullptr) {
        progress->SetPosition(1);
    }
    return completed;
}

unsigned WorkerCount(unsigned asked, std::size_t pieces) {
    constexpr std::size_t kMost = 256;
    const std::size_t wanted = asked != 0 ? asked : std::max(1U, std::thread::hardware_concurrency());
    return static_cast<unsigned>(std::clamp<std::size_t>(pieces, 1, std::min(wanted, kMost)));
}

} // namespace orvanta::spectral

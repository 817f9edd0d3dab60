// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/work_gui.h"

#include "host/toolkit/event_guard.h"

#include <QApplication>
#include <QThread>
#include <QTimer>

#include <chrono>
#include <utility>

namespace orvanta::review {

namespace {

/// Whether a dialog or a menu is open, or the function that opened it has not returned yet.
bool IsSomebodyWaiting() {
    return QApplication::activeModalWidget() != nullptr || QThread::currentThread()->loopLevel() > 1;
}

} // namespace

/// A progress display that is counted.
class WorkGui::Tracked final : public GenericProgress {
public:
    Tracked(const WorkGui& gui, const std::string& text)
        : gui_(gui), progress_(gui.gui_.CreateProgress(text)) {
        ++gui_.running_;
    }
    ~Tracked() override {
        progress_.reset();
        --gui_.running_;
        gui_.Ended();
    }
    Tracked(const Tracked&) = delete;
    Tracked& operator=(const Tracked&) = delete;

    void SetText(const std::string& text) override { progress_->SetText(text); }
    void SetPosition(double fraction) override { progress_->SetPosition(fraction); }
    bool IsCancelled() const override { return gui_.waiting_ || progress_->IsCancelled(); }

private:
    const WorkGui& gui_;
    std::unique_ptr<GenericProgress> progress_;
};

void WorkGui::ShowError(const std::string& text) const {
    if (waiting_) {
        qInfo("%s", text.c_str());
    } else {
        gui_.ShowError(text);
    }
}

void WorkGui::ShowWarning(const std::string& text) const {
    if (waiting_) {
        qInfo("%s", text.c_str());
    } else {
        gui_.ShowWarning(text);
    }
}

std::unique_ptr<GenericProgress> WorkGui::CreateProgress(const std::string& text) const {
    return std::make_unique<Tracked>(*this, text);
}

void WorkGui::WhenIdle(std::function<void()> action) {
    if (IsBusy()) {
        waiting_ = std::move(action);
    } else if (QApplication::activeModalWidget() == nullptr) {
        owl::RunGuarded(action);
    }
}

void WorkGui::Ended() const {
    if (waiting_ && !IsBusy()) {
        QMetaObject::invokeMethod(
            &queue_, [this] { const_cast<WorkGui*>(this)->RunWaiting(); }, Qt::QueuedConnection);
    }
}

void WorkGui::RunWaiting() {
    if (waiting_ && !IsBusy()) {
        due_ = std::exchange(waiting_, nullptr);
        RunDue();
    }
}

void WorkGui::RunDue() {
    constexpr std::chrono::milliseconds kAgain{50};
    if (!due_) {
        return;
    }
    if (!IsBusy() && !IsSomebodyWaiting()) {
        owl::RunGuarded(std::exchange(due_, nullptr));
    } else {
        QTimer::singleShot(kAgain, &queue_, [this] { RunDue(); });
    }
}

} // namespace orvanta::review

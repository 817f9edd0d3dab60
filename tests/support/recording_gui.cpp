// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/recording_gui.h"

namespace orvanta::test {

namespace {

class SilentProgress final : public GenericProgress {
public:
    explicit SilentProgress(const bool& cancelled) : cancelled_(cancelled) {}
    void SetText(const std::string& /*text*/) override {}
    void SetPosition(double /*fraction*/) override {}
    bool IsCancelled() const override { return cancelled_; }

private:
    const bool& cancelled_;
};

} // namespace

std::unique_ptr<GenericProgress> RecordingGui::CreateProgress(const std::string& text) const {
    progresses_.push_back(text);
    if (OnProgress) {
        OnProgress();
    }
    return std::make_unique<SilentProgress>(Cancelled);
}

} // namespace orvanta::test

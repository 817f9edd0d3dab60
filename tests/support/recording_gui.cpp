// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/recording_gui.h"

namespace orvanta::test {

class RecordingGui::Progress final : public GenericProgress {
public:
    explicit Progress(const RecordingGui& gui) : gui_(gui) {}
    void SetText(const std::string& text) override {
        gui_.texts_.push_back(text);
        if (gui_.OnText) {
            gui_.OnText(text);
        }
    }
    void SetPosition(double fraction) override {
        gui_.positions_.push_back(fraction);
        if (gui_.OnPosition) {
            gui_.OnPosition();
        }
    }
    bool IsCancelled() const override { return gui_.Cancelled; }

private:
    const RecordingGui& gui_;
};

std::unique_ptr<GenericProgress> RecordingGui::CreateProgress(const std::string& text) const {
    progresses_.push_back(text);
    if (OnProgress) {
        OnProgress();
    }
    auto progress = std::make_unique<Progress>(*this);
    progress->SetText(text);
    return progress;
}

} // namespace orvanta::test

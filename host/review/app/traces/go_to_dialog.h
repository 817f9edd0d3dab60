// SPDX-License-Identifier: GPL-3.0-or-later
// Asks for the time to go to.
#pragma once

#include "host/review/app/traces/time_text_input.h"
#include "host/toolkit/form.h"

#include <memory>

namespace Ui {
class TFormGoToTime;
}

namespace orvanta::review {

/// One edit; it closes with OK only for a time of the recording, and says what is wrong until then.
class GoToDialog final : public owl::TForm {
public:
    GoToDialog(HWND parent, const TimeContext& context);
    ~GoToDialog() override;

    /// Seconds since the first sample; of a text that is good.
    double Seconds() const;

private:
    void TakeIt();

    TimeContext context_;
    std::unique_ptr<Ui::TFormGoToTime> ui_;
};

} // namespace orvanta::review

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/progress_box.h"

#include "host/platform/interrupts.h"
#include "host/toolkit/form_texts.h"
#include "host/toolkit/icon.h"
#include "host/toolkit/message_module.h"
#include "host/toolkit/services.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QLabel>
#include <QPushButton>
#include <QWindow>

#include <algorithm>
#include <limits>

namespace orvanta::review {

namespace {

constexpr int kSteps = 1000;
constexpr int kMinimumWidth = 360;
constexpr int kTextWidth = 560;
constexpr std::int64_t kShownAfter = 300; // ms
constexpr std::int64_t kServedEvery = 30; // ms

std::int64_t Now() {
    return owl::CurrentServices().clock->Milliseconds();
}

QString CancelText() {
    return QString::fromStdString(owl::TextOr(PModule::Named("Orvanta"), "HOST", "cancel", "&Cancel"));
}

} // namespace

ProgressBox::ProgressBox(const std::string& text, QWidget* over)
    : window_(QString(), CancelText(), 0, kSteps), over_(over), started_(Now()), served_(started_) {
    auto* label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    window_.setLabel(label);
    window_.setWindowTitle("Orvanta");
    window_.findChild<QPushButton*>()->setIcon(owl::IconOf(QStringLiteral("cancel")));
    window_.setWindowModality(Qt::ApplicationModal);
    window_.setMinimumWidth(kMinimumWidth);
    // It comes and goes with the work, not by an estimate.
    window_.setMinimumDuration(std::numeric_limits<int>::max());
    window_.setAutoClose(false);
    window_.setAutoReset(false);
    SetText(text);
}

void ProgressBox::Show() {
    if (over_) {
        window_.winId(); // makes the window of the screen
        window_.windowHandle()->setTransientParent(over_->window()->windowHandle());
        window_.adjustSize();
        window_.move(over_->window()->frameGeometry().center() - window_.rect().center());
    }
    window_.show();
}

void ProgressBox::SetText(const std::string& text) {
    // File names may be longer than any screen is wide.
    const QString whole = QString::fromStdString(text);
    window_.setLabelText(window_.fontMetrics().elidedText(whole, Qt::ElideMiddle, kTextWidth));
}

void ProgressBox::SetPosition(double fraction) {
    const double share = fraction > 0 ? std::min(fraction, 1.0) : 0.0; // a NaN counts as nothing done
    window_.setValue(static_cast<int>(share * kSteps));
    const std::int64_t now = Now();
    if (!window_.isVisible() && !window_.wasCanceled() && now - started_ >= kShownAfter) {
        Show();
    }
    if (now - served_ >= kServedEvery) {
        served_ = now;
        QCoreApplication::processEvents(window_.isVisible() ? QEventLoop::AllEvents
                                                            : QEventLoop::ExcludeUserInputEvents);
    }
}

bool ProgressBox::IsCancelled() const {
    return window_.wasCanceled() || platform::WasInterrupted();
}

} // namespace orvanta::review

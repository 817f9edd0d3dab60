// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/saving/batch_failures.h"

#include "host/toolkit/form_texts.h"
#include "side_bar/texts.h"

#include <QtGlobal>

#include <algorithm>

namespace orvanta::spectrum_view {

namespace {

/// A full disk or a lost folder gives every file the same reason, so a few say it all.
constexpr std::size_t kReasonsTold = 3;

} // namespace

void BatchFailures::NextFile(const std::string& name) {
    ++files_;
    name_ = name;
    notComputed_.clear();
}

void BatchFailures::NotComputed(const std::string& reason) {
    notComputed_ = name_ + ": " + reason;
    qInfo("%s", notComputed_.c_str());
}

void BatchFailures::ShowError(const std::string& text) const {
    qInfo("%s", text.c_str());
    reasons_.push_back(notComputed_.empty() ? text : notComputed_);
}

void BatchFailures::ShowWarning(const std::string& text) const {
    qInfo("%s", text.c_str());
}

std::unique_ptr<GenericProgress> BatchFailures::CreateProgress(const std::string& /*text*/) const {
    return nullptr;
}

std::string BatchFailures::Text(const PModule* messages) const {
    if (reasons_.empty()) {
        return {};
    }
    std::string text = side_bar::FillIn(
        owl::TextOr(messages, "Spectrum", "NotSaved", "%d of %d spectra files were not saved."),
        {std::to_string(reasons_.size()), std::to_string(files_)});
    for (std::size_t i = 0; i < std::min(reasons_.size(), kReasonsTold); ++i) {
        text += (i == 0 ? "\n\n" : "\n") + reasons_[i];
    }
    return reasons_.size() > kReasonsTold ? text + "\n…" : text;
}

} // namespace orvanta::spectrum_view

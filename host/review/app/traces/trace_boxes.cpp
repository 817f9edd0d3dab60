// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/trace_boxes.h"

#include "host/review/app/traces/trace_commands.h"
#include "host/review/app/traces/trace_scales.h"
#include "host/review/app/traces/trace_texts.h"
#include "host/toolkit/gadget_bar.h"

#include <QComboBox>
#include <QLocale>

#include <algorithm>
#include <cmath>
#include <functional>

namespace orvanta::review {

namespace {

constexpr int kIconSize = 18; ///< no higher than a box: the room is the traces'
constexpr std::array kLowCuts{0.0, 0.1, 0.3, 0.5, 1.0, 1.6, 2.0, 5.0, 10.0};
constexpr std::array kHighCuts{0.0, 15.0, 20.0, 30.0, 35.0, 50.0, 70.0, 100.0, 150.0, 200.0};
constexpr std::array kNotches{0.0, 50.0, 60.0};

bool Same(double a, double b) {
    return std::abs(a - b) <= 1e-6 * std::max(std::abs(a), std::abs(b));
}

/// With the user's decimal sign.
QString NumberText(double value) {
    QLocale locale;
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    return locale.toString(value, 'g', 6);
}

/// Lists the values with \p current among them, in order, and shows it.
void Fill(QComboBox* box, std::vector<double>& values, std::span<const double> standard, double current,
          const std::function<QString(double)>& text) {
    if (box == nullptr) {
        return;
    }
    std::vector<double> wanted(standard.begin(), standard.end());
    const auto same =
        std::find_if(wanted.begin(), wanted.end(), [current](double value) { return Same(value, current); });
    if (same == wanted.end()) {
        wanted.insert(std::upper_bound(wanted.begin(), wanted.end(), current), current);
    }
    QStringList texts;
    std::transform(wanted.begin(), wanted.end(), std::back_inserter(texts), text);
    bool listed = box->count() == texts.size();
    for (int i = 0; listed && i < box->count(); ++i) {
        listed = box->itemText(i) == texts[i];
    }
    if (!listed) {
        box->clear();
        box->addItems(texts);
    }
    values = std::move(wanted);
    box->setCurrentIndex(static_cast<int>(
        std::find_if(values.begin(), values.end(), [current](double value) { return Same(value, current); }) -
        values.begin()));
}

QString SecondsText(double seconds) {
    if (seconds >= 3600 && std::fmod(seconds, 3600) == 0) {
        return NumberText(seconds / 3600) + " h";
    }
    return seconds >= 60 && std::fmod(seconds, 60) == 0 ? NumberText(seconds / 60) + " min"
                                                        : NumberText(seconds) + " s";
}

} // namespace

void TraceBoxes::Create(owl::GadgetBar& bar) {
    bar.setIconSize({kIconSize, kIconSize});
    bar.AddButton(kCmGoToTime, kCmGoToTime, TraceText("goToTip", "Go to a time (G)"));
    bar.AddTwoStateButton(kCmMarkMode, kCmMarkMode, kCmMarkMode,
                          TraceText("markTip",
                                    "Mark events: a click marks a moment, a drag a stretch (Shift+M, Esc "
                                    "ends)"));
    bar.AddTwoStateButton(
        kCmMeasureMode, kCmMeasureMode, kCmMeasureMode,
        TraceText("measureTip", "Measure time, frequency and voltage by dragging (R, Esc ends)"));
    bar.AddGap();
    montage_ = bar.AddComboBox(kMsgMontage, TraceText("montageTip", "Montage of the EEG"));
    bar.AddGap();
    pageLength_ =
        bar.AddComboBox(kMsgPageLength, TraceText("pageTip", "Time on a page (Ctrl++, Ctrl+-, Ctrl+wheel)"));
    gain_ = bar.AddComboBox(
        kMsgGain, TraceText("gainTip",
                            "Sensitivity of the selected type of channels, else of all (+, -, Shift+wheel)"));
    bar.AddGap();
    lowCut_ = bar.AddComboBox(kMsgLowCut, TraceText("lowCutTip", "Low cut filter: takes out what is slower"));
    highCut_ =
        bar.AddComboBox(kMsgHighCut, TraceText("highCutTip", "High cut filter: takes out what is faster"));
    notch_ = bar.AddComboBox(kMsgNotch, TraceText("notchTip", "Notch filter: takes out mains hum"));
    montage_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
}

void TraceBoxes::Show(double pageLength, double gain, const std::string& gainUnit,
                      const TraceFilter& filter) {
    Fill(pageLength_, pageLengths_, kPageLengths, pageLength, SecondsText);
    const QString unit = QString::fromStdString(gainUnit);
    Fill(gain_, gains_, kSensitivities, gain,
         [&unit](double value) { return NumberText(value) + " " + unit; });
    const auto cut = [](const std::string& text) {
        return [text = QString::fromStdString(text), off = QString::fromStdString(TraceText("off", "off"))](
                   double value) { return text.arg(value == 0 ? off : NumberText(value) + " Hz"); };
    };
    Fill(lowCut_, lowCuts_, kLowCuts, filter.lowCut, cut(TraceText("lowCut", "Low cut %1")));
    Fill(highCut_, highCuts_, kHighCuts, filter.highCut, cut(TraceText("highCut", "High cut %1")));
    Fill(notch_, notches_, kNotches, filter.notch, cut(TraceText("notch", "Notch %1")));
}

void TraceBoxes::ShowMontages(const MontageList& montages, const std::string& current) {
    if (montage_ == nullptr) {
        return;
    }
    montage_->clear();
    for (const auto& montage : montages) {
        montage_->addItem(QString::fromStdString(montage->GetName()));
    }
    montage_->setCurrentIndex(montage_->findText(QString::fromStdString(current)));
}

} // namespace orvanta::review

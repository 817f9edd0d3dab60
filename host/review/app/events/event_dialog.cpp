// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/events/event_dialog.h"

#include "host/review/app/events/event_texts.h"
#include "host/review/app/events/usual_labels.h"
#include "host/review/app/gui.h"
#include "host/toolkit/form_texts.h"
#include "host/toolkit/icon.h"
#include "host/toolkit/message_module.h"
#include "host/toolkit/modal_gateway.h"
#include "ui_event.h"

#include <QFontMetrics>
#include <QLineEdit>
#include <QStringList>

#include <algorithm>
#include <set>

namespace orvanta::review {

namespace {

constexpr const char* kSection = "TFormEvent";
constexpr double kUsualSeconds = 1; ///< duration offered for a point that becomes a stretch

QStringList KnownLabels(const std::vector<EventRecord>& events) {
    std::set<std::string> labels;
    const auto offer = [&labels](const auto& usual) { labels.insert(usual.begin(), usual.end()); };
    offer(kArtifactLabels);
    offer(kStateLabels);
    offer(kSpotLabels);
    for (const EventRecord& event : events) {
        labels.insert(event.Label);
    }
    QStringList sorted;
    for (const std::string& label : labels) {
        sorted << QString::fromStdString(label);
    }
    std::stable_sort(sorted.begin(), sorted.end(), Alphabet());
    return sorted;
}

} // namespace

struct EventDialog::Impl {
    Impl(const EventEditor& events, const EventRecord& event) : editor(events), first(event) {}

    /// Why the dialog cannot close with OK; empty when it can.
    QString Problem(const EventRecord& typed) const;

    const EventEditor& editor;
    EventRecord first;
    Ui::TFormEvent ui;
};

QString EventDialog::Impl::Problem(const EventRecord& typed) const {
    if (!ParseSeconds(ui.edBegin->text())) {
        return EventText("noBegin", "The begin is no time (type seconds or h:mm:ss)");
    }
    if (ui.rbState->isChecked() && !ParseSeconds(ui.edDuration->text())) {
        return EventText("noDuration", "The duration is no time (type seconds or h:mm:ss)");
    }
    QString reason = QString::fromStdString(editor.WhyNot(typed));
    return reason.isEmpty() ? reason : reason.front().toUpper() + reason.mid(1);
}

EventDialog::EventDialog(HWND parent, const EventEditor& editor, const EventRecord& event, Purpose purpose)
    : TForm(parent), impl_(std::make_unique<Impl>(editor, event)) {
    Ui::TFormEvent& ui = impl_->ui;
    ui.setupUi(this);
    owl::TranslateForm(*this, PModule::Named("Orvanta"), kSection);
    setWindowTitle(purpose == Purpose::Add ? EventText("addTitle", "Add Event")
                                           : EventText("changeTitle", "Change Event"));
    ui.btOk->setIcon(owl::IconOf(QStringLiteral("ok")));
    ui.btCancel->setIcon(owl::IconOf(QStringLiteral("cancel")));
    constexpr int kProblemLines = 3;
    ui.lbProblem->setMinimumHeight(kProblemLines * ui.lbProblem->fontMetrics().lineSpacing());
    ui.cbLabel->addItems(KnownLabels(editor.Events()));
    const XTime begin = *event.Interval.GetBeginPtr();
    const XTime end = *event.Interval.GetEndPtr();
    ui.cbLabel->setEditText(QString::fromStdString(event.Label));
    ui.cbLabel->lineEdit()->selectAll();
    ui.edBegin->setText(SecondsText(begin));
    ui.edDuration->setText(SecondsText(XTime::FromNanoseconds(end.Nanoseconds() - begin.Nanoseconds())));
    (event.Class == EventClass::State ? ui.rbState : ui.rbSpot)->setChecked(true);
    connect(ui.rbState, &QRadioButton::toggled, this, [this](bool state) {
        QLineEdit& duration = *impl_->ui.edDuration;
        const std::optional<XTime> typed = ParseSeconds(duration.text());
        if (state && (!typed || *typed <= XTime())) {
            duration.setText(SecondsText(XTime::FromSeconds(kUsualSeconds)));
        }
        Check();
    });
    connect(ui.cbLabel, &QComboBox::editTextChanged, this, [this] { Check(); });
    connect(ui.edBegin, &QLineEdit::textChanged, this, [this] { Check(); });
    connect(ui.edDuration, &QLineEdit::textChanged, this, [this] { Check(); });
    connect(ui.btOk, &QPushButton::clicked, this, [this] { accept(); });
    connect(ui.btCancel, &QPushButton::clicked, this, [this] { reject(); });
    SetCancelButton(ui.btCancel);
    Check();
}

EventDialog::~EventDialog() = default;

EventRecord EventDialog::GetEvent() const {
    const Ui::TFormEvent& ui = impl_->ui;
    EventRecord event = impl_->first;
    event.Label = ui.cbLabel->currentText().trimmed().toStdString();
    event.Class = ui.rbState->isChecked() ? EventClass::State : EventClass::Spot;
    const XTime begin = ParseSeconds(ui.edBegin->text()).value_or(XTime());
    const XTime duration =
        ui.rbState->isChecked() ? ParseSeconds(ui.edDuration->text()).value_or(XTime()) : XTime();
    event.Interval = {begin, XTime::FromNanoseconds(begin.Nanoseconds() + duration.Nanoseconds())};
    return event;
}

void EventDialog::Check() {
    const Ui::TFormEvent& ui = impl_->ui;
    const EventRecord typed = GetEvent();
    const QString problem = impl_->Problem(typed);
    ui.edDuration->setEnabled(ui.rbState->isChecked());
    ui.lbProblem->setText(problem);
    ui.btOk->setEnabled(problem.isEmpty());
    const EEGFileInfoType& recording = impl_->editor.GetRecording();
    QString clock = ClockText(recording, *typed.Interval.GetBeginPtr());
    if (typed.Class == EventClass::State) {
        clock += QStringLiteral(" \u2013 ") + ClockText(recording, *typed.Interval.GetEndPtr());
    }
    ui.lbClock->setText(clock);
}

std::optional<std::size_t> AddWithDialog(HWND parent, EventEditor& editor, const EventRecord& suggested) {
    EventDialog dialog(parent, editor, suggested, EventDialog::Purpose::Add);
    if (dialog.ShowModal() != owl::kIdOk) {
        return std::nullopt;
    }
    return editor.Add(dialog.GetEvent());
}

std::optional<std::size_t> ChangeWithDialog(HWND parent, EventEditor& editor, std::size_t event) {
    if (!editor.IsOwn(event)) {
        Gui().ShowWarning(EventText("notOwn", "This event is in the recording itself and cannot be changed.")
                              .toStdString());
        return std::nullopt;
    }
    const EventRecord before = editor.Events()[event];
    EventDialog dialog(parent, editor, before, EventDialog::Purpose::Change);
    if (dialog.ShowModal() != owl::kIdOk || dialog.GetEvent() == before) {
        return std::nullopt;
    }
    return editor.Replace(event, dialog.GetEvent());
}

} // namespace orvanta::review

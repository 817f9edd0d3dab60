// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/channels_dialog.h"

#include "host/review/app/traces/trace_group.h"
#include "host/toolkit/form_texts.h"
#include "host/toolkit/message_module.h"
#include "ui_trace_channels.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPushButton>

namespace orvanta::review {

namespace {

constexpr int kShown = 0;
constexpr int kType = 1;
constexpr int kBad = 2;
constexpr int kRowPadding = 6;

} // namespace

ChannelsDialog::ChannelsDialog(HWND parent, const std::vector<TraceChannel>& channels,
                               const std::set<std::string>& hidden)
    : TForm(parent), ui_(std::make_unique<Ui::TFormTraceChannels>()) {
    ui_->setupUi(this);
    owl::TranslateForm(*this, PModule::Named("Orvanta"), "TFormTraceChannels");
    for (const TraceChannel& channel : channels) {
        auto* row = new QTreeWidgetItem(ui_->List);
        row->setSizeHint(kShown, {0, ui_->List->fontMetrics().height() + kRowPadding});
        row->setText(kShown, QString::fromStdString(channel.name));
        row->setText(kType, NameOf(GroupOf(channel.type)));
        row->setCheckState(kShown, hidden.contains(channel.name) ? Qt::Unchecked : Qt::Checked);
        row->setCheckState(kBad, channel.bad ? Qt::Checked : Qt::Unchecked);
    }
    ui_->List->header()->setSectionResizeMode(kShown, QHeaderView::Stretch);
    ui_->List->header()->setSectionResizeMode(kType, QHeaderView::ResizeToContents);
    ui_->List->header()->setSectionResizeMode(kBad, QHeaderView::ResizeToContents);
    ui_->List->header()->setStretchLastSection(false);
    ui_->List->setCurrentItem(ui_->List->topLevelItem(0));
    ui_->List->installEventFilter(this);
    SetCancelButton(ui_->Buttons->button(QDialogButtonBox::Cancel));
    connect(ui_->ButtonAll, &QPushButton::clicked, this, [this] { SetAll(kShown, Qt::Checked); });
    connect(ui_->ButtonNone, &QPushButton::clicked, this, [this] { SetAll(kShown, Qt::Unchecked); });
    connect(ui_->ButtonGood, &QPushButton::clicked, this, [this] { SetAll(kBad, Qt::Unchecked); });
    connect(ui_->Buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(ui_->Buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

ChannelsDialog::~ChannelsDialog() = default;

std::set<std::string> ChannelsDialog::NamesWith(int column, Qt::CheckState state) const {
    std::set<std::string> names;
    for (int i = 0; i < ui_->List->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* row = ui_->List->topLevelItem(i);
        if (row->checkState(column) == state) {
            names.insert(row->text(kShown).toStdString());
        }
    }
    return names;
}

std::set<std::string> ChannelsDialog::Hidden() const {
    return NamesWith(kShown, Qt::Unchecked);
}

std::set<std::string> ChannelsDialog::Bad() const {
    return NamesWith(kBad, Qt::Checked);
}

void ChannelsDialog::SetAll(int column, Qt::CheckState state) {
    for (int i = 0; i < ui_->List->topLevelItemCount(); ++i) {
        ui_->List->topLevelItem(i)->setCheckState(column, state);
    }
}

void ChannelsDialog::ToggleSelected(int column) {
    const QList<QTreeWidgetItem*> rows = ui_->List->selectedItems();
    if (rows.isEmpty()) {
        return;
    }
    const Qt::CheckState state =
        rows.front()->checkState(column) == Qt::Checked ? Qt::Unchecked : Qt::Checked;
    for (QTreeWidgetItem* row : rows) {
        row->setCheckState(column, state);
    }
}

bool ChannelsDialog::eventFilter(QObject* object, QEvent* event) {
    if (object == ui_->List && event->type() == QEvent::KeyPress) {
        const auto& key = static_cast<const QKeyEvent&>(*event);
        if (key.modifiers() == Qt::NoModifier && (key.key() == Qt::Key_Space || key.key() == Qt::Key_B)) {
            ToggleSelected(key.key() == Qt::Key_Space ? kShown : kBad);
            return true;
        }
    }
    return TForm::eventFilter(object, event);
}

} // namespace orvanta::review

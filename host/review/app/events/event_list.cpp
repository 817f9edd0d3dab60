// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/events/event_list.h"

#include "host/platform/atomic_file.h"
#include "host/review/app/events/event_dialog.h"
#include "host/review/app/events/event_model.h"
#include "host/review/app/events/event_texts.h"
#include "host/review/app/gui.h"
#include "host/signal_base/events_tsv/events_writer.h"
#include "host/toolkit/form_texts.h"
#include "host/toolkit/icon.h"
#include "host/toolkit/message_module.h"
#include "host/toolkit/modal_gateway.h"
#include "ui_event_list.h"

#include <QAction>
#include <QFontMetrics>
#include <QHeaderView>
#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <exception>
#include <filesystem>
#include <optional>
#include <utility>

namespace orvanta::review {

namespace {

constexpr const char* kSection = "TFormEventList";

/// Gives every column the room that its texts need, the labels what is left.
void FitColumns(QTreeView& list) {
    const QStringList widest[kEventColumns] = {
        {"00:00:00.000"},
        {"00000.000"},
        {"0000.000"},
        {},
        {ClassText(EventClass::Spot), ClassText(EventClass::State)},
        {SourceText(EventSource::Table), SourceText(EventSource::Recording)}};
    constexpr int kSides = 2; // margins of a cell, in characters
    const QFontMetrics metrics = list.fontMetrics();
    for (int column = 0; column < kEventColumns; ++column) {
        int width = metrics.horizontalAdvance(list.model()->headerData(column, Qt::Horizontal).toString());
        for (const QString& text : widest[column]) {
            width = std::max(width, metrics.horizontalAdvance(text));
        }
        list.setColumnWidth(column, width + kSides * metrics.averageCharWidth());
    }
    list.header()->setStretchLastSection(false);
    list.header()->setSectionResizeMode(static_cast<int>(EventColumn::Label), QHeaderView::Stretch);
    // What a narrow list has room for, the label beside the time.
    list.header()->moveSection(static_cast<int>(EventColumn::Label), 1);
    for (const EventColumn column : {EventColumn::Seconds, EventColumn::Class, EventColumn::Source}) {
        list.setColumnHidden(static_cast<int>(column), true);
    }
}

/// The menu at the titles lets the user choose the columns; the labels always stay.
void OfferColumns(QTreeView& list) {
    QHeaderView& header = *list.header();
    header.setContextMenuPolicy(Qt::ActionsContextMenu);
    for (int column = 0; column < kEventColumns; ++column) {
        if (column != static_cast<int>(EventColumn::Label)) {
            auto* action = new QAction(list.model()->headerData(column, Qt::Horizontal).toString(), &header);
            action->setCheckable(true);
            action->setChecked(!list.isColumnHidden(column));
            QObject::connect(action, &QAction::toggled, &list,
                             [&list, column](bool shown) { list.setColumnHidden(column, !shown); });
            header.addAction(action);
        }
    }
}

/// A text in the middle of the list, for one that is empty.
QLabel* AddHint(QTreeView& list) {
    auto* hint = new QLabel(list.viewport());
    hint->setObjectName(QStringLiteral("lbHint"));
    hint->setAlignment(Qt::AlignCenter);
    hint->setWordWrap(true);
    hint->setTextFormat(Qt::PlainText);
    hint->setForegroundRole(QPalette::PlaceholderText);
    hint->setAttribute(Qt::WA_TransparentForMouseEvents);
    (new QVBoxLayout(list.viewport()))->addWidget(hint);
    return hint;
}

/// "Deletes the selected events (Del)"
QString TipWithKey(const QString& tip, const QList<QKeySequence>& keys) {
    return keys.isEmpty() ? tip : tip + " (" + keys.first().toString(QKeySequence::NativeText) + ')';
}

} // namespace

/// Lists anew when the events have changed.
class EventListPanel::Follower final : public FlagListener {
public:
    explicit Follower(EventListPanel& panel, EventEditor& editor)
        : FlagListener("event list", editor.GetChangedFlag()), panel_(panel) {}
    void PerformAction() override;

private:
    EventListPanel& panel_;
};

struct EventListPanel::Impl {
    Impl(EventListPanel& panel, EventEditor& events, std::function<void(const XTimeInterval&)> follow)
        : editor(events), goTo(std::move(follow)), model(events), follower(panel, events) {}

    EventEditor& editor;
    std::function<void(const XTimeInterval&)> goTo;
    Ui::TFormEventList ui;
    EventModel model;
    Follower follower;
    QLabel* hint = nullptr;            ///< of the list
    std::optional<EventRecord> chosen; ///< the one that is selected alone
    int topRow = 0;
    bool quiet = false; ///< what is selected now was not chosen by the user
};

void EventListPanel::Follower::PerformAction() {
    panel_.impl_->model.Refresh();
}

EventListPanel::EventListPanel(QWidget* parent, EventEditor& editor,
                               std::function<void(const XTimeInterval&)> goTo)
    : QWidget(parent), impl_(std::make_unique<Impl>(*this, editor, std::move(goTo))) {
    impl_->ui.setupUi(this);
    owl::TranslateForm(*this, PModule::Named("Orvanta"), kSection);
    SetUpControls();
    AddCommands();
    ShowState();
}

EventListPanel::~EventListPanel() = default;

void EventListPanel::SetUpControls() {
    Ui::TFormEventList& ui = impl_->ui;
    ui.tvEvents->header()->setSortIndicator(static_cast<int>(EventColumn::Clock), Qt::AscendingOrder);
    ui.tvEvents->setAccessibleName(windowTitle());
    ui.cbKind->setAccessibleName(EventText("class", "Kind"));
    ui.tvEvents->setModel(&impl_->model);
    FitColumns(*ui.tvEvents);
    OfferColumns(*ui.tvEvents);
    impl_->hint = AddHint(*ui.tvEvents);
    const auto filter = [this] {
        const Ui::TFormEventList& form = impl_->ui;
        impl_->model.SetFilter(
            {form.edFilter->text().trimmed(), static_cast<EventKind>(form.cbKind->currentIndex())});
    };
    connect(ui.edFilter, &QLineEdit::textChanged, this, filter);
    connect(ui.cbKind, &QComboBox::currentIndexChanged, this, filter);
    FollowSelection();
}

void EventListPanel::FollowSelection() {
    QTreeView& list = *impl_->ui.tvEvents;
    const auto go = [this](const QModelIndex& row) {
        // A list that gets the focus makes its first row the current one, and does not select it.
        const bool selected = row.isValid() && impl_->ui.tvEvents->selectionModel()->isSelected(row);
        if (selected && !impl_->quiet && impl_->goTo) {
            impl_->goTo(impl_->editor.Events()[impl_->model.EventAt(row.row())].Interval);
        }
    };
    connect(list.selectionModel(), &QItemSelectionModel::currentChanged, this, go);
    connect(&list, &QTreeView::clicked, this, go); // also on the row where the user is already
    connect(list.selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        const std::vector<std::size_t> selected = SelectedEvents();
        impl_->chosen =
            selected.size() == 1 ? std::optional(impl_->editor.Events()[selected.front()]) : std::nullopt;
        ShowState();
    });
    connect(&impl_->model, &EventModel::modelAboutToBeReset, this,
            [this] { impl_->topRow = impl_->ui.tvEvents->indexAt({}).row(); });
    connect(&impl_->model, &EventModel::modelReset, this, [this] { SelectAgain(impl_->topRow); });
}

void EventListPanel::AddCommands() {
    const Ui::TFormEventList& ui = impl_->ui;
    const struct {
        QToolButton* button;
        const char* icon;
        void (EventListPanel::*run)();
        QList<QKeySequence> keys;
    } commands[] = {
        {ui.btAdd, "new", &EventListPanel::AddEvent, {Qt::Key_Insert}},
        {ui.btEdit, "edit", &EventListPanel::EditEvent, {Qt::Key_Return, Qt::Key_Enter}},
        {ui.btDelete, "erase", &EventListPanel::DeleteEvents, {QKeySequence::Delete}},
        {ui.btExport, "save_as", &EventListPanel::ExportEvents, {}},
    };
    for (const auto& command : commands) {
        const auto run = [this, member = command.run] { Try([this, member] { (this->*member)(); }); };
        command.button->setIcon(owl::IconOf(QString::fromLatin1(command.icon)));
        command.button->setToolTip(TipWithKey(command.button->toolTip(), command.keys));
        connect(command.button, &QToolButton::clicked, this, run);
        auto* action = new QAction(command.button->icon(), command.button->text(), ui.tvEvents);
        action->setShortcuts(command.keys);
        action->setShortcutContext(Qt::WidgetShortcut);
        action->setData(QVariant::fromValue<QWidget*>(command.button));
        connect(action, &QAction::triggered, this, run);
        ui.tvEvents->addAction(action);
    }
    auto* search = new QAction(this);
    search->setShortcut(QKeySequence::Find);
    search->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(search, &QAction::triggered, ui.edFilter, [edit = ui.edFilter] { edit->setFocus(); });
    addAction(search);
    connect(ui.edFilter, &QLineEdit::returnPressed, this, [this] { FocusList(); });
    connect(ui.tvEvents, &QTreeView::doubleClicked, this, [this] { Try([this] { EditEvent(); }); });
}

void EventListPanel::Try(const std::function<void()>& command) {
    try {
        command();
    } catch (const std::exception& error) {
        Gui().ShowError(error.what());
    }
}

void EventListPanel::SelectAgain(int topRow) {
    const std::vector<EventRecord>& events = impl_->editor.Events();
    QTreeView& list = *impl_->ui.tvEvents;
    list.scrollTo(impl_->model.index(topRow, 0), QAbstractItemView::PositionAtTop);
    if (impl_->chosen) {
        const auto same = std::find(events.begin(), events.end(), *impl_->chosen);
        impl_->chosen.reset();
        if (same != events.end()) {
            SelectEvent(static_cast<std::size_t>(same - events.begin()));
        }
    }
    ShowState();
}

void EventListPanel::SelectEvent(std::size_t event) {
    if (const std::optional<int> row = impl_->model.RowOf(event)) {
        impl_->quiet = true;
        impl_->ui.tvEvents->setCurrentIndex(impl_->model.index(*row, 0));
        impl_->quiet = false;
    }
}

std::vector<std::size_t> EventListPanel::SelectedEvents() const {
    std::vector<std::size_t> events;
    for (const QModelIndex& row : impl_->ui.tvEvents->selectionModel()->selectedRows()) {
        events.push_back(impl_->model.EventAt(row.row()));
    }
    std::sort(events.begin(), events.end());
    return events;
}

void EventListPanel::ShowState() {
    const Ui::TFormEventList& ui = impl_->ui;
    const std::vector<std::size_t> selected = SelectedEvents();
    const auto isOwn = [this](std::size_t event) { return impl_->editor.IsOwn(event); };
    ui.btEdit->setEnabled(selected.size() == 1 && isOwn(selected.front()));
    ui.btDelete->setEnabled(std::any_of(selected.begin(), selected.end(), isOwn));
    ui.btExport->setEnabled(impl_->model.rowCount() > 0);
    for (QAction* action : ui.tvEvents->actions()) {
        action->setEnabled(action->data().value<QWidget*>()->isEnabledTo(this));
    }
    impl_->hint->setText(impl_->editor.Events().empty()
                             ? EventText("noEvents", "No events yet. Drag over the traces, or press M where "
                                                     "the mouse is, to mark one.")
                             : EventText("noMatch", "No event is of this label and kind."));
    impl_->hint->setVisible(impl_->model.rowCount() == 0);
    ui.lbCount->setText(EventText("count", "%L1 of %L2, %L3 selected")
                            .arg(impl_->model.rowCount())
                            .arg(impl_->editor.Events().size())
                            .arg(selected.size()));
}

void EventListPanel::FocusList() {
    impl_->ui.tvEvents->setFocus();
}

std::string EventListPanel::Columns() const {
    return impl_->ui.tvEvents->header()->saveState().toBase64().toStdString();
}

void EventListPanel::RestoreColumns(const std::string& columns) {
    QHeaderView& header = *impl_->ui.tvEvents->header();
    header.restoreState(QByteArray::fromBase64(QByteArray::fromStdString(columns)));
    int column = 0;
    for (QAction* action : header.actions()) {
        column += column == static_cast<int>(EventColumn::Label) ? 1 : 0;
        action->setChecked(!header.isSectionHidden(column++));
    }
}

void EventListPanel::AddEvent() {
    const XTime now = *impl_->editor.GetRecording().GetTraceCursor()->GetStartRecTime();
    if (const auto added = AddWithDialog(HWND(this), impl_->editor, {{}, EventClass::Spot, {now, now}})) {
        SelectEvent(*added);
    }
}

void EventListPanel::EditEvent() {
    const std::vector<std::size_t> selected = SelectedEvents();
    if (selected.size() != 1) {
        return;
    }
    if (const auto changed = ChangeWithDialog(HWND(this), impl_->editor, selected.front())) {
        SelectEvent(*changed);
    }
}

void EventListPanel::DeleteEvents() {
    std::vector<std::size_t> own = SelectedEvents();
    std::erase_if(own, [this](std::size_t event) { return !impl_->editor.IsOwn(event); });
    impl_->editor.Remove(own);
}

void EventListPanel::ExportEvents() {
    const auto path = owl::CurrentModalGateway().AskFileToSave(
        HWND(this),
        {.title = {},
         .filter = EventText("tables", "Events table|*.tsv").toStdString(),
         .extension = "tsv",
         .folder = {},
         .name = std::filesystem::path(impl_->editor.GetRecording().GetFileNameText()).stem().string() +
                 "_all_events.tsv"});
    if (!path) {
        return;
    }
    std::vector<std::size_t> listed;
    for (int row = 0; row < impl_->model.rowCount(); ++row) {
        listed.push_back(impl_->model.EventAt(row));
    }
    std::sort(listed.begin(), listed.end());
    std::vector<EventRecord> events;
    for (const std::size_t event : listed) {
        events.push_back(impl_->editor.Events()[event]);
        events.back().Source = EventSource::Table;
        events.back().Line = 0;
    }
    platform::WriteFileAtomically(*path, signal::WriteEventsTable({}, *path, events));
}

} // namespace orvanta::review

// SPDX-License-Identifier: GPL-3.0-or-later
#include "side_bar/macro_selection_form.h"

#include "host/toolkit/form_texts.h"
#include "host/toolkit/icon.h"
#include "host/toolkit/message_module.h"
#include "host/toolkit/modal_gateway.h"
#include "host/toolkit/services.h"
#include "side_bar/description.h"
#include "side_bar/macro_refusal.h"
#include "side_bar/spectrum_macro_form.h"
#include "side_bar/texts.h"
#include "spectra_contract/platform.h"
#include "spectra_contract/spectra_macro.h"
#include "ui_macro_selection.h"

#include <QKeyEvent>
#include <QSignalBlocker>

#include <algorithm>
#include <cstdio>
#include <sstream>
#include <utility>

using orvanta::side_bar::FillIn;
using orvanta::side_bar::MacroText;

namespace {

constexpr int kModeNew = 1;
constexpr int kModeEdit = 2;
constexpr std::size_t kQuestionLimit = 255;
/// Narrower than this the description stands below the list.
constexpr int kWidthForTwoColumns = 400;

/// Quiet text in the middle of a list that has no rows.
void AddPlaceholder(QListWidget& list) {
    auto* text = new QLabel(QStringLiteral("No macros yet. Press New to make one."));
    text->setObjectName(QStringLiteral("LabelNoMacros"));
    text->setForegroundRole(QPalette::PlaceholderText);
    text->setAlignment(Qt::AlignCenter);
    text->setWordWrap(true);
    text->setAttribute(Qt::WA_TransparentForMouseEvents);
    auto* rows = new QVBoxLayout(list.viewport());
    rows->addWidget(text);
}

} // namespace

TFormMacroSpectra::TFormMacroSpectra(QWidget* owner, HWND parent, SpectraMacro* macro, EventsManager* events,
                                     const SensorList& sensors, int mode, const GenericPlatform* platform)
    : TForm(parent ? parent : HWND(owner)), ui_(std::make_unique<Ui::TFormMacroSpectra>()),
      parent_(parent ? parent : HWND(owner)), macro_(macro), events_(events), sensors_(sensors),
      openedAsNew_(mode == kModeNew), active_(mode != 0) {
    const std::string folder = platform != nullptr ? platform->GetAppFolder("MACRO") : std::string();
    std::snprintf(searchMask_.data(), searchMask_.size(), "%s*%s", folder.c_str(), kExtension);
    std::snprintf(macroFolder_.data(), macroFolder_.size(), "%s", folder.c_str());
    ui_->setupUi(this);
    AddPlaceholder(*ui_->ListBoxMacro);
    SetUpControls();
    owl::TranslateForm(*this, PModule::Named("Orvanta"), "TFormMacroSpectra");
    setWindowTitle(QString::fromStdString(MacroText("CAPTION_DEFAULT", "Spectra Manager (Default)")));
    MakeRoomForCaptions();
    FillList();
}

TFormMacroSpectra::~TFormMacroSpectra() = default;

void TFormMacroSpectra::SetUpControls() {
    const auto onClick = [this](QPushButton* button, void (TFormMacroSpectra::*handler)()) {
        connect(button, &QPushButton::clicked, this, [this, handler] { (this->*handler)(); });
    };
    onClick(ui_->BitBtnNew, &TFormMacroSpectra::BitBtnNewClick);
    onClick(ui_->BitBtnEdit, &TFormMacroSpectra::BitBtnEditClick);
    onClick(ui_->BitBtnErase, &TFormMacroSpectra::BitBtnEraseClick);
    onClick(ui_->BtnAutoAverage, &TFormMacroSpectra::BtnAutoAverageClick);
    onClick(ui_->BtnManualAverage, &TFormMacroSpectra::BtnManualAverageClick);
    onClick(ui_->BtnCancel, &TFormMacroSpectra::BtnCancelClick);
    SetCancelButton(ui_->BtnCancel);

    QListWidget* list = ui_->ListBoxMacro;
    // A press on another row selects it, which loads it, before it is told as a press; the click that follows
    // has nothing left to do. A press on the selected row is followed by a click that loads it again.
    connect(list, &QListWidget::itemSelectionChanged, this, [this] {
        loadedBySelection_ = true;
        ListBoxMacroClick();
    });
    connect(list, &QListWidget::pressed, this,
            [this] { loadedByPress_ = std::exchange(loadedBySelection_, false); });
    connect(list, &QListWidget::clicked, this, [this] {
        if (!loadedByPress_) {
            ListBoxMacroClick();
        }
    });
    connect(list, &QListWidget::doubleClicked, this, [this] { ListBoxMacroDblClick(); });
    list->installEventFilter(this);
}

void TFormMacroSpectra::MakeRoomForCaptions() {
    for (QPushButton* button : {ui_->BitBtnNew, ui_->BitBtnEdit, ui_->BitBtnErase}) {
        const int caption = button->fontMetrics().size(Qt::TextShowMnemonic, button->text()).width();
        button->setMinimumWidth(
            std::max(button->minimumWidth(),
                     caption + button->style()->pixelMetric(QStyle::PM_ButtonMargin, nullptr, button)));
    }
    ui_->libraryButtons->invalidate(); // what it has reckoned with is no longer so
    const int margins = layout()->contentsMargins().left() + layout()->contentsMargins().right();
    const int needed =
        std::max(ui_->libraryButtons->minimumSize().width(), ui_->endButtons->minimumSize().width());
    setMinimumWidth(std::max(minimumWidth(), needed + margins));
}

/// In a narrow form the captions take the room.
void TFormMacroSpectra::ShowIcons(bool shown) {
    const std::pair<QPushButton*, const char*> icons[] = {{ui_->BitBtnNew, "new"},
                                                          {ui_->BitBtnEdit, "edit"},
                                                          {ui_->BitBtnErase, "erase"},
                                                          {ui_->BtnAutoAverage, "ok"},
                                                          {ui_->BtnCancel, "cancel"}};
    for (const auto& [button, name] : icons) {
        button->setIcon(shown ? owl::IconOf(QString(name)) : QIcon());
    }
}

std::string TFormMacroSpectra::GetCaption() const {
    return windowTitle().toStdString();
}

void TFormMacroSpectra::FillList() {
    QListWidget* list = ui_->ListBoxMacro;
    const int row = SelectedRow();
    const QSignalBlocker silent(list); // what is selected again is not loaded again
    loadedBySelection_ = false;
    list->clear();
    const std::string folder = GetMacroFolder();
    if (!folder.empty()) {
        for (const std::string& file : owl::CurrentServices().files->FilesIn(folder, kExtension)) {
            const std::string name = file.substr(0, file.size() - std::char_traits<char>::length(kExtension));
            if (!name.empty()) {
                list->addItem(QString::fromStdString(name));
            }
        }
    }
    list->setCurrentRow(row);
    ui_->BitBtnEdit->setEnabled(SelectedRow() >= 0);
    list->findChild<QLabel*>(QStringLiteral("LabelNoMacros"))->setVisible(list->count() == 0);
}

int TFormMacroSpectra::SelectedRow() const {
    const QModelIndexList rows = ui_->ListBoxMacro->selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : rows.first().row();
}

std::string TFormMacroSpectra::SelectedName() const {
    return ui_->ListBoxMacro->item(SelectedRow())->text().toStdString();
}

std::string TFormMacroSpectra::SelectedPath() const {
    constexpr std::size_t kLongest = 259;
    const std::string path = GetMacroFolder() + SelectedName() + kExtension;
    // Cut, it could be the path of another macro.
    return path.size() <= kLongest ? path : std::string();
}

void TFormMacroSpectra::Describe() {
    std::ostringstream text;
    macro_->GetLongDescrStr(text);
    orvanta::side_bar::ShowDescription(*ui_->Memo1, text.str());
}

void TFormMacroSpectra::ListBoxMacroClick() {
    ui_->Memo1->clear();
    if (SelectedRow() < 0) {
        ui_->BitBtnEdit->setEnabled(false);
        return;
    }
    const std::string path = SelectedPath();
    const int loaded = macro_->Load(path);
    setWindowTitle(QString::fromStdString(
        FillIn(MacroText("CAPTION_LOADED", "Spectra Manager ( %s )"), {SelectedName()})));
    if (loaded != 0) {
        owl::CurrentModalGateway().ShowMessage(
            GetHandle(), MacroText("NO_MATCHED_EVENTS", "No Matched Events. Default selection made"),
            MacroText("WARNING", "Warning"), owl::kMbIconExclamation);
    }
    macroLoaded_ = true;
    if (macro_->GetLastError().empty()) {
        Describe();
    } else {
        // Nothing was loaded: what is wrong with the file, and not the settings from before.
        ui_->Memo1->setPlainText(QString::fromStdString(
            FillIn(MacroText("NOT_LOADED",
                             "The file of this macro cannot be read. The settings are as before.\n\n%s"),
                   {path.empty() ? MacroText("NAME_TOO_LONG", "File name too long")
                                 : orvanta::side_bar::MacroRefusal(macro_->GetLastError(), path)})));
    }
    ui_->BitBtnEdit->setEnabled(SelectedRow() >= 0);
}

void TFormMacroSpectra::ListBoxMacroDblClick() {
    BtnAutoAverageClick();
}

bool TFormMacroSpectra::EditMacro(int mode) {
    TFormSpectrumMacro settings(GetHandle(), GetMacroFolder(), macro_, events_, sensors_, mode);
    if (settings.ShowModal() != owl::kIdOk) {
        return false;
    }
    FillList();
    if (!macro_->GetFileName().empty() && !macro_->GetLastError().empty()) {
        // The settings form is silent about it.
        ui_->Memo1->setPlainText(QString::fromStdString(
            FillIn(MacroText("NOT_SAVED", "The changes could not be saved. They count until another macro is "
                                          "loaded.\n\n%s"),
                   {macro_->GetLastError()})));
        return false;
    }
    return true;
}

void TFormMacroSpectra::BitBtnNewClick() {
    EditMacro(kModeNew);
}

void TFormMacroSpectra::BitBtnEditClick() {
    if (SelectedRow() < 0) {
        return;
    }
    const std::string path = SelectedPath();
    macro_->Load(path);
    // "Average" here, "Spectra" on a click: the titles have always differed.
    setWindowTitle(QString::fromStdString(
        FillIn(MacroText("CAPTION_EDITED", "Average Manager ( %s )"), {SelectedName()})));
    if (EditMacro(kModeEdit) && macro_->GetFileName() == path) {
        Describe();
    }
}

void TFormMacroSpectra::BitBtnEraseClick() {
    if (SelectedRow() < 0) {
        return;
    }
    const std::string path = SelectedPath(); // what is asked about, whatever is selected by then
    const std::string question =
        FillIn(MacroText("ERASE", "Are you sure to delete the file:\n%s?"), {SelectedName()})
            .substr(0, kQuestionLimit);
    if (owl::CurrentModalGateway().ShowMessage(GetHandle(), question, MacroText("WARNING", "Warning"),
                                               owl::kMbYesNo + owl::kMbIconExclamation) != owl::kIdYes) {
        return;
    }
    owl::CurrentServices().files->Remove(path); // a failure shows by the row that stays
    FillList();
    ui_->Memo1->clear();
}

void TFormMacroSpectra::BtnAutoAverageClick() {
    result_ = 1;
    accept();
}

void TFormMacroSpectra::BtnManualAverageClick() {
    result_ = 2;
    accept();
}

void TFormMacroSpectra::BtnCancelClick() {
    result_ = 0;
    active_ = false;
    reject();
}

bool TFormMacroSpectra::eventFilter(QObject* watched, QEvent* event) {
    QListWidget* list = ui_->ListBoxMacro;
    if (watched == list && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Delete) {
            BitBtnEraseClick();
            return true;
        }
        if (SelectedRow() < 0 && (key == Qt::Key_Down || key == Qt::Key_Up)) {
            // A list that got the focus has a current row already, which the key would leave unselected.
            list->setCurrentRow(std::max(list->currentRow(), 0), QItemSelectionModel::ClearAndSelect);
            return true;
        }
    }
    return TForm::eventFilter(watched, event);
}

void TFormMacroSpectra::resizeEvent(QResizeEvent* event) {
    const bool twoColumns = width() >= kWidthForTwoColumns;
    ui_->splitter->setOrientation(twoColumns ? Qt::Horizontal : Qt::Vertical);
    ShowIcons(twoColumns);
    // Room for the captions of the buttons, as long as there is room at all.
    ui_->library->setMinimumWidth(twoColumns ? ui_->libraryButtons->sizeHint().width() : 0);
    TForm::resizeEvent(event);
}

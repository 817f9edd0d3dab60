// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/montage/montage_editor.h"

#include "host/review/app/gui.h"
#include "host/review/app/montage/montage_draft.h"
#include "host/review/app/montage/montage_texts.h"
#include "host/signal_base/montage/montage_file.h"
#include "host/toolkit/form_texts.h"
#include "host/toolkit/icon.h"
#include "host/toolkit/message_module.h"
#include "host/toolkit/modal_gateway.h"
#include "spectra_contract/recording.h"
#include "ui_montage_editor.h"

#include <QFontDatabase>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTextBlock>

namespace orvanta::review {

namespace {

constexpr const char* kExample = "Fp1-F3 = +Fp1 -F3\n";

/// Channels to begin with: those in use, or those of the recording where an average is subtracted.
std::string FirstText(const EEGFileInfoType* recording) {
    if (recording == nullptr) {
        return kExample;
    }
    const MontageType& used = recording->GetTraceInfo()->GetMtg();
    const bool average = used.GetKind() == MontageType::Kind::AverageReference;
    return signal::FormatMontage(average ? *recording->GetMontageList()->GetUniMtg() : used);
}

/// Marks a line, counted from 1; 0 marks none.
void MarkLine(QPlainTextEdit& edit, std::size_t line) {
    QList<QTextEdit::ExtraSelection> marks;
    const QTextBlock block = edit.document()->findBlockByNumber(static_cast<int>(line) - 1);
    if (line > 0 && block.isValid()) {
        QTextEdit::ExtraSelection mark;
        mark.cursor = QTextCursor(block);
        QColor tint = edit.palette().color(QPalette::Highlight);
        constexpr int kTint = 80; // of 255; the text stays easy to read
        tint.setAlpha(kTint);
        mark.format.setBackground(tint);
        mark.format.setProperty(QTextFormat::FullWidthSelection, true);
        marks << mark;
    }
    edit.setExtraSelections(marks);
}

} // namespace

struct MontageEditor::Impl {
    Impl(std::vector<MontageFile> stored, const EEGFileInfoType* open)
        : first(std::move(stored)), files(first), recording(open) {}

    /// Of the selected montage; none without one.
    MontageFile* Selected() {
        const int row = ui.lvMontages->currentRow();
        return row >= 0 ? &files[static_cast<std::size_t>(row)] : nullptr;
    }
    /// Why another montage than the selected one cannot be stored, with its name.
    QString ProblemElsewhere() const;

    const std::vector<MontageFile> first;
    std::vector<MontageFile> files; ///< rows of the list
    const EEGFileInfoType* recording;
    Ui::TFormMontageEditor ui;
};

QString MontageEditor::Impl::ProblemElsewhere() const {
    for (std::size_t i = 0; i < files.size(); ++i) {
        const MontageProblem problem = WhyNotStored(files, i);
        if (!problem.text.isEmpty() && static_cast<int>(i) != ui.lvMontages->currentRow()) {
            return QString::fromStdString(files[i].name) + ": " + problem.text;
        }
    }
    return {};
}

MontageEditor::MontageEditor(HWND parent, std::vector<MontageFile> files, const EEGFileInfoType* recording)
    : TForm(parent), impl_(std::make_unique<Impl>(std::move(files), recording)) {
    Ui::TFormMontageEditor& ui = impl_->ui;
    ui.setupUi(this);
    owl::TranslateForm(*this, PModule::Named("Orvanta"), "TFormMontageEditor");
    ui.btOk->setIcon(owl::IconOf(QStringLiteral("ok")));
    ui.btCancel->setIcon(owl::IconOf(QStringLiteral("cancel")));
    ui.edChannels->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    constexpr int kProblemLines = 2;
    ui.lbProblem->setMinimumHeight(kProblemLines * ui.lbProblem->fontMetrics().lineSpacing());
    connect(ui.lvMontages, &QListWidget::currentRowChanged, this, [this] { ShowSelected(); });
    connect(ui.edName, &QLineEdit::textChanged, this, [this](const QString& text) {
        impl_->Selected()->name = text.trimmed().toStdString();
        impl_->ui.lvMontages->currentItem()->setText(text.trimmed());
        Check();
    });
    connect(ui.edChannels, &QPlainTextEdit::textChanged, this, [this] {
        impl_->Selected()->text = impl_->ui.edChannels->toPlainText().toStdString();
        Check();
    });
    connect(ui.btNew, &QPushButton::clicked, this, [this] { AddMontage(); });
    connect(ui.btErase, &QPushButton::clicked, this, [this] { EraseSelected(); });
    connect(ui.btOk, &QPushButton::clicked, this, [this] { accept(); });
    connect(ui.btCancel, &QPushButton::clicked, this, [this] { reject(); });
    SetCancelButton(ui.btCancel);
    ShowList(0);
}

MontageEditor::~MontageEditor() = default;

const std::vector<MontageFile>& MontageEditor::Files() const {
    return impl_->files;
}

void MontageEditor::ShowList(int selected) {
    QListWidget& list = *impl_->ui.lvMontages;
    {
        const QSignalBlocker quiet(list);
        list.clear();
        for (const MontageFile& file : impl_->files) {
            list.addItem(QString::fromStdString(file.name));
        }
        list.setCurrentRow(selected);
    }
    ShowSelected();
}

void MontageEditor::ShowSelected() {
    Ui::TFormMontageEditor& ui = impl_->ui;
    const MontageFile* selected = impl_->Selected();
    const MontageFile shown = selected != nullptr ? *selected : MontageFile();
    {
        const QSignalBlocker name(ui.edName);
        const QSignalBlocker channels(ui.edChannels);
        ui.edName->setText(QString::fromStdString(shown.name));
        ui.edChannels->setPlainText(QString::fromStdString(shown.text));
    }
    for (QWidget* control : {static_cast<QWidget*>(ui.edName), static_cast<QWidget*>(ui.edChannels),
                             static_cast<QWidget*>(ui.btErase)}) {
        control->setEnabled(selected != nullptr);
    }
    Check();
}

void MontageEditor::AddMontage() {
    impl_->files.push_back({FreeName(impl_->files), FirstText(impl_->recording)});
    ShowList(static_cast<int>(impl_->files.size()) - 1);
    impl_->ui.edName->setFocus();
    impl_->ui.edName->selectAll();
}

void MontageEditor::EraseSelected() {
    const int row = impl_->ui.lvMontages->currentRow();
    impl_->files.erase(impl_->files.begin() + row);
    ShowList(std::min(row, static_cast<int>(impl_->files.size()) - 1));
    impl_->ui.lvMontages->setFocus();
}

void MontageEditor::Check() {
    Ui::TFormMontageEditor& ui = impl_->ui;
    const int row = ui.lvMontages->currentRow();
    MontageProblem problem =
        row >= 0 ? WhyNotStored(impl_->files, static_cast<std::size_t>(row)) : MontageProblem();
    if (problem.text.isEmpty()) {
        problem.text = impl_->ProblemElsewhere();
    }
    ui.btOk->setEnabled(problem.text.isEmpty());
    if (problem.text.isEmpty() && row >= 0 && impl_->recording != nullptr) {
        problem = WhyNotOffered(*impl_->Selected(), *impl_->recording->GetTraceInfo());
        if (!problem.text.isEmpty()) {
            problem.text = MontageWords("notOffered", "Not for the open recording: %1").arg(problem.text);
        }
    }
    ui.lbProblem->setText(problem.text);
    MarkLine(*ui.edChannels, problem.line);
}

void MontageEditor::reject() {
    if (impl_->files != impl_->first) {
        const QString question = MontageWords("discard", "Discard the changes of the montages?");
        if (owl::CurrentModalGateway().ShowMessage(HWND(this), question.toStdString(), "Orvanta",
                                                   owl::kMbYesNo | owl::kMbIconExclamation) != owl::kIdYes) {
            return;
        }
    }
    TForm::reject();
}

void EditMontages(HWND parent, const std::string& folder, EEGFileInfoType* recording) {
    MontageFiles stored = LoadMontageFiles(folder);
    for (const std::string& problem : stored.problems) {
        Gui().ShowWarning(problem);
    }
    MontageEditor editor(parent, stored.files, recording);
    while (editor.ShowModal() == owl::kIdOk) {
        try {
            StoreMontageFiles(folder, stored.files, editor.Files());
        } catch (const std::runtime_error& error) {
            Gui().ShowError(error.what());
            continue;
        }
        if (recording != nullptr) {
            OfferMontages(*recording, editor.Files());
        }
        return;
    }
}

} // namespace orvanta::review

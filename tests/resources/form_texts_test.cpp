// SPDX-License-Identifier: GPL-3.0-or-later
// The texts of the forms against the message store.
#include "host/toolkit/form_texts.h"
#include "host/toolkit/message_module.h"
#include "host/toolkit/report_list.h"
#include "host/toolkit/spin_edit.h"
#include "tests/resources/designer_texts.h"
#include "tests/resources/message_file.h"

#include <QAbstractButton>
#include <QFileInfo>
#include <QGroupBox>
#include <QLabel>
#include <QLocale>
#include <gtest/gtest.h>

#include "ui_1625.h"
#include "ui_1626.h"
#include "ui_1627.h"
#include "ui_1628.h"
#include "ui_1629.h"
#include "ui_1631.h"
#include "ui_1634.h"
#include "ui_event.h"
#include "ui_event_list.h"
#include "ui_export_form.h"
#include "ui_go_to_time.h"
#include "ui_macro_selection.h"
#include "ui_map_palette.h"
#include "ui_map_settings.h"
#include "ui_montage_editor.h"
#include "ui_regression_panel.h"
#include "ui_regression_results.h"
#include "ui_spectrum_macro.h"
#include "ui_trace_channels.h"

#include <string>
#include <vector>

namespace {

using orvanta::test::DesignerTexts;
using orvanta::test::ShippedTexts;
using orvanta::test::WithoutMnemonic;

std::vector<std::string> Forms() {
    std::vector<std::string> files;
    for (const QString& file : orvanta::test::DesignerFiles()) {
        files.push_back(file.toStdString());
    }
    return files;
}

class FormTexts : public testing::TestWithParam<std::string> {
protected:
    DesignerTexts form_ = orvanta::test::ReadDesignerTexts(GetParam().c_str());
};

TEST_P(FormTexts, AllHaveAKeyAndSayTheSameInEnglish) {
    const QMap<QString, QString> english = ShippedTexts("en");
    EXPECT_FALSE(form_.texts.isEmpty());
    for (auto text = form_.texts.begin(); text != form_.texts.end(); ++text) {
        EXPECT_EQ(english.value(form_.section + '/' + text.key()).toStdString(), text.value().toStdString())
            << text.key().toStdString();
    }
}

TEST_P(FormTexts, BelongToControlsWithNames) {
    EXPECT_EQ(form_.unnamed.join(", ").toStdString(), "");
}

TEST_P(FormTexts, HaveMnemonicsThatLeadSomewhere) {
    EXPECT_EQ(form_.buddies.join(", ").toStdString(), "");
}

TEST_P(FormTexts, HaveMnemonicsThatAreUnique) {
    QMap<QString, QString> owners;
    for (auto text = form_.texts.begin(); text != form_.texts.end(); ++text) {
        const QString mnemonic = orvanta::test::MnemonicOf(text.value());
        if (!mnemonic.isEmpty()) {
            EXPECT_EQ(owners.value(mnemonic).toStdString(), "") << text.value().toStdString();
            owners[mnemonic] = text.value();
        }
    }
}

TEST_P(FormTexts, HaveAMnemonicInGermanWhereTheyHaveOneInEnglish) {
    const QMap<QString, QString> german = ShippedTexts("de");
    for (auto text = form_.texts.begin(); text != form_.texts.end(); ++text) {
        EXPECT_EQ(orvanta::test::MnemonicOf(german.value(form_.section + '/' + text.key())).isEmpty(),
                  orvanta::test::MnemonicOf(text.value()).isEmpty())
            << text.key().toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(Designer, FormTexts, testing::ValuesIn(Forms()), [](const auto& form) {
    return QFileInfo(form.param.c_str()).baseName().toStdString();
});

/// What a user reads on a control.
QString Shown(const QWidget& control) {
    if (const auto* button = qobject_cast<const QAbstractButton*>(&control)) {
        return button->text();
    }
    if (const auto* group = qobject_cast<const QGroupBox*>(&control)) {
        return group->title();
    }
    const auto* label = qobject_cast<const QLabel*>(&control);
    return label != nullptr ? label->text() : QString();
}

/// Part of a control, or a button of a button box, which Qt translates.
bool IsQtsOwn(const QWidget& control) {
    return control.objectName().startsWith("qt_") || control.objectName().isEmpty();
}

template <class Layout>
void ExpectGerman(Layout layout, const QString& section, int atLeast = 6) {
    QLocale::setDefault(QLocale("de_DE"));
    const PModule module("Orvanta", nullptr, "no folder");
    QDialog form; // stands for a panel, too
    layout.setupUi(&form);
    owl::TranslateForm(form, &module, section.toUtf8().constData());
    QLocale::setDefault(QLocale::system());
    const QMap<QString, QString> german = ShippedTexts("de");
    EXPECT_EQ(form.windowTitle(), german[section + "/caption"]);
    int captions = 0;
    for (const QWidget* control : form.findChildren<QWidget*>()) {
        const QString key = section + '/' + control->objectName();
        const QString shown = Shown(*control);
        if (!shown.isEmpty() && !orvanta::test::IsSymbol(shown) && !IsQtsOwn(*control)) {
            ++captions;
            EXPECT_EQ(shown.toStdString(), german[key].toStdString()) << key.toStdString();
        }
        if (!control->objectName().isEmpty() && german.contains(key + ".tip")) {
            EXPECT_EQ(control->toolTip().toStdString(), german[key + ".tip"].toStdString());
        }
        if (const auto* list = qobject_cast<const QTreeWidget*>(control)) {
            for (int column = 0; column < list->columnCount(); ++column) {
                EXPECT_EQ(list->headerItem()->text(column).toStdString(),
                          german[key + '.' + QString::number(column)].toStdString());
            }
        }
    }
    EXPECT_GE(captions, atLeast);
}

TEST(GermanForms, SpectrumMacroSpeaksGermanThroughout) {
    ExpectGerman(Ui::TFormSpectrumMacro(), "TFormSpectrumMacro");
}

TEST(GermanForms, MacroSelectionSpeaksGermanThroughout) {
    ExpectGerman(Ui::TFormMacroSpectra(), "TFormMacroSpectra");
}

TEST(GermanForms, MapPaletteSpeaksGermanThroughout) {
    ExpectGerman(Ui::TMapPaletteForm(), "TMapPaletteForm", 2);
}

TEST(GermanForms, MapSettingsSpeakGermanThroughout) {
    ExpectGerman(Ui::TMapSettingsForm(), "TMapSettingsForm");
}

TEST(GermanForms, ExportFormSpeaksGermanThroughout) {
    ExpectGerman(Ui::TSpectraExportForm(), "TSpectraExportForm");
}

TEST(GermanForms, RegressionPanelSpeaksGermanThroughout) {
    ExpectGerman(Ui::TFormListenerSpectraBCI(), "TFormListenerSpectraBCI");
}

TEST(GermanForms, RegressionResultsSpeakGermanThroughout) {
    ExpectGerman(Ui::TFormBCIResults(), "TFormBCIResults", 4);
}

TEST(GermanForms, MeasuresDialogSpeaksGermanThroughout) {
    ExpectGerman(Ui::MeasuresDialog(), "DIALOG_1628", 3);
}

TEST(GermanForms, CommentsDialogSpeaksGermanThroughout) {
    ExpectGerman(Ui::CommentsDialog(), "DIALOG_1629", 8);
}

TEST(GermanForms, BandDialogSpeaksGermanThroughout) {
    ExpectGerman(Ui::BandDialog(), "DIALOG_1625", 3);
}

TEST(GermanForms, InfoDialogSpeaksGermanThroughout) {
    ExpectGerman(Ui::InfoDialog(), "DIALOG_1627", 0);
}

TEST(GermanForms, ScaleDialogSpeaksGermanThroughout) {
    ExpectGerman(Ui::ScaleDialog(), "DIALOG_1631");
}

TEST(GermanForms, MapDialogSpeaksGermanThroughout) {
    ExpectGerman(Ui::MapDialog(), "DIALOG_1626", 9);
}

TEST(GermanForms, ElectrodesDialogSpeaksGermanThroughout) {
    ExpectGerman(Ui::ElectrodesDialog(), "DIALOG_1634", 0);
}

TEST(GermanForms, EventDialogSpeaksGermanThroughout) {
    ExpectGerman(Ui::TFormEvent(), "TFormEvent");
}

TEST(GermanForms, EventListSpeaksGermanThroughout) {
    ExpectGerman(Ui::TFormEventList(), "TFormEventList", 5);
}

TEST(GermanForms, GoToTimeSpeaksGermanThroughout) {
    ExpectGerman(Ui::TFormGoToTime(), "TFormGoToTime", 2);
}

TEST(GermanForms, ChannelsDialogSpeaksGermanThroughout) {
    ExpectGerman(Ui::TFormTraceChannels(), "TFormTraceChannels", 4);
}

TEST(GermanForms, MontageEditorSpeaksGermanThroughout) {
    ExpectGerman(Ui::TFormMontageEditor(), "TFormMontageEditor");
}

TEST(GermanForms, AreSpokenInGerman) {
    QLocale::setDefault(QLocale("de_DE"));
    const PModule module("Orvanta", nullptr, "no folder");
    QDialog form;
    Ui::TFormMacroSpectra layout;
    layout.setupUi(&form);
    owl::TranslateForm(form, &module, "TFormMacroSpectra");
    QLocale::setDefault(QLocale::system());
    EXPECT_EQ(layout.ListBoxMacro->accessibleName(), "Verfügbare Makros");
    EXPECT_EQ(layout.Memo1->accessibleName(), "Beschreibung des gewählten Makros");
}

} // namespace

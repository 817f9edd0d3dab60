// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/control_text.h"
#include "host/toolkit/form_texts.h"
#include "host/toolkit/message_module.h"
#include "tests/support/temp_folder.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace {

template <typename Control>
Control* Named(const char* name, Control* control) {
    control->setObjectName(name);
    return control;
}

/// One control of each kind, with built-in texts.
struct Form : QWidget {
    Form() {
        setWindowTitle("Settings");
        auto* inside = new QVBoxLayout(mode);
        inside->addWidget(best);
        inside->addWidget(random);
        list->setHeaderLabels({"Macro", "Count"});
        pages->addTab(new QWidget, "First");
        pages->addTab(new QWidget, "Second");
        combo->addItems({"one", "two"});
        auto* rows = new QVBoxLayout(this);
        for (QWidget* control :
             std::initializer_list<QWidget*>{button, box, label, edit, mode, list, pages, combo, nameless}) {
            rows->addWidget(control);
        }
    }

    QPushButton* button = Named("BtnSave", new QPushButton("&Save"));
    QCheckBox* box = Named("cbFill", new QCheckBox("&Fill"));
    QLabel* label = Named("lbName", new QLabel("&Name"));
    QLineEdit* edit = Named("ebName", new QLineEdit("typed"));
    QGroupBox* mode = Named("rgMode", new QGroupBox("&Mode"));
    QRadioButton* best = Named("rbBest", new QRadioButton("&Best"));
    QRadioButton* random = new QRadioButton("&Random");
    QTreeWidget* list = Named("lvMacros", new QTreeWidget);
    QTabWidget* pages = Named("pgSideBar", new QTabWidget);
    QComboBox* combo = Named("cbWindow", new QComboBox);
    QLabel* nameless = new QLabel("nameless");
};

class FormTexts : public testing::Test {
protected:
    PModule Module(const std::string& ini) {
        folder_.Write("Orvanta.en.ini", ini);
        return PModule("Orvanta", nullptr, folder_.Path(""));
    }

    orvanta::test::TempFolder folder_;
};

TEST_F(FormTexts, ReplaceThoseOfEachKindOfControl) {
    const PModule module = Module("[FORM]\ncaption=c\nBtnSave=a &button\ncbFill=a bo&x\nlbName=a &label\n"
                                  "rgMode=a group\nrgMode.0=best item\nrgMode.1=random item\n"
                                  "lvMacros.0=first column\nlvMacros.1=second column\n"
                                  "pgSideBar.1=second page\ncbWindow.1=second entry\nBtnSave.tip=a tip\n"
                                  "ebName.tip=an edit's tip\n");
    Form form;
    owl::TranslateForm(form, &module, "FORM");
    EXPECT_EQ(form.windowTitle(), "c");
    EXPECT_EQ(form.button->text(), "a &button");
    EXPECT_EQ(form.button->toolTip(), "a tip");
    EXPECT_EQ(form.box->text(), "a bo&x");
    EXPECT_EQ(form.label->text(), "a &label");
    EXPECT_EQ(form.mode->title(), "a group");
    EXPECT_EQ(form.best->text(), "best item");
    EXPECT_EQ(form.random->text(), "random item");
    EXPECT_EQ(form.list->headerItem()->text(0), "first column");
    EXPECT_EQ(form.list->headerItem()->text(1), "second column");
    EXPECT_EQ(form.pages->tabText(0), "First");
    EXPECT_EQ(form.pages->tabText(1), "second page");
    EXPECT_EQ(form.combo->itemText(0), "one");
    EXPECT_EQ(form.combo->itemText(1), "second entry");
    EXPECT_EQ(form.edit->toolTip(), "an edit's tip");
}

TEST_F(FormTexts, StayWhereTheModuleHasNone) {
    const PModule module =
        Module("[OTHER]\nBtnSave=elsewhere\n[FORM]\nlbName=\nlvMacros.1=second\nabsent=x\n");
    Form form;
    owl::TranslateForm(form, &module, "FORM");
    EXPECT_EQ(form.windowTitle(), "Settings");
    EXPECT_EQ(form.button->text(), "&Save");
    EXPECT_EQ(form.label->text(), "&Name");
    EXPECT_EQ(form.list->headerItem()->text(0), "Macro");
    EXPECT_EQ(form.list->headerItem()->text(1), "second");
    EXPECT_EQ(form.best->text(), "&Best");
    EXPECT_EQ(form.nameless->text(), "nameless");
}

TEST_F(FormTexts, LeaveWhatTheUserTypes) {
    const PModule module = Module("[FORM]\nebName=a text\n");
    Form form;
    owl::TranslateForm(form, &module, "FORM");
    EXPECT_EQ(form.edit->text(), "typed");
}

TEST_F(FormTexts, StayWithoutAModule) {
    Form form;
    owl::TranslateForm(form, nullptr, "FORM");
    EXPECT_EQ(form.button->text(), "&Save");
    EXPECT_EQ(owl::TextOr(nullptr, "FORM", "key", "built-in"), "built-in");
}

TEST_F(FormTexts, FallBackToTheBuiltInOne) {
    const PModule module = Module("[FORM]\nkey=stored\nempty=\n");
    EXPECT_EQ(owl::TextOr(&module, "FORM", "key", "built-in"), "stored");
    EXPECT_EQ(owl::TextOr(&module, "FORM", "empty", "built-in"), "built-in");
    EXPECT_EQ(owl::TextOr(&module, "FORM", "absent", "built-in"), "built-in");
}

TEST(ControlText, IsReadWithoutMnemonics) {
    QCheckBox box;
    const std::pair<const char*, const char*> cases[] = {
        {"&Fill", "Fill"}, {"R&&D", "R&D"}, {"&R&&D", "R&D"}, {"&&&&", "&&"}, {"end&", "end&"}, {"", ""}};
    for (const auto& [caption, text] : cases) {
        owl::SetControlCaption(box, caption);
        EXPECT_EQ(owl::ControlText(box).toStdString(), text) << caption;
    }
}

TEST(ControlText, OfALabelHasMnemonicsOnlyWithABuddy) {
    QLineEdit edit;
    QLabel label("R&D");
    EXPECT_EQ(owl::ControlText(label), "R&D");
    label.setBuddy(&edit);
    EXPECT_EQ(owl::ControlText(label), "RD");
}

TEST(ControlText, OfAComboBoxWithoutEditIsOneOfItsEntries) {
    QComboBox combo;
    combo.addItems({"one", "two"});
    owl::SetControlText(combo, "two");
    EXPECT_EQ(owl::ControlText(combo), "two");
    owl::SetControlText(combo, "three");
    EXPECT_EQ(owl::ControlText(combo), "two");
}

TEST(ControlText, OfAnythingElseIsEmpty) {
    QWidget widget;
    owl::SetControlText(widget, "text");
    owl::SetControlCaption(widget, "text");
    EXPECT_EQ(owl::ControlText(widget), "");
}

} // namespace

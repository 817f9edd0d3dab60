// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/qt_texts.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLocale>
#include <QPushButton>
#include <QTranslator>
#include <gtest/gtest.h>

namespace {

class QtTexts : public testing::Test {
protected:
    ~QtTexts() override {
        QLocale::setDefault(QLocale::system());
        for (QTranslator* translator : Application().findChildren<QTranslator*>()) {
            delete translator; // which also takes it out of use
        }
    }
    static QApplication& Application() { return *qobject_cast<QApplication*>(QApplication::instance()); }
    static std::string CaptionOf(QDialogButtonBox::StandardButton button) {
        const QDialogButtonBox box(button);
        return box.button(button)->text().remove('&').toStdString();
    }
};

TEST_F(QtTexts, AreGermanInAGermanLocale) {
    QLocale::setDefault(QLocale("de_DE"));
    EXPECT_TRUE(owl::UseQtTexts(Application()));
    EXPECT_EQ(CaptionOf(QDialogButtonBox::Ok), "OK");
    EXPECT_EQ(CaptionOf(QDialogButtonBox::Cancel), "Abbrechen");
    EXPECT_EQ(CaptionOf(QDialogButtonBox::Close), "Schließen");
    EXPECT_EQ(CaptionOf(QDialogButtonBox::Yes), "Ja");
    EXPECT_EQ(CaptionOf(QDialogButtonBox::No), "Nein");
}

TEST_F(QtTexts, StayEnglishWithoutATranslation) {
    QLocale::setDefault(QLocale("cy_GB"));
    EXPECT_FALSE(owl::UseQtTexts(Application()));
    EXPECT_EQ(CaptionOf(QDialogButtonBox::Cancel), "Cancel");
}

} // namespace

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/pictures_out/picture_dialog.h"

#include "tests/support/qt/form_user.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QPushButton>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace orvanta::review;
using testing::HasSubstr;

class AskingForASize : public testing::Test {
protected:
    AskingForASize() { form.show(); }

    double Number(const char* box) const { return form.findChild<QDoubleSpinBox*>(box)->value(); }
    void Enter(const char* box, double number) const {
        form.findChild<QDoubleSpinBox*>(box)->setValue(number);
    }
    void Choose(const char* box, int index) const { form.findChild<QComboBox*>(box)->setCurrentIndex(index); }
    bool CanSave() const {
        return form.findChild<QDialogButtonBox*>("Buttons")->button(QDialogButtonBox::Save)->isEnabled();
    }
    std::string Text(const char* label) { return user.TextOf(label).toStdString(); }

    /// A view of 800 x 400 on the screen.
    PictureDialog form{nullptr, {.width = 800, .height = 400}};
    orvanta::test::FormUser user{form};
};

TEST_F(AskingForASize, StartsWithTheSizeOnTheScreen) {
    EXPECT_EQ(Number("Width"), 800);
    EXPECT_EQ(Number("Height"), 400);
    EXPECT_EQ(Text("LabelSize"), "800 × 400 pixels, 212 × 106 mm");
}

TEST_F(AskingForASize, KeepsTheProportionsUnlessToldOtherwise) {
    Enter("Width", 1200);
    EXPECT_EQ(Number("Height"), 600);
    Enter("Height", 300);
    EXPECT_EQ(Number("Width"), 600);

    user.Clicks("Proportions");
    Enter("Width", 900);
    EXPECT_EQ(Number("Height"), 300);
}

TEST_F(AskingForASize, KeepsWhatTheProportionsAreWhenTheyAreKeptAgain) {
    user.Clicks("Proportions");
    Enter("Height", 800);
    user.Clicks("Proportions");
    Enter("Width", 1000);
    EXPECT_EQ(Number("Height"), 1000);
}

TEST_F(AskingForASize, ShowsTheSameSizeInAnotherUnit) {
    Choose("Unit", 2);
    EXPECT_NEAR(Number("Width"), 8.33, 1e-9);
    Choose("Unit", 1);
    EXPECT_NEAR(Number("Width"), 211.7, 1e-9);
    Choose("Unit", 0);
    EXPECT_EQ(Number("Width"), 800);
}

TEST_F(AskingForASize, AFinerPictureHasMorePixelsAndTheSameSizeOnPaper) {
    user.SetsNumber("Resolution", 300);
    EXPECT_EQ(Number("Width"), 2500);
    EXPECT_EQ(Text("LabelSize"), "2500 × 1250 pixels, 212 × 106 mm");
}

TEST_F(AskingForASize, SavesNoPictureOfTooManyPixelsButADrawingOfThatSize) {
    user.SetsNumber("Resolution", 1200);
    Enter("Width", 30'000);
    EXPECT_FALSE(CanSave());
    EXPECT_THAT(Text("LabelError"), HasSubstr("30000 × 15000 pixels are too many"));

    Choose("Format", 2);
    EXPECT_TRUE(CanSave());
    EXPECT_EQ(Text("LabelError"), "");
}

TEST_F(AskingForASize, TellsWhatWasChosen) {
    Choose("Format", 1);
    Choose("Unit", 1);
    user.SetsNumber("Resolution", 150);
    Enter("Width", 254);
    EXPECT_EQ(form.Settings(), (PictureSettings{.format = PictureFormat::Svg,
                                                .unit = LengthUnit::Millimetres,
                                                .resolution = 150,
                                                .width = 960,
                                                .height = 480}));
}

} // namespace

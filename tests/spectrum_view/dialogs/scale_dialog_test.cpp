// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/dialogs/scale_dialog.h"

#include "host/toolkit/modal_gateway.h"
#include "host/toolkit/window.h"
#include "resources/dialogs/dialog_templates.h"
#include "tests/support/comma_numerals.h"
#include "tests/support/qt/form_user.h"
#include "tests/support/qt/scripted_user.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace orvanta;

/// Half a sampling rate of 256 Hz.
constexpr double kLimit = 128;

class AxisRanges : public testing::Test {
protected:
    AxisRanges() { resources::RegisterDialogs(); }
    ~AxisRanges() override { resources::ForgetDialogs(); }

    struct Answer {
        int button;
        SPECT::Scale scale;
    };
    /// The dialog with \p scale, in which the user does so and presses a button.
    static Answer Run(const SPECT::Scale& scale, const std::function<void(SpectrumScaleDlg&)>& acts,
                      int button = 1) {
        SpectrumScaleDlg dialog(nullptr, "Power", "µV²/Hz", kLimit);
        dialog.SetScale(scale);
        test::ScriptedUser user;
        user.Meets<SpectrumScaleDlg>([&](SpectrumScaleDlg& shown) {
            acts(shown);
            shown.Item<QPushButton>(button)->click();
        });
        const int answer = dialog.Execute();
        return {answer, dialog.GetScale()};
    }
    /// The same where the user types one text.
    static SPECT::Scale Type(const SPECT::Scale& scale, const char* edit, const char* text) {
        return Run(scale, [=](SpectrumScaleDlg& shown) { test::FormUser(shown).Types(edit, text); }).scale;
    }
};

/// The dialog while it is open.
class OpenAxisRanges : public AxisRanges {
protected:
    OpenAxisRanges() {
        dialog.SetScale({-1.25, 40, 2, 30, true});
        dialog.show();
    }

    QString Tip(const char* mark) const { return dialog.findChild<QLabel*>(mark)->toolTip(); }
    QString Remark() const { return dialog.findChild<QLabel*>("remark")->text(); }

    SpectrumScaleDlg dialog{nullptr, "Power & more", "µV²/Hz", kLimit};
};

TEST_F(OpenAxisRanges, HaveTheirCaptions) {
    EXPECT_EQ(dialog.windowTitle(), "Define Axis Ranges");
    EXPECT_EQ(dialog.GetDlgItemText(102, 99), "X Axis ");
    EXPECT_EQ(dialog.GetDlgItemText(101, 99), "Y Axis ");
    EXPECT_EQ(test::FormUser(dialog).TextOf("frequency"), "Fequency Range");
    EXPECT_EQ(dialog.GetDlgItemText(106, 99), "Autoscale");
    EXPECT_EQ(dialog.GetDlgItemText(105, 99), "Power & more");
    EXPECT_EQ(dialog.GetDlgItemText(110, 99), "µV²/Hz");
    EXPECT_EQ(dialog.GetDlgItemText(1, 99), "OK");
    EXPECT_EQ(dialog.GetDlgItemText(2, 99), "Cancel");
}

TEST_F(OpenAxisRanges, ShowTheRecordWithOneDecimal) {
    EXPECT_EQ(dialog.GetDlgItemText(300, 99), "2.0");
    EXPECT_EQ(dialog.GetDlgItemText(400, 99), "30.0");
    EXPECT_EQ(dialog.GetDlgItemText(301, 99), "-1.2"); // the tie goes to the even digit
    EXPECT_EQ(dialog.GetDlgItemText(401, 99), "40.0");
    EXPECT_TRUE(dialog.IsDlgButtonChecked(106));
}

TEST_F(OpenAxisRanges, LetAllButTheFrequencyMinimumBeTyped) {
    EXPECT_FALSE(dialog.GetDlgItem(300)->isEnabled());
    EXPECT_TRUE(dialog.GetDlgItem(400)->isEnabled());
    EXPECT_TRUE(dialog.GetDlgItem(301)->isEnabled());
    EXPECT_TRUE(dialog.GetDlgItem(401)->isEnabled());
}

TEST_F(AxisRanges, AreTakenFromTheControlsOnOk) {
    const Answer answer = Run({0, 10, 1.5, 32, true}, [](SpectrumScaleDlg& shown) {
        test::FormUser(shown).Types("least", "2.25");
        test::FormUser(shown).Types("most", "80");
        test::FormUser(shown).Types("highest", "64.5");
        test::FormUser(shown).Clicks("autoscale");
    });
    EXPECT_EQ(answer.button, owl::kIdOk);
    EXPECT_EQ(answer.scale, (SPECT::Scale{2.25, 80, 1.5, 64.5, false}));
}

TEST_F(AxisRanges, StayAsTheyWereOnCancel) {
    const SPECT::Scale scale{0.125, 10, 0, 32, true};
    const Answer answer = Run(
        scale,
        [](SpectrumScaleDlg& shown) {
            test::FormUser(shown).Types("highest", "64");
            test::FormUser(shown).Clicks("autoscale");
        },
        2);
    EXPECT_EQ(answer.button, owl::kIdCancel);
    EXPECT_EQ(answer.scale, scale);
}

TEST_F(AxisRanges, AreRoundedToOneDecimalByOkAlone) {
    const SPECT::Scale scale{0.125, 10.06, 0.04, 32.96, false};
    EXPECT_EQ(Run(scale, [](SpectrumScaleDlg&) {}).scale, (SPECT::Scale{0.1, 10.1, 0, 33, false}));
}

struct FrequencyCase {
    const char* title;
    double minimum;
    const char* maximum; ///< as it is typed
    double thenMinimum, thenMaximum;
};

class Frequencies : public AxisRanges, public testing::WithParamInterface<FrequencyCase> {};

TEST_P(Frequencies, StayBetweenZeroAndTheLimit) {
    const FrequencyCase& given = GetParam();
    const SPECT::Scale scale = Type({0, 10, given.minimum, 32, true}, "highest", given.maximum);
    EXPECT_EQ(scale.MinX, given.thenMinimum);
    EXPECT_EQ(scale.MaxX, given.thenMaximum);
}

INSTANTIATE_TEST_SUITE_P(Typed, Frequencies,
                         testing::Values(FrequencyCase{"Within", 2, "40", 2, 40},
                                         FrequencyCase{"AboveTheLimit", 0, "300", 0, 128},
                                         FrequencyCase{"AtTheLimit", 0, "128", 0, 128},
                                         FrequencyCase{"MinimumAboveMaximum", 20, "10", 0, 10},
                                         FrequencyCase{"MinimumEqualToMaximum", 20, "20", 20, 20},
                                         FrequencyCase{"NegativeMinimum", -3, "10", 0, 10},
                                         FrequencyCase{"NegativeMaximum", 0, "-5", 0, -5},
                                         // Judged by the maximum as typed, before that is limited.
                                         FrequencyCase{"MinimumAboveTheLimit", 150, "300", 150, 128},
                                         FrequencyCase{"NoNumber", 0, "all", 0, 0},
                                         FrequencyCase{"Infinite", 0, "inf", 0, 128},
                                         FrequencyCase{"NotANumber", 0, "nan", 0, 0}),
                         [](const auto& frequency) { return frequency.param.title; });

TEST_F(AxisRanges, TakeAnyAmplitudes) {
    const Answer answer = Run({0, 10, 0, 32, true}, [](SpectrumScaleDlg& shown) {
        test::FormUser(shown).Types("least", "50");
        test::FormUser(shown).Types("most", "-7.75");
    });
    EXPECT_EQ(answer.scale, (SPECT::Scale{50, -7.75, 0, 32, true}));
}

TEST_F(AxisRanges, NeverTakeWhatIsNoFiniteAmplitude) {
    EXPECT_EQ(Type({}, "most", "nan").MaxY, 0);
    EXPECT_TRUE(std::isfinite(Type({}, "most", "1e999").MaxY));
    EXPECT_TRUE(std::isfinite(Type({}, "least", "-inf").MinY));
}

TEST_F(AxisRanges, AreShownAndReadWithTheUsersDecimalSign) {
    const test::CommaNumerals comma;
    const Answer answer = Run({0.5, 10, 0.5, 32.5, false}, [](SpectrumScaleDlg& shown) {
        EXPECT_EQ(shown.GetDlgItemText(300, 99), "0,5");
        EXPECT_EQ(shown.GetDlgItemText(400, 99), "32,5");
        test::FormUser(shown).Types("most", "20,25");
    });
    EXPECT_EQ(answer.scale, (SPECT::Scale{0.5, 20.25, 0.5, 32.5, false}));
}

TEST_F(AxisRanges, AreReadUpToAForeignDecimalSign) {
    EXPECT_EQ(Type({}, "most", "20,25").MaxY, 20);
    const test::CommaNumerals comma;
    EXPECT_EQ(Type({}, "most", "20.25").MaxY, 20);
}

TEST_F(OpenAxisRanges, AreNotMarkedWhenTheyAreFine) {
    EXPECT_EQ(Tip("markX"), "");
    EXPECT_EQ(Tip("markY"), "");
    EXPECT_EQ(Remark(), "");
}

TEST_F(OpenAxisRanges, TellWhatBecomesOfAFrequencyThatIsTooHigh) {
    test::FormUser(dialog).Types("highest", "300");
    EXPECT_EQ(Tip("markX"), "Above half the sampling rate: becomes 128 Hz");
    EXPECT_EQ(Remark(), "Above half the sampling rate: becomes 128 Hz");
    EXPECT_FALSE(dialog.findChild<QLabel*>("markX")->pixmap().isNull());
    test::FormUser(dialog).Types("highest", "100");
    EXPECT_EQ(Tip("markX"), "");
    EXPECT_TRUE(dialog.findChild<QLabel*>("markX")->pixmap().isNull());
}

TEST_F(OpenAxisRanges, TellWhatBecomesOfAMinimumAboveTheMaximum) {
    test::FormUser(dialog).Types("highest", "1");
    EXPECT_EQ(Tip("markX"), "Maximum below minimum: the minimum becomes 0");
}

TEST_F(OpenAxisRanges, TellOfARangeThatShowsNothingUnlessItIsNotUsed) {
    test::FormUser(dialog).Types("most", "-5");
    EXPECT_EQ(Tip("markY"), "");
    test::FormUser(dialog).Clicks("autoscale");
    EXPECT_EQ(Tip("markY"), "Maximum not above minimum: no curve is drawn");
    EXPECT_EQ(Remark(), "Maximum not above minimum: no curve is drawn");
}

TEST_F(OpenAxisRanges, TellHowATextIsReadThatIsNoNumber) {
    test::FormUser(dialog).Types("most", "20,25");
    EXPECT_EQ(Tip("markY"), "Read as -1.2 - 20");
}

TEST_F(AxisRanges, TellHowATextIsReadInTheUsersNumerals) {
    const test::CommaNumerals comma;
    SpectrumScaleDlg dialog(nullptr, "Power", "", kLimit);
    dialog.SetScale({0.5, 40, 0, 30, true});
    dialog.show();
    test::FormUser(dialog).Types("most", "20.25");
    EXPECT_EQ(dialog.findChild<QLabel*>("markY")->toolTip(), "Read as 0,5 - 20");
}

TEST_F(OpenAxisRanges, LieInColumns) {
    dialog.grab();
    const auto left = [this](int control) {
        return dialog.GetDlgItem(control)->mapTo(&dialog, QPoint(0, 0)).x();
    };
    EXPECT_EQ(left(300), left(301));
    EXPECT_EQ(left(400), left(401));
    EXPECT_EQ(dialog.Item<QLineEdit>(400)->alignment(), Qt::AlignRight | Qt::AlignVCenter);
}

TEST_F(OpenAxisRanges, CanBeReachedByTabInTheirOrder) {
    std::string order;
    const QWidget* next = dialog.GetDlgItem(300);
    for (int count = 0; count < 7; next = next->nextInFocusChain()) {
        if (next->property("controlId").isValid() && (next->focusPolicy() & Qt::TabFocus) != 0) {
            order += next->property("controlId").toString().toStdString() + ' ';
            ++count;
        }
    }
    EXPECT_EQ(order, "300 400 301 401 106 1 2 ");
}

TEST_F(OpenAxisRanges, HaveLabelsThatLeadToTheirEdits) {
    EXPECT_EQ(dialog.findChild<QLabel*>("frequency")->buddy(), dialog.GetDlgItem(400));
    EXPECT_EQ(dialog.Item<QLabel>(105)->buddy(), dialog.GetDlgItem(301));
}

TEST_F(AxisRanges, StandOverTheirView) {
    owl::TWindow view;
    const SpectrumScaleDlg dialog(&view, "Power", "", kLimit);
    EXPECT_EQ(dialog.parentWidget(), &view);
}

} // namespace

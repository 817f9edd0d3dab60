// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/message_box.h"
#include "host/toolkit/message_text.h"
#include "host/toolkit/services.h"

#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <gtest/gtest.h>

namespace {

class FakeClipboard final : public owl::Clipboard {
public:
    void SetText(const std::string& text) const override { text_ = text; }
    void SetImage(const QImage& /*image*/) const override { ADD_FAILURE() << "no picture was asked for"; }
    mutable std::string text_;
};

QString Visible(QString text) {
    return text.replace(QChar(0x200B), "|");
}

const std::string& LongPath() {
    static const std::string path = "/home/someone/" + std::string(900, 'x') + "/night_recording.edf";
    return path;
}

TEST(WithBreaks, LetsLongWordsBreak) {
    const std::pair<const char*, const char*> cases[] = {
        {"", ""},
        {"short words stay/as they-are", "short words stay/as they-are"},
        {"/home/someone/recordings/2024/night_01-a.edf",
         "/|home/|someone/|recordings/|2024/|night_|01-|a.edf"},
        {"a b\n/home/someone/recordings/2024/night_01-a.edf c",
         "a b\n/|home/|someone/|recordings/|2024/|night_|01-|a.edf c"},
        {"0123456789012345678901234567890123456789x", "0123456789|0123456789|0123456789|0123456789|x"},
        {"0123456789012345678901234567890123456789", "0123456789012345678901234567890123456789"},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(Visible(owl::WithBreaks(text)).toStdString(), expected);
    }
}

TEST(WithBreaks, KeepsHalvesOfACharacterTogether) {
    const QString brain = QString::fromUcs4(U"\U0001F9E0");
    const QString text = 'x' + brain.repeated(25);
    EXPECT_EQ(Visible(owl::WithBreaks(text)),
              'x' + (brain.repeated(5) + '|').repeated(4) + brain.repeated(5));
}

TEST(Shortened, KeepsTwentyLines) {
    EXPECT_EQ(owl::Shortened("one\ntwo"), "one\ntwo");
    EXPECT_EQ(owl::Shortened(QString("a\n").repeated(19) + "b"), QString("a\n").repeated(19) + "b");
    EXPECT_EQ(owl::Shortened(QString("a\n").repeated(20) + "b"), QString("a\n").repeated(19) + "a…");
    EXPECT_EQ(owl::Shortened(QString(1000, 'x')), QString(1000, 'x'));
    EXPECT_EQ(owl::Shortened(QString(1001, 'x')), QString(1000, 'x') + "…");
}

TEST(MessageBox, PrefersNoWhenItWarns) {
    const std::pair<unsigned, QMessageBox::StandardButton> cases[] = {
        {owl::kMbYesNo + owl::kMbIconExclamation, QMessageBox::No}, {owl::kMbYesNo, QMessageBox::Yes}};
    for (const auto& [type, button] : cases) {
        const owl::TMessageBox box(nullptr, "Replace it?", "Warning", type);
        EXPECT_TRUE(box.defaultButton() == box.button(button)) << type;
        EXPECT_TRUE(box.escapeButton() == box.button(QMessageBox::No)) << type;
        EXPECT_EQ(box.button(QMessageBox::Yes)->text().count('&'), 1) << "a mnemonic";
        EXPECT_EQ(box.button(QMessageBox::No)->text().count('&'), 1) << "a mnemonic";
    }
}

TEST(MessageBox, FitsTheScreenWhateverItSays) {
    const std::string texts[] = {"Cannot read " + LongPath() + ": no such file.", std::string(3000, 'x'), [] {
                                     std::string lines;
                                     for (int i = 0; i < 500; ++i) {
                                         lines += "channel " + std::to_string(i) + "\n";
                                     }
                                     return lines;
                                 }()};
    for (const std::string& text : texts) {
        owl::TMessageBox box(nullptr, text, "Error", owl::kMbIconStop);
        box.show();
        // The box takes its final size when its layout is asked for.
        QCoreApplication::processEvents();
        EXPECT_LE(box.width(), box.screen()->availableGeometry().width());
        EXPECT_LE(box.height(), box.screen()->availableGeometry().height());
        const auto* label = box.findChild<QLabel*>("qt_msgbox_label");
        ASSERT_NE(label, nullptr);
        EXPECT_GE(label->height(), label->heightForWidth(label->width())) << "no line is cut";
        EXPECT_GE(label->width(), label->minimumSizeHint().width()) << "no word is cut";
    }
}

TEST(MessageBox, ShowsAllOfALineOfAnyLength) {
    for (int words = 1; words < 60; ++words) {
        owl::TMessageBox box(nullptr, QString("words ").repeated(words).toStdString(), "Error",
                             owl::kMbYesNo);
        box.show();
        QCoreApplication::processEvents();
        auto* label = box.findChild<QLabel*>("qt_msgbox_label");
        ASSERT_NE(label, nullptr);
        if (label->wordWrap()) {
            EXPECT_GE(label->height(), label->heightForWidth(label->width())) << words;
        } else {
            EXPECT_GE(label->width(), label->sizeHint().width()) << words;
        }
    }
}

TEST(MessageBox, TellsUnderDetailsWhatIsTooLong) {
    const std::string text(2000, 'x');
    const owl::TMessageBox box(nullptr, text, "Error", owl::kMbIconStop);
    EXPECT_EQ(box.detailedText().toStdString(), text);
    EXPECT_EQ(Visible(box.text()).remove('|').size(), 1001);
    EXPECT_EQ(owl::TMessageBox(nullptr, "short", "Error", owl::kMbIconStop).detailedText(), "");
}

TEST(MessageBox, CopiesItsTextWithoutBreaks) {
    const FakeClipboard clipboard;
    owl::Services services = owl::CurrentServices();
    services.clipboard = &clipboard;
    const owl::Services* earlier = owl::ReplaceServices(&services);
    owl::TMessageBox box(nullptr, LongPath(), "Error", owl::kMbIconStop);
    QTest::keyClick(&box, Qt::Key_C, Qt::ControlModifier);
    owl::ReplaceServices(earlier);
    EXPECT_EQ(clipboard.text_, LongPath());
}

} // namespace

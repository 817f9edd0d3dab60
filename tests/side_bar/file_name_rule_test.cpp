// SPDX-License-Identifier: GPL-3.0-or-later
#include "side_bar/file_name_rule.h"

#include <gtest/gtest.h>

#include <string>

namespace {

struct Name {
    std::string text;
    int code;
};

void PrintTo(const Name& name, std::ostream* out) {
    *out << '"' << name.text << "\" is " << name.code;
}

class AsciiName : public testing::TestWithParam<Name> {};

TEST_P(AsciiName, HasTheSameCodeInBothWidths) {
    const std::string& text = GetParam().text;
    EXPECT_EQ(IsValidFileName(text.c_str()), GetParam().code);
    EXPECT_EQ(IsValidFileName(std::u16string(text.begin(), text.end()).c_str()), GetParam().code);
}

INSTANTIATE_TEST_SUITE_P(Plain, AsciiName,
                         testing::Values(Name{"Alpha.smx", 0}, Name{"a", 0}, Name{" ", 0}, Name{"a b", 0},
                                         Name{"!#$%&'()+,-;=@[]^_`{}~", 0}, Name{"\x7F", 0},
                                         Name{"end.", 0}));

INSTANTIATE_TEST_SUITE_P(Length, AsciiName,
                         testing::Values(Name{"", -1}, Name{std::string(255, 'a'), 0},
                                         Name{std::string(256, 'a'), -1}, Name{std::string(1000, 'a'), -1},
                                         Name{std::string(300, '.'), -1},
                                         Name{std::string(299, 'a') + '*', 42}));

INSTANTIATE_TEST_SUITE_P(Characters, AsciiName,
                         testing::Values(Name{"a\tb", 9}, Name{"\x01", 1}, Name{"a\x1F", 31},
                                         Name{"a\"b", 34}, Name{"a*b", 42}, Name{"a/b", 47}, Name{"a:b", 58},
                                         Name{"a<b", 60}, Name{"a>b", 62}, Name{"a?b", 63}, Name{"a\\b", 92},
                                         Name{"a|b", 124}, Name{"a?b*c", 63}, Name{".a:b", 58},
                                         Name{"con?", 63}));

INSTANTIATE_TEST_SUITE_P(Dots, AsciiName,
                         testing::Values(Name{".", 46}, Name{"..", 46}, Name{std::string(255, '.'), 46},
                                         Name{".smx", 0}, Name{".con", 0}, Name{"..con", 0},
                                         Name{".a.b", 0}));

INSTANTIATE_TEST_SUITE_P(Devices, AsciiName,
                         testing::Values(Name{"CLOCK$", -2}, Name{"clock$.txt", -2}, Name{"AUX", -3},
                                         Name{"aux", -3}, Name{"con", -4}, Name{"Con.smx", -4},
                                         Name{"con.a.b", -4}, Name{"NUL", -5}, Name{"PRN", -6},
                                         Name{"COM1", -7}, Name{"COM2", -8}, Name{"COM3", -9},
                                         Name{"COM4", -10}, Name{"COM5", -11}, Name{"COM6", -12},
                                         Name{"COM7", -13}, Name{"COM8", -14}, Name{"com9.smx", -15},
                                         Name{"LPT1", -16}, Name{"LPT2", -17}, Name{"LPT3", -18},
                                         Name{"LPT4", -19}, Name{"LPT5", -20}, Name{"LPT6", -21},
                                         Name{"LPT7", -22}, Name{"LPT8", -23}, Name{"lpt9", -24}));

INSTANTIATE_TEST_SUITE_P(NearlyDevices, AsciiName,
                         testing::Values(Name{"console", 0}, Name{"COM10", 0}, Name{"co", 0},
                                         Name{"CLOCK", 0}, Name{"CLOCK4", 0}, Name{"com", 0},
                                         Name{"a.con", 0}, Name{"con ", 0}, Name{"COMX", -46},
                                         Name{"comx", -78}, Name{"COM0", -6}, Name{"LPTX", -55},
                                         Name{"LPT!", 0}, Name{"lpt!.smx", 0}, Name{"LPT0", -15},
                                         Name{"COM*", 42}));

TEST(NullName, IsInvalidInBothWidths) {
    EXPECT_EQ(IsValidFileName(static_cast<const char*>(nullptr)), -1);
    EXPECT_EQ(IsValidFileName(static_cast<const char16_t*>(nullptr)), -1);
}

TEST(NarrowName, CountsBytesOf128AndMoreAsNegative) {
    EXPECT_EQ(IsValidFileName("caf\xE9"), -23); // the code of "LPT8" as well
    EXPECT_EQ(IsValidFileName("\x80"), -128);
    EXPECT_EQ(IsValidFileName("a\xFF"), -1);
    EXPECT_EQ(IsValidFileName("µ.smx"), -62); // two bytes, C2 B5
}

TEST(WideName, TakesCharactersOf128AndMore) {
    EXPECT_EQ(IsValidFileName(u"caf\u00E9"), 0);
    EXPECT_EQ(IsValidFileName(u"\u0080"), 0);
    EXPECT_EQ(IsValidFileName(u"\u8111\u6CE2.smx"), 0);
    EXPECT_EQ(IsValidFileName(u"\uFFFF"), 0);
}

TEST(WideName, DoesNotMistakeOtherCharactersForTheLowerHalfOfTheirCode) {
    EXPECT_EQ(IsValidFileName(u"a\u013A"), 0);      // 0x3A is the colon
    EXPECT_EQ(IsValidFileName(u"\u0143ON"), 0);     // 0x43 is C
    EXPECT_EQ(IsValidFileName(u"COM\u0131"), -263); // 42 - 0x131
}

TEST(FileNameCodeText, NamesTheDevices) {
    const char* const texts[] = {"Error", "CLOCK$", "AUX",  "CON",  "NUL",  "PRN",  "COM1", "COM2",
                                 "COM3",  "COM4",   "COM5", "COM6", "COM7", "COM8", "COM9", "LPT1",
                                 "LPT2",  "LPT3",   "LPT4", "LPT5", "LPT6", "LPT7", "LPT8", "LPT9"};
    int code = 0;
    for (const char* text : texts) {
        --code;
        EXPECT_STREQ(FileNameCodeText(code), text) << code;
    }
}

TEST(FileNameCodeText, CallsEveryOtherCodeAnError) {
    for (const int code : {0, 1, 58, -25, -1000, -2147483647 - 1, 2147483647}) {
        EXPECT_STREQ(FileNameCodeText(code), "Error") << code;
    }
}

} // namespace

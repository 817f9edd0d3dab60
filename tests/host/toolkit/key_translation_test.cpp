// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/key_translation.h"

#include <gtest/gtest.h>

namespace {

constexpr Qt::KeyboardModifiers kNone = Qt::NoModifier;
constexpr Qt::KeyboardModifiers kShift = Qt::ShiftModifier;
constexpr Qt::KeyboardModifiers kBoth = Qt::ControlModifier | Qt::ShiftModifier;
constexpr Qt::KeyboardModifiers kKeypad = Qt::KeypadModifier;
constexpr int kCyrillicEf = 0x0424;
constexpr int kUmlautO = 0x00D6;

struct Case {
    const char* what;
    owl::KeyPress press;
    unsigned virtualKey;
};

constexpr Case kCases[] = {
    {"1 on an American keyboard", {10, Qt::Key_1, kNone}, 0x31},
    {"Ctrl+Shift+1, American", {10, Qt::Key_Exclam, kBoth}, 0x31},
    {"Ctrl+Shift+2, American", {11, Qt::Key_At, kBoth}, 0x32},
    {"Ctrl+Shift+2, German", {11, Qt::Key_QuoteDbl, kBoth}, 0x32},
    {"Ctrl+Shift+4, British", {13, Qt::Key_Dollar, kBoth}, 0x34},
    {"Ctrl+1, French: writes &", {10, Qt::Key_Ampersand, Qt::ControlModifier}, 0x31},
    {"Ctrl+Shift+1, French: writes 1", {10, Qt::Key_1, kBoth}, 0x31},
    {"Shift+0, German: writes =", {19, Qt::Key_Equal, kShift}, 0x30},
    {"Shift+7, German: writes /", {16, Qt::Key_Slash, kShift}, 0x37},
    {"Ctrl+Shift+1 without scan code", {0, Qt::Key_Exclam, kBoth}, 0x31},
    {"Ctrl+Shift+2 without scan code", {0, Qt::Key_At, kBoth}, 0x32},
    {"Ctrl+Shift+4 without scan code", {0, Qt::Key_Dollar, kBoth}, 0x34},
    {"Shift+0 without scan code", {0, Qt::Key_ParenRight, kShift}, 0x30},
    {"1 without scan code", {0, Qt::Key_1, kNone}, 0x31},
    {"a bare ! without Shift and scan code", {0, Qt::Key_Exclam, kNone}, 0},
    {"A", {38, Qt::Key_A, kBoth}, 0x41},
    {"E", {26, Qt::Key_E, kBoth}, 0x45},
    {"W without scan code", {0, Qt::Key_W, kBoth}, 0x57},
    {"Z", {52, Qt::Key_Z, kNone}, 0x5A},
    {"A on a French keyboard, at Q's place", {24, Qt::Key_A, kNone}, 0x41},
    {"a Cyrillic letter at A's place", {38, kCyrillicEf, kNone}, 0x41},
    {"a letter that is neither", {47, kUmlautO, kNone}, 0},
    {"Left", {113, Qt::Key_Left, kNone}, 0x25},
    {"Up", {111, Qt::Key_Up, kNone}, 0x26},
    {"Right", {114, Qt::Key_Right, kNone}, 0x27},
    {"Down", {116, Qt::Key_Down, kNone}, 0x28},
    {"Down on the keypad", {88, Qt::Key_Down, kKeypad}, 0x28},
    {"Page Up", {112, Qt::Key_PageUp, kNone}, 0x21},
    {"Page Down", {117, Qt::Key_PageDown, kNone}, 0x22},
    {"End", {115, Qt::Key_End, kNone}, 0x23},
    {"Home", {110, Qt::Key_Home, kNone}, 0x24},
    {"Delete", {119, Qt::Key_Delete, kNone}, 0x2E},
    {"Insert", {118, Qt::Key_Insert, kNone}, 0x2D},
    {"Space", {65, Qt::Key_Space, kNone}, 0x20},
    {"Return", {36, Qt::Key_Return, kNone}, 0x0D},
    {"Enter on the keypad", {104, Qt::Key_Enter, kKeypad}, 0x0D},
    {"Escape", {9, Qt::Key_Escape, kNone}, 0x1B},
    {"Shift+Tab", {23, Qt::Key_Backtab, kShift}, 0x09},
    {"F1", {67, Qt::Key_F1, kNone}, 0x70},
    {"F12", {96, Qt::Key_F12, kNone}, 0x7B},
    {"F24", {0, Qt::Key_F24, kNone}, 0x87},
    {"=", {21, Qt::Key_Equal, kNone}, 0xBB},
    {"Shift+=, American: +", {21, Qt::Key_Plus, kShift}, 0xBB},
    {"-", {20, Qt::Key_Minus, kNone}, 0xBD},
    {"Shift+-, American: _", {20, Qt::Key_Underscore, kShift}, 0xBD},
    {"+ on the keypad", {86, Qt::Key_Plus, kKeypad}, 0x6B},
    {"- on the keypad", {82, Qt::Key_Minus, kKeypad}, 0x6D},
    {"* on the keypad", {63, Qt::Key_Asterisk, kKeypad}, 0x6A},
    {"1 on the keypad", {87, Qt::Key_1, kKeypad}, 0x61},
    {"Ctrl itself", {37, Qt::Key_Control, Qt::ControlModifier}, 0x11},
    {"a key without number", {0, Qt::Key_LaunchMail, kNone}, 0},
};

TEST(VirtualKey, IsTheOneOfTheKeyOnAnyLayout) {
    for (const Case& row : kCases) {
        EXPECT_EQ(owl::VirtualKey(row.press), row.virtualKey) << row.what;
    }
}

} // namespace

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/key_translation.h"

#include <array>
#include <span>
#include <string_view>

namespace owl {

namespace {

struct Pair {
    int key;
    unsigned virtualKey;
};

constexpr Pair kNamedKeys[] = {
    {Qt::Key_Backspace, 0x08}, {Qt::Key_Tab, 0x09},    {Qt::Key_Backtab, 0x09},    {Qt::Key_Return, 0x0D},
    {Qt::Key_Enter, 0x0D},     {Qt::Key_Shift, 0x10},  {Qt::Key_Control, 0x11},    {Qt::Key_Alt, 0x12},
    {Qt::Key_Pause, 0x13},     {Qt::Key_Escape, 0x1B}, {Qt::Key_Space, 0x20},      {Qt::Key_PageUp, 0x21},
    {Qt::Key_PageDown, 0x22},  {Qt::Key_End, 0x23},    {Qt::Key_Home, 0x24},       {Qt::Key_Left, 0x25},
    {Qt::Key_Up, 0x26},        {Qt::Key_Right, 0x27},  {Qt::Key_Down, 0x28},       {Qt::Key_Insert, 0x2D},
    {Qt::Key_Delete, 0x2E},    {Qt::Key_Plus, 0xBB},   {Qt::Key_Equal, 0xBB},      {Qt::Key_Comma, 0xBC},
    {Qt::Key_Less, 0xBC},      {Qt::Key_Minus, 0xBD},  {Qt::Key_Underscore, 0xBD}, {Qt::Key_Period, 0xBE},
    {Qt::Key_Greater, 0xBE},
};

constexpr Pair kKeypadKeys[] = {
    {Qt::Key_Asterisk, 0x6A}, {Qt::Key_Plus, 0x6B},  {Qt::Key_Minus, 0x6D},
    {Qt::Key_Period, 0x6E},   {Qt::Key_Comma, 0x6E}, {Qt::Key_Slash, 0x6F},
};

/// What Shift writes on the digits of an American keyboard.
constexpr Pair kShiftedDigits[] = {
    {Qt::Key_ParenRight, '0'},  {Qt::Key_Exclam, '1'},    {Qt::Key_At, '2'},
    {Qt::Key_NumberSign, '3'},  {Qt::Key_Dollar, '4'},    {Qt::Key_Percent, '5'},
    {Qt::Key_AsciiCircum, '6'}, {Qt::Key_Ampersand, '7'}, {Qt::Key_Asterisk, '8'},
    {Qt::Key_ParenLeft, '9'},
};

/// Keys that lie side by side, from this scan code on, as an American keyboard writes them.
struct Row {
    std::uint32_t firstScanCode;
    std::string_view characters;
};
constexpr Row kDigitRow{10, "1234567890"};
constexpr Row kLetterRows[] = {{24, "QWERTYUIOP"}, {38, "ASDFGHJKL"}, {52, "ZXCVBNM"}};

unsigned Among(std::span<const Pair> pairs, int key) {
    for (const Pair& pair : pairs) {
        if (pair.key == key) {
            return pair.virtualKey;
        }
    }
    return 0;
}

unsigned InRow(const Row& row, std::uint32_t scanCode) {
    const std::uint32_t place = scanCode - row.firstScanCode; // huge before the row
    return place < row.characters.size() ? static_cast<unsigned>(row.characters[place]) : 0;
}

unsigned KeypadKey(int key) {
    constexpr unsigned kNumpad0 = 0x60;
    const bool digit = key >= Qt::Key_0 && key <= Qt::Key_9;
    return digit ? kNumpad0 + static_cast<unsigned>(key - Qt::Key_0) : Among(kKeypadKeys, key);
}

unsigned LetterByPlace(std::uint32_t scanCode) {
    for (const Row& row : kLetterRows) {
        if (const unsigned letter = InRow(row, scanCode)) {
            return letter;
        }
    }
    return 0;
}

} // namespace

unsigned VirtualKey(const KeyPress& press) {
    if (press.modifiers.testFlag(Qt::KeypadModifier)) {
        if (const unsigned key = KeypadKey(press.key)) {
            return key;
        }
    }
    if (const unsigned digit = InRow(kDigitRow, press.scanCode)) {
        return digit;
    }
    if ((press.key >= Qt::Key_0 && press.key <= Qt::Key_9) ||
        (press.key >= Qt::Key_A && press.key <= Qt::Key_Z)) {
        return static_cast<unsigned>(press.key); // Qt numbers them alike
    }
    if (press.key >= Qt::Key_F1 && press.key <= Qt::Key_F24) {
        constexpr unsigned kF1 = 0x70;
        return kF1 + static_cast<unsigned>(press.key - Qt::Key_F1);
    }
    if (press.scanCode == 0 && press.modifiers.testFlag(Qt::ShiftModifier)) {
        if (const unsigned digit = Among(kShiftedDigits, press.key)) {
            return digit;
        }
    }
    const unsigned named = Among(kNamedKeys, press.key);
    return named != 0 ? named : LetterByPlace(press.scanCode);
}

} // namespace owl

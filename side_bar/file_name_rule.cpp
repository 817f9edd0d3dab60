// SPDX-License-Identifier: GPL-3.0-or-later
#include "side_bar/file_name_rule.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace {

constexpr int kFault = -1;
constexpr std::size_t kTooLong = 256;

/// Text of code -1 first.
constexpr std::array<const char*, 24> kCodeTexts = {
    "Error", "CLOCK$", "AUX",  "CON",  "NUL",  "PRN",  "COM1", "COM2", "COM3", "COM4", "COM5", "COM6",
    "COM7",  "COM8",   "COM9", "LPT1", "LPT2", "LPT3", "LPT4", "LPT5", "LPT6", "LPT7", "LPT8", "LPT9"};

/// Bytes count as signed on every system, whatever plain char is there.
constexpr int CodeOf(char c) {
    return static_cast<signed char>(c);
}

constexpr int CodeOf(char16_t c) {
    return c;
}

constexpr bool IsInvalid(int code) {
    return code < 0x20 || (code < 0x80 && std::string_view("\"*/:<>?|\\").find(static_cast<char>(code)) !=
                                              std::string_view::npos);
}

/// Whether the text is \p device (capitals), case ignored.
template <typename Char>
bool Names(std::basic_string_view<Char> text, std::string_view device) {
    return std::equal(text.begin(), text.end(), device.begin(), device.end(), [](Char c, char capital) {
        const int code = CodeOf(c);
        return (code >= 'a' && code <= 'z' ? code - 'a' + 'A' : code) == capital;
    });
}

/// Code of the device that the name without extension stands for, else 0.
template <typename Char>
int DeviceCode(std::basic_string_view<Char> stem) {
    if (stem.size() == 4) {
        // The first digit's device follows the ones before it in the table.
        if (Names(stem.substr(0, 3), "COM")) {
            return 42 - CodeOf(stem[3]);
        }
        return Names(stem.substr(0, 3), "LPT") ? 33 - CodeOf(stem[3]) : 0;
    }
    for (const int code : {-2, -3, -4, -5, -6}) {
        if (Names(stem, FileNameCodeText(code))) {
            return code;
        }
    }
    return 0;
}

template <typename Char>
int Check(const Char* text) {
    const std::basic_string_view<Char> name = text != nullptr ? text : std::basic_string_view<Char>();
    if (name.empty()) {
        return kFault;
    }
    const auto invalid = std::find_if(name.begin(), name.end(), [](Char c) { return IsInvalid(CodeOf(c)); });
    if (invalid != name.end()) {
        return CodeOf(*invalid);
    }
    if (name.size() >= kTooLong) {
        return kFault;
    }
    const Char dot = '.';
    if (name.find_first_not_of(dot) == name.npos) {
        return dot;
    }
    return name.front() == dot ? 0 : DeviceCode(name.substr(0, name.find(dot)));
}

} // namespace

int IsValidFileName(const char* name) {
    return Check(name);
}

int IsValidFileName(const char16_t* name) {
    return Check(name);
}

const char* FileNameCodeText(int code) {
    const bool known = code < 0 && code >= -static_cast<int>(kCodeTexts.size());
    return known ? kCodeTexts[static_cast<std::size_t>(-code - 1)] : kCodeTexts.front();
}

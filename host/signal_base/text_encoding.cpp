// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/text_encoding.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace orvanta::signal {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::uint16_t kReplacement = 0xFFFD;

// Characters of the Windows-1252 bytes 0x80 to 0x9F; all others equal their byte.
constexpr std::array<std::uint16_t, 32> kWindows1252 = {
    0x20AC,       kReplacement, 0x201A, 0x0192, 0x201E, 0x2026,       0x2020, 0x2021,
    0x02C6,       0x2030,       0x0160, 0x2039, 0x0152, kReplacement, 0x017D, kReplacement,
    kReplacement, 0x2018,       0x2019, 0x201C, 0x201D, 0x2022,       0x2013, 0x2014,
    0x02DC,       0x2122,       0x0161, 0x203A, 0x0153, kReplacement, 0x017E, 0x0178};

/// Bytes of the well-formed character at the start of \p text, 0 when there is none.
std::size_t CharacterLength(std::string_view text) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byte(0);
    if (lead < 0x80) {
        return 1;
    }
    const std::size_t length = lead < 0xC2 ? 0 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF5 ? 4 : 0;
    if (length == 0 || text.size() < length) {
        return 0;
    }
    // The second byte's range excludes overlong forms, surrogates and what lies beyond U+10FFFF.
    const unsigned char low = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    const unsigned char high = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    if (byte(1) < low || byte(1) > high) {
        return 0;
    }
    for (std::size_t i = 2; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80) {
            return 0;
        }
    }
    return length;
}

struct Census {
    bool malformed = false;
    bool multiByte = false;
};

Census Examine(std::string_view text) {
    Census census;
    while (!text.empty()) {
        const std::size_t length = CharacterLength(text);
        census.malformed |= length == 0;
        census.multiByte |= length > 1;
        text.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return census;
}

/// For characters from U+0080 to U+FFFF.
void Append(std::string& text, std::uint16_t character) {
    if (character < 0x800) {
        text += static_cast<char>(0xC0 | character >> 6);
    } else {
        text += static_cast<char>(0xE0 | character >> 12);
        text += static_cast<char>(0x80 | (character >> 6 & 0x3F));
    }
    text += static_cast<char>(0x80 | (character & 0x3F));
}

std::string ReplaceMalformed(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const std::size_t length = CharacterLength(text);
        if (length == 0) {
            Append(result, kReplacement);
        } else {
            result += text.substr(0, length);
        }
        text.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return result;
}

std::string FromWindows1252(std::string_view text) {
    std::string result;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80) {
            result += c;
        } else {
            Append(result, byte < 0xA0 ? kWindows1252[byte - 0x80u] : byte);
        }
    }
    return result;
}

} // namespace

bool IsUtf8(std::string_view bytes) {
    return !Examine(bytes).malformed;
}

std::string ToUtf8(std::string_view bytes, bool* repaired) {
    if (bytes.starts_with(kByteOrderMark)) {
        bytes.remove_prefix(kByteOrderMark.size());
    }
    const Census census = Examine(bytes);
    if (repaired != nullptr) {
        *repaired = census.malformed;
    }
    if (!census.malformed) {
        return std::string(bytes);
    }
    return census.multiByte ? ReplaceMalformed(bytes) : FromWindows1252(bytes);
}

std::string Quoted(std::string_view bytes) {
    constexpr std::size_t kLongest = 40;
    // A few bytes more than are shown, so that the last shown character is whole and the work is bounded.
    std::string text = ToUtf8(bytes.substr(0, kLongest + 4));
    const bool cut = text.size() > kLongest;
    if (cut) {
        std::size_t end = kLongest;
        while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) {
            --end;
        }
        text.resize(end);
    }
    std::replace_if(
        text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; },
        ' ');
    return '"' + text + (cut ? "...\"" : "\"");
}

} // namespace orvanta::signal

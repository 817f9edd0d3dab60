// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/cli/output.h"

#include "host/platform/atomic_file.h"
#include "host/review/cli/exit_status.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace orvanta::cli {

void WriteOutput(const std::string& target, std::string_view text) {
    if (target != "-") {
        platform::WriteFileAtomically(target, text);
        return;
    }
    if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size() || std::fflush(stdout) != 0) {
        throw UsageError("standard output: cannot be written (is the pipe closed or the disk full?)");
    }
}

std::string FixedText(double value, int decimals) {
    if (!std::isfinite(value)) {
        return "n/a";
    }
    std::array<char, 400> buffer;
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed, decimals)
            .ptr;
    return {buffer.data(), end};
}

std::string DurationText(double seconds) {
    const long long whole = std::llround(seconds);
    std::array<char, 48> buffer;
    std::snprintf(buffer.data(), buffer.size(), "%lld:%02lld:%02lld", whole / 3600, whole / 60 % 60,
                  whole % 60);
    return buffer.data();
}

std::string CsvLine(std::initializer_list<std::string_view> fields) {
    std::string line;
    for (const std::string_view field : fields) {
        line += line.empty() ? "" : ",";
        if (field.find_first_of(",\"\r\n") == std::string_view::npos) {
            line += field;
            continue;
        }
        line += '"';
        for (const char c : field) {
            line += c == '"' ? "\"\"" : std::string(1, c);
        }
        line += '"';
    }
    return line + '\n';
}

std::string CsvHeading() {
    return CsvLine({"trace", "kind", "band", "measure", "value", "unit"});
}

std::string Pad(std::string_view text, int width) {
    int columns = 0;
    for (const char c : text) {
        columns += (static_cast<unsigned char>(c) & 0xC0) != 0x80;
    }
    const int missing = std::abs(width) - columns;
    const std::string blanks(missing > 0 ? static_cast<std::size_t>(missing) : 0, ' ');
    return width < 0 ? blanks + std::string(text) : std::string(text) + blanks;
}

} // namespace orvanta::cli

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/cli/output.h"

#include "host/platform/atomic_file.h"
#include "host/review/cli/exit_status.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

namespace orvanta::cli {

namespace {

bool SameFile(const std::string& a, const std::string& b) {
    std::error_code none;
    return std::filesystem::equivalent(a, b, none) ||
           std::filesystem::absolute(a, none).lexically_normal() ==
               std::filesystem::absolute(b, none).lexically_normal();
}

} // namespace

void CheckConflicts(const std::vector<OutputOption>& outputs, const std::vector<std::string>& inputs) {
    for (std::size_t i = 0; i < outputs.size(); ++i) {
        const std::string& target = outputs[i].target;
        if (target.empty()) {
            continue;
        }
        for (const std::string& input : inputs) {
            if (target != "-" && SameFile(target, input)) {
                throw UsageError(target + ": is read by this command and cannot be written too (give " +
                                 outputs[i].option + " another name)");
            }
        }
        for (std::size_t j = 0; j < i; ++j) {
            if (!outputs[j].target.empty() && SameFile(target, outputs[j].target)) {
                throw UsageError(target + ": is named by " + outputs[j].option + " and by " +
                                 outputs[i].option + " (give each its own name)");
            }
        }
    }
}

void CheckOutputs(const std::vector<OutputOption>& outputs, const std::vector<std::string>& inputs) {
    CheckConflicts(outputs, inputs);
    for (const OutputOption& output : outputs) {
        if (!output.target.empty() && output.target != "-") {
            CheckWritable(output.target);
        }
    }
}

void CheckWritable(const std::string& file) {
    const platform::AtomicFile probe(file, platform::FileOperations::WithoutSync());
}

void WriteOutput(const std::string& target, std::string_view text) {
    if (target != "-") {
        platform::WriteFileAtomically(target, text, platform::FileOperations::WithoutSync());
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
    // What rounds to zero has no sign.
    if (std::fabs(value) < 0.5 * std::pow(10.0, -decimals)) {
        value = 0;
    }
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed, decimals)
            .ptr;
    return {buffer.data(), end};
}

std::string CompactText(double value) {
    const double size = std::fabs(value);
    if (std::isfinite(value) && size != 0 && (size >= 1e5 || size < 1e-3)) {
        std::array<char, 32> buffer;
        const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                       std::chars_format::scientific, 1)
                             .ptr;
        return {buffer.data(), end};
    }
    return FixedText(value, size >= 1000 ? 0 : size >= 100 ? 1 : size >= 1 ? 2 : 4);
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

std::string Counted(std::size_t count, std::string_view one) {
    return std::to_string(count) + " " + std::string(one) + (count == 1 ? "" : "s");
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

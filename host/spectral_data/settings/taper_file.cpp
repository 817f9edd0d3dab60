// SPDX-License-Identifier: GPL-3.0-or-later
// Reading ".wnd" files.
#include "host/signal_base/data_file.h"
#include "host/signal_base/recording_error.h"
#include "host/signal_base/text.h"
#include "host/spectral_data/settings/tapers.h"

#include <algorithm>
#include <cmath>
#include <filesystem>

namespace orvanta::spectral {

namespace {

constexpr std::size_t kMaxBytes = 2u << 20;
constexpr std::size_t kMaxCoefficients = 32;
constexpr std::size_t kMinTable = 2;
constexpr std::size_t kMaxTable = 65536;
constexpr double kMaxValue = 1e6;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

} // namespace

/// Reads one file line by line; its messages name the line.
class TaperReader {
public:
    explicit TaperReader(const std::string& file) : file_(file) {}

    Taper Read(std::string_view content) {
        if (content.size() > kMaxBytes) {
            throw signal::RecordingError(file_, "larger than " + std::to_string(kMaxBytes) + " bytes",
                                         "choose a window function's file");
        }
        if (content.starts_with(kByteOrderMark)) {
            content.remove_prefix(kByteOrderMark.size());
        }
        taper_.name_ = std::filesystem::path(file_).stem().string();
        while (!content.empty()) {
            ++line_;
            const std::string_view line = signal::Trim(signal::TakeLine(content));
            if (!line.empty() && line.front() != '#') {
                ReadLine(line);
            }
        }
        Check();
        return std::move(taper_);
    }

private:
    [[noreturn]] void Fail(const std::string& reason, const std::string& remedy) const {
        throw signal::RecordingError(file_, "line " + std::to_string(line_) + ": " + reason, remedy);
    }

    void ReadLine(std::string_view line) {
        const std::size_t equals = line.find('=');
        if (equals == std::string_view::npos) {
            Fail("no \"key=value\"", "write kind=, coefficients= or values=, or begin a comment with #");
        }
        const std::string_view key = signal::Trim(line.substr(0, equals));
        const std::string_view value = signal::Trim(line.substr(equals + 1));
        if (key == "kind") {
            ReadKind(value);
        } else if (key == "coefficients") {
            Expect(Taper::Kind::Cosine, "coefficients belong to kind=cosine");
            if (!taper_.numbers_.empty()) {
                Fail("coefficients are there twice", "remove one of the lines");
            }
            ReadNumbers(value, kMaxCoefficients);
        } else if (key == "values") {
            Expect(Taper::Kind::Table, "values belong to kind=table");
            ReadNumbers(value, kMaxTable);
        } else {
            Fail("unknown key", "use kind, coefficients or values");
        }
    }

    void ReadKind(std::string_view value) {
        if (hasKind_) {
            Fail("kind is there twice", "remove one of the lines");
        }
        if (signal::SameText(value, "cosine")) {
            taper_.kind_ = Taper::Kind::Cosine;
        } else if (signal::SameText(value, "triangle")) {
            taper_.kind_ = Taper::Kind::Triangle;
        } else if (signal::SameText(value, "table")) {
            taper_.kind_ = Taper::Kind::Table;
        } else {
            Fail("unknown kind", "use cosine, triangle or table");
        }
        hasKind_ = true;
    }

    void Expect(Taper::Kind kind, const char* reason) const {
        if (!hasKind_ || taper_.kind_ != kind) {
            Fail(reason, "put the matching kind= line before this one");
        }
    }

    void ReadNumbers(std::string_view text, std::size_t most) {
        while (!text.empty()) {
            const std::size_t end = std::min(text.find_first_of(" \t"), text.size());
            const std::optional<double> number = signal::ParseNumber(text.substr(0, end));
            if (!number || std::abs(*number) > kMaxValue) {
                Fail("no number from -1000000 to 1000000", "separate numbers by blanks");
            }
            if (taper_.numbers_.size() == most) {
                Fail("more than " + std::to_string(most) + " numbers", "shorten the list");
            }
            taper_.numbers_.push_back(*number);
            text = signal::Trim(text.substr(end));
        }
    }

    void Check() const {
        if (!hasKind_) {
            Fail("no kind", "add a line kind=cosine, kind=triangle or kind=table");
        }
        if (taper_.kind_ == Taper::Kind::Table && taper_.numbers_.size() < kMinTable) {
            Fail("fewer than 2 values", "add a line values=...");
        }
        const bool flat = std::all_of(taper_.numbers_.begin(), taper_.numbers_.end(),
                                      [](double number) { return number == 0; });
        if (taper_.kind_ != Taper::Kind::Triangle && flat) {
            Fail("no number that is not 0", "add a line coefficients=... or values=...");
        }
    }

    const std::string& file_;
    std::size_t line_ = 0;
    bool hasKind_ = false;
    Taper taper_;
};

Taper Taper::Load(const std::string& path) {
    return Parse(path, signal::DataFile(path, "a window function's file").ReadAll(kMaxBytes));
}

Taper Taper::Parse(const std::string& file, std::string_view content) {
    return TaperReader(file).Read(content);
}

} // namespace orvanta::spectral

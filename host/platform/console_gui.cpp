// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/platform/console_gui.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <ostream>
#include <utility>

#include <unistd.h>

namespace orvanta::platform {

namespace {

constexpr double kRedrawSeconds = 0.1;

double SystemSeconds() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

std::string Format(const char* format, auto... values) {
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), format, values...);
    return text.data();
}

/// "42 s", "2 min 05 s", "1 h 02 min".
std::string DurationText(double seconds) {
    const auto whole = static_cast<long long>(std::min(std::ceil(seconds), 359999.0));
    if (whole < 60) {
        return Format("%lld s", whole);
    }
    if (whole < 3600) {
        return Format("%lld min %02lld s", whole / 60, whole % 60);
    }
    return Format("%lld h %02lld min", whole / 3600, whole / 60 % 60);
}

} // namespace

/// The one line of the terminal that messages and progress share.
class ConsoleLine {
public:
    explicit ConsoleLine(std::ostream& stream) : stream_(stream) {}

    void Redraw(const std::string& text) {
        stream_ << '\r' << text << "\x1b[K" << std::flush;
        open_ = true;
    }
    void Finish() {
        if (std::exchange(open_, false)) {
            stream_ << '\n' << std::flush;
        }
    }
    void Message(const std::string& text) {
        Finish();
        stream_ << text << '\n' << std::flush;
    }

private:
    std::ostream& stream_;
    bool open_ = false;
};

namespace {

class ConsoleProgress final : public GenericProgress {
public:
    ConsoleProgress(std::shared_ptr<ConsoleLine> line, const ConsoleGui::Options& options, std::string text)
        : line_(std::move(line)), options_(options), text_(std::move(text)), started_(options.seconds()) {}
    ~ConsoleProgress() override { line_->Finish(); }
    ConsoleProgress(const ConsoleProgress&) = delete;
    ConsoleProgress& operator=(const ConsoleProgress&) = delete;

    void SetText(const std::string& text) override { text_ = text; }

    void SetPosition(double fraction) override {
        const double now = options_.seconds();
        const double share = fraction > 0 ? std::min(fraction, 1.0) : 0.0; // a NaN counts as nothing done
        if (now - drawn_ < kRedrawSeconds && share < 1) {
            return;
        }
        drawn_ = now;
        std::string line = text_ + Format("  %.0f %%", std::floor(share * 100));
        if (const double elapsed = now - started_; elapsed > 0 && share > 0) {
            line += Format("  %.3g ", share * options_.work / elapsed) + options_.work_unit + "/s";
            line += share < 1 ? "  " + DurationText(elapsed * (1 - share) / share) + " left"
                              : "  in " + DurationText(elapsed);
        }
        line_->Redraw(line);
    }

    bool IsCancelled() const override { return false; }

private:
    std::shared_ptr<ConsoleLine> line_;
    const ConsoleGui::Options& options_;
    std::string text_;
    double started_;
    double drawn_ = -1;
};

} // namespace

ConsoleGui::ConsoleGui(std::ostream& stream, Options options)
    : line_(std::make_shared<ConsoleLine>(stream)), options_(std::move(options)) {
    if (!options_.seconds) {
        options_.seconds = SystemSeconds;
    }
}

ConsoleGui::~ConsoleGui() = default;

bool ConsoleGui::StandardErrorIsTerminal() {
    return isatty(STDERR_FILENO) != 0;
}

void ConsoleGui::ShowError(const std::string& text) const {
    line_->Message(options_.program + ": " + text);
}

void ConsoleGui::ShowWarning(const std::string& text) const {
    line_->Message(options_.program + ": warning: " + text);
}

std::unique_ptr<GenericProgress> ConsoleGui::CreateProgress(const std::string& text) const {
    return options_.terminal ? std::make_unique<ConsoleProgress>(line_, options_, text) : nullptr;
}

} // namespace orvanta::platform

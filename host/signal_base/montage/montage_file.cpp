// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/montage/montage_file.h"

#include "host/signal_base/text.h"
#include "host/signal_base/text_encoding.h"

#include <algorithm>
#include <filesystem>
#include <set>

namespace orvanta::signal {

namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

/// Takes terms off the right side of one line.
class TermReader {
public:
    TermReader(std::string_view text, const std::string& file, std::size_t line)
        : text_(text), file_(file), line_(line) {}

    [[noreturn]] void Refuse(const std::string& reason, const std::string& remedy) const {
        throw MontageError(file_, line_, reason, remedy);
    }

    bool AtEnd() {
        SkipBlanks();
        return text_.empty();
    }

    /// A sign; without one, +1 for the first term of a channel.
    double TakeSign(bool first) {
        if (Take('+')) {
            return 1;
        }
        if (Take('-')) {
            return -1;
        }
        if (!first) {
            Refuse("no sign before " + Quoted(text_),
                   "write + or - before every term and names with blanks in quotes");
        }
        return 1;
    }

    MontageTerm TakeTerm(bool first) {
        MontageTerm term;
        term.weight = TakeSign(first);
        SkipBlanks();
        term.sensor = TakeName();
        SkipBlanks();
        if (Take('*')) {
            term.weight *= Weight(term.sensor);
            SkipBlanks();
            term.sensor = TakeName();
        }
        return term;
    }

private:
    void SkipBlanks() {
        while (!text_.empty() && IsBlank(text_.front())) {
            text_.remove_prefix(1);
        }
    }

    bool Take(char c) {
        const bool there = text_.starts_with(c);
        text_.remove_prefix(there ? 1 : 0);
        return there;
    }

    std::string TakeName() {
        const bool quoted = Take('"');
        const std::size_t end =
            quoted ? text_.find('"') : std::min(text_.find_first_of(" \t*"), text_.size());
        if (end == std::string_view::npos) {
            Refuse("a quote is not closed", "close the name with \"");
        }
        std::string name(Trim(text_.substr(0, end)));
        text_.remove_prefix(end + (quoted ? 1 : 0));
        if (name.empty()) {
            Refuse("a sensor name is missing", "write terms such as +Fp1 or -0.5*A1");
        }
        return name;
    }

    double Weight(const std::string& text) const {
        const std::optional<double> weight = ParseNumber(text);
        if (!weight || *weight == 0) {
            Refuse(Quoted(text) + " is no weight", "write a number other than 0 before *");
        }
        return *weight;
    }

    std::string_view text_;
    const std::string& file_;
    std::size_t line_;
};

std::string_view WithoutComment(std::string_view line) {
    bool quoted = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        quoted ^= line[i] == '"';
        if (line[i] == '#' && !quoted && (i == 0 || IsBlank(line[i - 1]))) {
            return line.substr(0, i);
        }
    }
    return line;
}

std::vector<MontageTerm> ReadTerms(TermReader& reader) {
    std::vector<MontageTerm> terms;
    std::set<std::string> sensors;
    while (!reader.AtEnd()) {
        terms.push_back(reader.TakeTerm(terms.empty()));
        if (!sensors.insert(terms.back().sensor).second) {
            reader.Refuse("sensor " + Quoted(terms.back().sensor) + " occurs twice",
                          "give every sensor one weight per channel");
        }
    }
    if (terms.empty()) {
        reader.Refuse("the channel has no sensor", "write terms such as +Fp1 -F3 after =");
    }
    return terms;
}

/// Collects the montages of a file line by line.
class MontageReader {
public:
    explicit MontageReader(const std::string& file) : file_(file) {}

    void Read(std::string_view line) {
        ++line_;
        line = Trim(WithoutComment(line));
        if (line.starts_with('[')) {
            Start(line);
        } else if (!line.empty()) {
            AddChannel(line);
        }
    }

    std::vector<MontageText> Finish() {
        CheckNotEmpty();
        if (montages_.empty()) {
            throw RecordingError(file_, "has no channel", "write channels such as \"Fp1-F3 = +Fp1 -F3\"");
        }
        return std::move(montages_);
    }

private:
    void Start(std::string_view line) {
        const std::string name(line.ends_with(']') ? Trim(line.substr(1, line.size() - 2)) : "");
        if (name.empty()) {
            Refuse("a montage name is missing or not closed", "write [name]");
        }
        CheckNotEmpty();
        StartMontage(name);
    }

    void StartMontage(const std::string& name) {
        if (!names_.insert(name).second) {
            Refuse("montage " + Quoted(name) + " occurs twice", "give every montage its own name");
        }
        montages_.push_back({name, {}});
        labels_.clear();
        start_ = line_;
    }

    void AddChannel(std::string_view line) {
        const std::size_t equals = line.find('=');
        const std::string label(Trim(line.substr(0, equals)));
        if (equals == std::string_view::npos || label.empty()) {
            Refuse("is no channel", "write a line such as \"Fp1-F3 = +Fp1 -F3\"");
        }
        if (montages_.empty()) {
            StartMontage(std::filesystem::path(file_).stem().string());
        }
        if (!labels_.insert(label).second) {
            Refuse("channel " + Quoted(label) + " occurs twice", "give every channel its own label");
        }
        TermReader reader(line.substr(equals + 1), file_, line_);
        montages_.back().channels.push_back({label, ReadTerms(reader), line_});
    }

    void CheckNotEmpty() const {
        if (!montages_.empty() && montages_.back().channels.empty()) {
            throw MontageError(file_, start_, "montage \"" + montages_.back().name + "\" has no channel",
                               "write its channels below the name");
        }
    }

    [[noreturn]] void Refuse(const std::string& reason, const std::string& remedy) const {
        throw MontageError(file_, line_, reason, remedy);
    }

    const std::string& file_;
    std::size_t line_ = 0;
    std::size_t start_ = 0; ///< line of the current montage's name
    std::vector<MontageText> montages_;
    std::set<std::string> names_;
    std::set<std::string> labels_; ///< of the current montage
};

} // namespace

std::vector<MontageText> ParseMontages(std::string_view text, const std::string& file) {
    const std::string utf8 = ToUtf8(text);
    MontageReader reader(file);
    for (std::string_view rest = utf8; !rest.empty();) {
        reader.Read(TakeLine(rest));
    }
    return reader.Finish();
}

} // namespace orvanta::signal

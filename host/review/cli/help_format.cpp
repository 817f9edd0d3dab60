// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/cli/help_format.h"

#include <sstream>

namespace orvanta::cli {

std::string Wrapped(const std::string& text, std::size_t width) {
    std::string wrapped;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        while (line.size() > width && line.front() != ' ') {
            const std::size_t blank = line.rfind(' ', width);
            if (blank == std::string::npos) {
                break;
            }
            wrapped += line.substr(0, blank) + '\n';
            line.erase(0, blank + 1);
        }
        wrapped += line + '\n';
    }
    return wrapped;
}

HelpFormat::HelpFormat() {
    constexpr std::size_t kOptionColumns = 34;
    column_width(kOptionColumns);
    label("SUBCOMMAND", "COMMAND");
    label("Subcommands", "Commands");
    label("Positionals", "Arguments");
    label("REQUIRED", "(required)");
    label("Needs", "needs");
    label("Excludes", "not with");
}

std::string HelpFormat::make_footer(const CLI::App* app) const {
    constexpr std::size_t kWidth = 100;
    return Wrapped(app->get_footer(), kWidth);
}

} // namespace orvanta::cli

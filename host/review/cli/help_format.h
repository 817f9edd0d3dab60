// SPDX-License-Identifier: GPL-3.0-or-later
// How the program's help reads.
#pragma once

#include <CLI/CLI.hpp>

#include <string>

namespace orvanta::cli {

/// \p text with its lines broken at blanks so that none has more than \p width bytes; lines that begin with a
/// blank are tables and stay.
std::string Wrapped(const std::string& text, std::size_t width);

/// The words of the program instead of those of the parser, and paragraphs in lines of 100.
class HelpFormat final : public CLI::Formatter {
public:
    HelpFormat();
    std::string make_footer(const CLI::App* app) const override;
};

} // namespace orvanta::cli

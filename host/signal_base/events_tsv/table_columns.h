// SPDX-License-Identifier: GPL-3.0-or-later
// The columns of an events table that its reader and its writer use.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace orvanta::signal {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr double kMaxTableSeconds = 1e9; ///< 32 years

/// Takes the next column off a line, without the blanks around it.
std::string_view TakeColumn(std::string_view& line);
/// True for an empty cell and for "n/a".
bool IsMissing(std::string_view cell);
/// What a cell in quotation marks says, in which two stand for one; another cell as it is.
std::string Unquoted(std::string_view cell);
/// The cell that says a text: in quotation marks when it begins with one, since many programs would read on
/// from there to the next one, over tabs and line ends.
std::string QuotedWhereNeeded(std::string_view text);

/// Which place holds which used column.
class TableHead {
public:
    enum Column : std::uint8_t { kOnset, kDuration, kTrialType, kValue, kColumns };
    static constexpr std::array<std::string_view, kColumns> kNames = {"onset", "duration", "trial_type",
                                                                      "value"};
    /// The used columns of one row; empty where the row has none.
    using Row = std::array<std::string_view, kColumns>;

    /// \param line the table's first one, with the names
    explicit TableHead(std::string_view line);

    bool Has(Column column) const { return places_[column] != kNowhere; }
    /// Meaningful for a column that it has.
    std::size_t PlaceOf(Column column) const { return places_[column]; }
    Row Split(std::string_view line) const;

private:
    static constexpr std::size_t kNowhere = SIZE_MAX;
    std::array<std::size_t, kColumns> places_ = {kNowhere, kNowhere, kNowhere, kNowhere};
    std::size_t last_ = 0;
};

} // namespace orvanta::signal

// SPDX-License-Identifier: GPL-3.0-or-later
// A list of repairs that a bad file cannot make endless.
#pragma once

#include "spectra_contract/api.h"

#include <cstddef>
#include <string>
#include <vector>

namespace orvanta::signal {

/// Passes the first 20 lines of one kind on to a list and sums up the others, when it goes out of scope, as
/// "PREFIXand N more".
class ORVANTA_API LimitedList {
public:
    static constexpr std::size_t kLimit = 20;

    LimitedList(std::vector<std::string>& lines, std::string prefix);
    ~LimitedList();
    LimitedList(const LimitedList&) = delete;
    LimitedList& operator=(const LimitedList&) = delete;

    /// Adds the line "PREFIXtext".
    void Add(const std::string& text);

private:
    std::vector<std::string>& lines_;
    std::string prefix_;
    std::size_t count_ = 0;
};

/// "Fp1, F3, C3" of at least one name; of more than eight the first eight "and N more".
std::string NameList(const std::vector<std::string>& names);

} // namespace orvanta::signal

// SPDX-License-Identifier: GPL-3.0-or-later
// XML files held against the schemas in resources/.
#pragma once

#include <gtest/gtest.h>
#include <string>

namespace orvanta::test {

/// Whether xmllint accepts the file against resources/<schema>; the failure says why not.
testing::AssertionResult MatchesSchema(const std::string& file, const std::string& schema);

} // namespace orvanta::test

// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/comma_numerals.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>

namespace orvanta::test {

CommaNumerals::CommaNumerals() : earlier_(std::setlocale(LC_NUMERIC, nullptr)) {
    setenv("LOCPATH", ORVANTA_TEST_DATA "/locale", 1);
    EXPECT_NE(std::setlocale(LC_NUMERIC, "comma"), nullptr);
    unsetenv("LOCPATH");
}

CommaNumerals::~CommaNumerals() {
    std::setlocale(LC_NUMERIC, earlier_.c_str());
}

} // namespace orvanta::test

// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/xml_schema.h"

#include <array>
#include <cstdio>
#include <memory>

namespace orvanta::test {

testing::AssertionResult MatchesSchema(const std::string& file, const std::string& schema) {
    const std::string command =
        "xmllint --noout --nonet --schema '" ORVANTA_RESOURCES "/" + schema + "' '" + file + "' 2>&1";
    std::FILE* pipe = ::popen(command.c_str(), "r");
    if (pipe == nullptr) {
        return testing::AssertionFailure() << "xmllint cannot be started";
    }
    std::string answer;
    std::array<char, 4096> buffer{};
    while (std::fgets(buffer.data(), buffer.size(), pipe) != nullptr) {
        answer += buffer.data();
    }
    return ::pclose(pipe) == 0 ? testing::AssertionSuccess() : testing::AssertionFailure() << answer;
}

} // namespace orvanta::test

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/cli/review_library.h"

#include "host/platform/module_path.h"
#include "host/platform/shared_library.h"
#include "host/review/cli/exit_status.h"

namespace orvanta::cli {

namespace {
constexpr const char* kRemedy =
    "it holds the windows; install it with the program and Qt 6, the other commands need neither";
}

int AskReview(const review::Request& request) {
    const std::string file =
        platform::OwnFolder(reinterpret_cast<const void*>(&platform::OwnFolder)) + review::kLibrary;
    const platform::SharedLibrary library(file, kRemedy);
    auto* answer = library.Find<review::Entry>(review::kEntry);
    if (answer == nullptr) {
        throw UsageError(file + ": is no library of this program (" + kRemedy + ")");
    }
    return answer(request);
}

} // namespace orvanta::cli

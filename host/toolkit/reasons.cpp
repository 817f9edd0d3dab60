// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/reasons.h"

#include <vector>

namespace owl {

namespace {

using Reason = Wording; // or a remedy

constexpr Reason kOfAnyFile[] = {
    Reason{"missing", "does not exist"},
    Reason{"checkName", "check the name and the folder"},
    Reason{"folder", "is a folder"},
    Reason{"device", "is no regular file"},
    Reason{"notOpened", "cannot be opened: %s"},
    Reason{"checkPermissions", "check the permissions of the file"},
    Reason{"tooLarge", "has %s bytes, more than the %s that such a file may have"},
    Reason{"checkFile", "check that it is the right file"},
};

} // namespace

std::string ReasonInUsersWords(const PModule* messages, std::span<const Wording> own,
                               const std::string& english) {
    std::vector<Reason> all(std::begin(kOfAnyFile), std::end(kOfAnyFile));
    all.insert(all.end(), own.begin(), own.end());
    return InUsersWords(messages, "REASONS", all, english);
}

} // namespace owl

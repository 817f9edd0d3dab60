// SPDX-License-Identifier: GPL-3.0-or-later
#include "module/owl_main.h"

#include "host/toolkit/modal_gateway.h"

int OwlMain(int argumentCount, char* /*arguments*/[]) {
    if (argumentCount > 0) {
        // "accidently" is how this text has always read.
        owl::CurrentModalGateway().ShowMessage(
            nullptr, "You have accidently used the dummy version of OwlMain.", "Error", owl::kMbIconStop);
    }
    return 0;
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "module/owl_main.h"

#include "host/toolkit/form_texts.h"
#include "host/toolkit/message_module.h"
#include "host/toolkit/modal_gateway.h"

int OwlMain(int argumentCount, char* /*arguments*/[]) {
    if (argumentCount > 0) {
        const PModule* messages = PModule::Named("Orvanta");
        // "accidently" is how this text has always read.
        owl::CurrentModalGateway().ShowMessage(
            nullptr,
            owl::TextOr(messages, "MODULE", "OWL_MAIN",
                        "You have accidently used the dummy version of OwlMain."),
            owl::TextOr(messages, "MODULE", "ERROR", "Error"), owl::kMbIconStop);
    }
    return 0;
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/modal_gateway.h"

#include "host/toolkit/qt_modal_gateway.h"

#include <utility>

namespace owl {

namespace {

ModalGateway*& Replacement() {
    static ModalGateway* gateway = nullptr;
    return gateway;
}

} // namespace

ModalGateway::~ModalGateway() = default;

ModalGateway& CurrentModalGateway() {
    static QtModalGateway standard;
    return Replacement() != nullptr ? *Replacement() : standard;
}

ModalGateway* ReplaceModalGateway(ModalGateway* gateway) {
    return std::exchange(Replacement(), gateway);
}

} // namespace owl

// SPDX-License-Identifier: GPL-3.0-or-later
// A library that is no module.
extern "C" __attribute__((visibility("default"))) int SomethingElse() {
    return 1;
}

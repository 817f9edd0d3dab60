// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectra_contract/number_locale.h"

#include <locale.h>
#include <new>

struct TempNumEngLocale::Impl {
    locale_t earlier = locale_t{};
    locale_t english = locale_t{};
};

TempNumEngLocale::TempNumEngLocale() : impl_(std::make_unique<Impl>()) {
    // All but the numerals stays as the thread has it.
    const locale_t current = duplocale(uselocale(locale_t{}));
    impl_->english = current == locale_t{} ? current : newlocale(LC_NUMERIC_MASK, "C", current);
    if (impl_->english == locale_t{}) {
        throw std::bad_alloc();
    }
    impl_->earlier = uselocale(impl_->english);
}

TempNumEngLocale::~TempNumEngLocale() {
    uselocale(impl_->earlier);
    freelocale(impl_->english);
}

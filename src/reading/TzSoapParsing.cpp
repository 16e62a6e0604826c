// SPDX-License-Identifier: MIT
#include "reading/TzSoapParsing.h"

#include "model/TzSoapAccess.h"
#include "model/TzSoapLasting.h"
#include "reading/TzSoapReadingState.h"

#include <utility>

namespace {

template <typename Parsing> TzTSpares<Parsing>& spares() {
    static TzSoapLasting<TzTSpares<Parsing>> instance([] { return TzTSpares<Parsing>(); });
    return *instance;
}

} // namespace

std::unique_ptr<TzSoapMessageImp::Parsing> TzSoapMessageImp::Parsing::take() {
    std::unique_ptr<Parsing> parsing = spares<Parsing>().take();
    return parsing != nullptr ? std::move(parsing) : std::make_unique<Parsing>();
}

void TzSoapMessageImp::Parsing::leave(std::unique_ptr<Parsing> parsing) noexcept {
    if (TzSoapAccess::reading(parsing->context).release()) {
        spares<Parsing>().giveBack(std::move(parsing));
    }
}

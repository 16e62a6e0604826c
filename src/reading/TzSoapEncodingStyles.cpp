// SPDX-License-Identifier: MIT
#include <soap/TzSoapEncodingStyles.h>

#include <soap/TzSoapUtils.h>
#include <soap/TzSoapVersion.h>

#include "model/TzSoapLasting.h"

#include <utility>

TzSoapEncodingStyles::TzSoapEncodingStyles() = default;

TzSoapEncodingStyles::~TzSoapEncodingStyles() = default;

void TzSoapEncodingStyles::push(const TzCString& text) {
    TzCString first(TzSoapUtils::firstEncodingStyle(text));
    const bool soapEncoding = first.empty() || TzSoapVersion::isSoapEncodingStyle(first);
    styles_.push_back({text, std::move(first), soapEncoding});
}

const TzSoapStyleInForce& TzSoapEncodingStyles::none() noexcept {
    static TzSoapLasting<const TzSoapStyleInForce> instance([] { return TzSoapStyleInForce(); });
    return *instance;
}

// SPDX-License-Identifier: MIT
#include <soap/TzSoapMissingError.h>

#include <utility>

TzSoapMissingError::TzSoapMissingError(TzCString path, const TzCString& text)
    : TzXmlError(text), path_(std::move(path)) {}

TzSoapMissingError::~TzSoapMissingError() = default;

// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlError.h>

/// A message lacks an element that a program wants.
///
/// The text says which element and what stands there instead, as far as that helps:
/// `placeOrder/lines/line[3]/amount is missing`, with the reason after a semicolon.
class TZSOAP_API TzSoapMissingError : public TzXmlError {
public:
    /// An error about the element at `path` that says `text`.
    TzSoapMissingError(TzCString path, const TzCString& text);
    TzSoapMissingError(const TzSoapMissingError&) = default;
    TzSoapMissingError& operator=(const TzSoapMissingError&) = default;
    ~TzSoapMissingError() override;

    /// The first element that is missing, as local names from the value where the search began,
    /// such as "placeOrder/lines/line[3]". "" for the first entry of a body without entries.
    const TzCString& getPath() const noexcept { return path_; }

private:
    TzCString path_;
};

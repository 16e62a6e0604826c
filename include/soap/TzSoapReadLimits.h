// SPDX-License-Identifier: MIT
#pragma once

#include <tz/xml/TzXmlDefaultLimits.h>

#include <cstddef>

/// What a message accepts from a text that it reads. A plain value.
struct TzSoapReadLimits {
    /// Deepest nesting of elements; more is a `TzXmlParseError`.
    std::size_t depth = TzXmlDefaultLimits::Depth;
    /// Most attributes of one element, declarations included; more is a `TzXmlParseError`.
    std::size_t attributes = TzXmlDefaultLimits::Attributes;
    /// Most array positions of one text that are declared or passed over but hold no item, beside
    /// one for each byte of the text; more is a `TzXmlBoundsError` BAD_INDEX_VECTOR. Sparse arrays
    /// and arrays without members do not matter: they take no memory for their positions.
    std::size_t unfilledArrayPositions = 1048576;
    /// Longest URI of a namespace and longest encodingStyle, in bytes: each may be taken over
    /// by every value below; of a package also the longest Content-ID and Content-Location, which
    /// every reference may take over. More is a `TzXmlParseError`.
    std::size_t uriLength = TzXmlDefaultLimits::UriLength;
    /// Longest prefix that a namespace is declared for, in bytes, because every name below may
    /// repeat it; more is a `TzXmlParseError`.
    std::size_t prefixLength = TzXmlDefaultLimits::PrefixLength;
    /// Whether a package is read that lacks its closing line, so that its last part may lack its
    /// end; otherwise it is a `TzXmlParseError`.
    bool incompletePackages = false;
    /// Whether an envelope of SOAP 1.2 as recommended in 2003 (`TzSoapVersion::V1_2Rec`) is read;
    /// otherwise its version is unknown, which is a `TzXmlParseError` UNKNOWN_VERSION.
    bool soap12Recommendation = false;
};

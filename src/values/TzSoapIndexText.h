// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapVersion.h>
#include <tz/tools/TzCString.h>

#include <string_view>
#include <vector>

/// The text forms of index vectors: "[2,3]" of SOAP 1.1 and "2 3" of SOAP 1.2.
///
/// Parsing throws `TzXmlBadArgError` BAD_INDEX_STRING with the text as given; a number beyond 32
/// bits is not an index. All operations are O(text).
struct TzSoapIndexText {
    using Index = std::vector<unsigned int>;

    /// The vector that `text` states in the form of either version; in bounds mode a text in
    /// brackets may leave its first entry open and must not contain another 0.
    static Index parse(std::string_view text, bool boundsMode);
    /// The vector that a text of the latest version states.
    static Index parseLatest(std::string_view text);
    /// The text of `vector` in `version`; an open axis is written as a digit on demand.
    static TzCString print(const Index& vector, bool zeroAsDigit, TzSoapVersion::Version version);
    /// The text of `vector` in the latest version.
    static TzCString printLatest(const Index& vector, bool zeroAsDigit);
};

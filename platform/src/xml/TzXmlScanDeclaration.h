// SPDX-License-Identifier: MIT
#pragma once

#include "xml/TzXmlEventSource.h"
#include "xml/TzXmlScanCursor.h"

#include <string_view>

/// The XML declaration at the beginning of a text that a scanner can read: of version 1.0 and in
/// UTF-8.
class TzXmlScanDeclaration {
public:
    /// Whether a text that begins like `text` has a declaration.
    static bool begins(std::string_view text) noexcept;

    /// Passes the declaration. False for one that is not well-formed, or of a text that the scanner
    /// does not know.
    bool read(TzXmlScanCursor& cursor, TzXmlKnownEncoding known) noexcept;

    /// "" without one.
    std::string_view encoding() const noexcept { return encoding_; }
    /// -1 without one, 0 or 1.
    int standalone() const noexcept { return standalone_; }

private:
    std::string_view encoding_;
    int standalone_ = -1;
};

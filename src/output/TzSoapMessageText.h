// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapLayout.h>

#include <optional>

class TzMimeMultipart;
class TzSoapMessage;
class TzXmlWriter;

/// The envelope of a message as a new writer writes it.
class TzSoapMessageText {
public:
    TzSoapMessageText() = delete;

    /// Writes `message` to `xml`; the parts that its references refer to go into `parts`, unless
    /// that is null. Returns whether its entries led to parts, empty when that is not known. Errors
    /// are those of `TzSoapWriter`.
    static std::optional<bool> write(const TzSoapMessage& message, TzXmlWriter& xml,
                                     TzSoapLayout layout, TzMimeMultipart* parts);
};

// SPDX-License-Identifier: MIT
#pragma once

/// What the style of a message changes in what is written, besides its declarations.
struct TzSoapStyleTraits {
    /// Values state that they stand in SOAP encoding, and arrays state their shape.
    bool statesEncoding;
    /// Attributes of SOAP stand under the names of the version written, where another one named
    /// them; otherwise each stands as it is.
    bool translatesAttributes;
    /// What was read has its place even if no value is made of it: text beside children, a header
    /// without entries.
    bool keepsAll;
    /// The layout is compact, whatever layout was asked for.
    bool isCompact;
    /// Every name has its namespace, whatever prefixes were bound around it.
    bool hasExactNames;

    /// Of a message in SOAP encoding.
    static const TzSoapStyleTraits& encoded() noexcept {
        static constexpr TzSoapStyleTraits traits{true, true, false, false, false};
        return traits;
    }
    /// Of a literal message.
    static const TzSoapStyleTraits& literal() noexcept {
        static constexpr TzSoapStyleTraits traits{false, false, true, true, true};
        return traits;
    }
};

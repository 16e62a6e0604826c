// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <soap/TzSoapVersion.h>
#include <tz/tools/TzCString.h>

#include <vector>

class TzSoapMessage;

/// Rewrites messages for the other version of SOAP.
///
/// A plain value without state beyond the version; threads as for the message that is rewritten.
class TZSOAP_API TzSoapVersionConverter {
public:
    /// A converter to `version`; `TzXmlError` UNKNOWN_VERSION for an unknown version.
    explicit TzSoapVersionConverter(TzSoapVersion::Version version);

    /// The version that messages are rewritten for.
    TzSoapVersion::Version getVersion() const noexcept { return version_; }
    /// Makes `message` one of the version and returns what could not be carried over, in the order
    /// of the message, a text for each that says what it is and what became of it; long names in
    /// it are cut. Nothing happens to a message of that version. Beyond what
    /// `TzSoapMessage::setVersion` does, in all values, targets of references included:
    ///
    /// - names, types, declarations and attributes of the envelope and the encoding namespace
    ///   move to those of the version under the prefixes they have;
    /// - encoding styles that are SOAP's become that of the version, and those of envelope, header
    ///   and body are stated by the entries instead;
    /// - roles that SOAP defines, positions of items and arrays take the version's form;
    /// - fault codes become those of the version, subcodes qualifiers of the code or the other way
    ///   round.
    ///
    /// What says nothing in the old version does not begin to mean something in the new one: such
    /// attributes get another name or are left out, and a body entry named like the fault of the
    /// new version is renamed; all of them are losses.
    ///
    /// Each value is rewritten once, however many places share it, itself included; only an entry
    /// that is to state another style than before becomes a copy there. The package that
    /// the message was read from is left alone. A conversion that throws, such as `std::bad_alloc`
    /// or `TzTHRInvalidPointer` for a member without a body, leaves the message as it was.
    /// O(content).
    std::vector<TzCString> convert(TzSoapMessage& message) const;

private:
    TzSoapVersion::Version version_;
};

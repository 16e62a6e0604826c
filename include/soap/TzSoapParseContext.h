// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <soap/TzSoapType.h>
#include <soap/TzSoapVersion.h>
#include <tz/tools/TzCString.h>

#include <map>
#include <memory>
#include <stack>
#include <vector>

class TzMimeMultipart;
class TzSoapMessageImp;
class TzSoapReadingState;
class TzSoapReferenceTypeImp;
class TzXmlElementImp;
class TzXmlSAXParser;

/// What all participants of one reading share: the parser, the scopes that are open, the ids and
/// references met so far, the package the text came in and the message being filled.
///
/// Not a handle; belongs to one reading on one thread.
class TZSOAP_API TzSoapParseContext {
public:
    /// The encodingStyle texts of the open elements that state one, innermost on top.
    using EncodingStyles = std::stack<TzCString>;
    /// Open elements whose namespace declarations are in force, outermost first; not owned.
    using Namespaces = std::vector<TzXmlElementImp*>;
    /// References met so far, by reference text; not owned.
    using References = std::multimap<TzCString, TzSoapReferenceTypeImp*>;
    /// Values with an id met so far, by id.
    using IdEntries = std::map<TzCString, TzSoapType>;

    /// A context without parser and message, all collections empty.
    TzSoapParseContext();
    TzSoapParseContext(const TzSoapParseContext&) = delete;
    TzSoapParseContext& operator=(const TzSoapParseContext&) = delete;
    ~TzSoapParseContext();

    /// The open encoding styles, to push and pop.
    EncodingStyles& getEncodingStyles();
    /// The open elements, to push and pop. From the first call on, look-ups of prefixes walk over
    /// them, because they may change unnoticed.
    Namespaces& getNamespaces() noexcept;
    /// The references that wait to be resolved, to insert. Whoever inserts also calls `keep`.
    /// O(references added since the last call * log).
    References& getReferences();
    /// The values with ids that no reference named so far, to insert.
    IdEntries& getIdEntries() noexcept;
    /// Keeps `value` alive until the reading ends, whatever becomes of its place in the message.
    void keep(const TzSoapType& value);

    /// Sets the package that references to MIME parts are looked up in; it is shared.
    void setMimeMultipart(const TzMimeMultipart& multipart);
    /// The package, without parts for a bare envelope.
    const TzMimeMultipart& getMimeMultipart() const noexcept;
    /// Sets the message being filled; not owned, may be null.
    void setSoapMessageImp(TzSoapMessageImp* message) noexcept;
    /// The message being filled, null without one.
    TzSoapMessageImp* getSoapMessageImp() const noexcept;
    /// Sets the parser in use; not owned.
    void setParser(TzXmlSAXParser* parser) noexcept;
    /// The parser in use, null without one.
    TzXmlSAXParser* getParser() const noexcept;

    /// The version being read: that of the message, the latest without one.
    TzSoapVersion::Version getVersion() const;
    /// The URI that the innermost open element which declares `prefix` binds it to; "" when none
    /// does. O(log(declarations)), O(open elements) once `getNamespaces` was called.
    TzCString getNsUriForPrefix(const TzCString& prefix) const;
    /// Gives each reference met so far its target, forgets the references and the ids they name.
    ///
    /// References without a target are left as they are; a later call, for the next block of the
    /// same message, gives them a target that was filed since, and its references still find the
    /// ids forgotten here. O((references + ids filed since the last call) * log).
    void resolveAndClearIdReferences();

private:
    friend struct TzSoapAccess;

    std::unique_ptr<TzSoapReadingState> state_;
};

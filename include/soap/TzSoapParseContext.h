// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapDroppedText.h>
#include <soap/TzSoapEncodingStyles.h>
#include <soap/TzSoapExport.h>
#include <soap/TzSoapReadLimits.h>
#include <soap/TzSoapType.h>
#include <soap/TzSoapVersion.h>
#include <tz/mime/TzMimeMultipart.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlAttributeSet.h>
#include <tz/xml/TzXmlName.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string_view>
#include <utility>
#include <vector>

class TzSoapMessageImp;
class TzSoapMimeLookup;
class TzSoapReferenceToSoapTypeImp;
class TzSoapReferenceTypeImp;
class TzSoapTypeHandlers;
class TzXmlElementImp;
class TzXmlSAXParser;

/// What all participants of one reading share: the parser, the scopes that are open, the ids and
/// references met so far, the package the text came in and the message being filled.
///
/// Not a handle; belongs to one reading on one thread.
class TZSOAP_API TzSoapParseContext {
public:
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
    TzSoapEncodingStyles& getEncodingStyles() noexcept { return encodingStyles_; }
    /// Pushes the encoding style of an element; `TzXmlParseError` when it is longer than the limits
    /// allow.
    void pushEncodingStyle(const TzCString& style);
    /// The open elements, to push and pop.
    Namespaces& getNamespaces() noexcept { return namespaces_; }
    /// The references, to insert. Whoever inserts also calls `keep`. O(references added since the
    /// last call * log).
    References& getReferences();
    /// Files a reference, as an insertion into `getReferences` does, and keeps it. Amortized O(1).
    void addReference(const TzCString& href, TzSoapReferenceTypeImp& reference);
    /// The values with ids, to insert.
    IdEntries& getIdEntries() noexcept { return idEntries_; }
    /// Keeps `value` alive until the reading ends, whatever becomes of its place in the message.
    void keep(const TzSoapType& value) { kept_.push_back(value); }
    /// Files `value` under its id if it has one; the first value of an id stays.
    void fileId(const TzSoapType& value);

    /// Sets the package that references to MIME parts are looked up in.
    void setMimeMultipart(const TzMimeMultipart& multipart) { mimeMultipart_ = multipart; }
    /// The package, without parts for a bare envelope.
    const TzMimeMultipart& getMimeMultipart() const noexcept { return mimeMultipart_; }
    /// Sets the message being filled; not owned, may be null.
    void setSoapMessageImp(TzSoapMessageImp* message) noexcept { soapMessageImp_ = message; }
    /// The message being filled, null when there is none.
    TzSoapMessageImp* getSoapMessageImp() const noexcept { return soapMessageImp_; }
    /// Sets the parser in use; not owned.
    void setParser(TzXmlSAXParser* parser) noexcept { parser_ = parser; }
    /// The parser in use, null when there is none.
    TzXmlSAXParser* getParser() const noexcept { return parser_; }

    /// The version being read: that of the message, the latest without one.
    TzSoapVersion::Version getVersion() const;
    /// What the encoding style in force means for the values under it.
    const TzSoapStyleInForce& getStyleInForce() const noexcept { return encodingStyles_.inForce(); }
    /// The URI that the innermost open element which declares `prefix` binds it to; "" when none
    /// does. O(open elements).
    TzCString getNsUriForPrefix(const TzCString& prefix) const;
    /// The name that a text such as "xsd:int" stands for: its prefix resolved like
    /// `getNsUriForPrefix`; an unbound prefix has the empty URI. Names met lately share one record.
    /// Valid until the next call. O(open elements).
    const TzXmlName& resolveName(std::string_view text);
    /// The attribute that states the type when it is the only one of an element, otherwise null:
    /// most elements need no closer look.
    const TzXmlAttribute* findOnlyType(const TzXmlAttributeSet& attributes) {
        if (attributes.size() != 1) {
            return nullptr;
        }
        const TzXmlAttribute& only = *attributes.begin();
        return only.getName().isSame(typeAttribute_) || isType(only.getName()) ? &only : nullptr;
    }

    /// Gives each reference met so far its target, forgets the references and the ids they name.
    ///
    /// References without a target are left as they are; a later call, for the next part of the
    /// same message, gives them a target that was filed since, and its references still find the
    /// ids forgotten here. O((references + ids filed since the last call) * log).
    void resolveAndClearIdReferences();
    /// The reading succeeded: the targets of its references stay, and values that hold each other
    /// through them go when nobody else holds one of them. `std::bad_alloc` without memory.
    /// O(values referred to), no recursion.
    void keepTargets();
    /// Takes the targets of all resolved references away: for a reading that failed.
    void dropTargets() noexcept;

    /// Sets what is accepted, for a text of `textSize` bytes.
    void setLimits(const TzSoapReadLimits& limits, std::size_t textSize);
    /// Takes `positions` array positions that hold no item; false, and nothing taken, when that is
    /// more than the text may still have.
    bool takeUnfilledPositions(std::size_t positions) noexcept;
    /// How many the text may have at most.
    std::size_t getUnfilledLimit() const noexcept { return unfilledLimit_; }
    /// Gives back positions that an item was read for.
    void returnUnfilledPositions(std::size_t positions) noexcept { unfilledLeft_ += positions; }

    /// Takes note of `text` that nothing is made of, unless it is white space.
    void noteDroppedText(std::string_view text);
    /// The text that was left out so far.
    const TzSoapDroppedText& getDroppedText() const noexcept { return droppedText_; }

    /// Empties all collections and forgets half-open scopes; parser, package and message stay.
    void clear();

    /// A set of type handlers for an element whose first child starts; one that was given back if
    /// any.
    std::unique_ptr<TzSoapTypeHandlers> borrowTypeHandlers();
    /// Takes back the handlers of an element that ended.
    void returnTypeHandlers(std::unique_ptr<TzSoapTypeHandlers> handlers);

private:
    /// A name resolved lately, and the text it was.
    struct RecentName {
        TzCString text;
        TzXmlName name;
        std::uint64_t scopes = 0; // the state of the open scopes it is known to hold under
    };
    /// What tells whether the open scopes are the same as before.
    struct ScopeMark {
        std::uint64_t declarations = 0; // the parser's number for them, 0 for unknown
        std::size_t depth = 0;
        const TzXmlElementImp* innermost = nullptr;
        bool operator==(const ScopeMark&) const = default;
    };
    /// Orders namespaces by prefix and URI.
    struct ByText {
        using is_transparent = void;
        using Text = std::pair<std::string_view, std::string_view>;
        static Text of(const TzXmlNamespace& one) { return {one.getPrefix(), one.getUri()}; }
        static const Text& of(const Text& text) { return text; }
        template <typename Left, typename Right>
        bool operator()(const Left& left, const Right& right) const {
            return of(left) < of(right);
        }
    };

    void noteScopes();
    ScopeMark markOf(std::size_t depth) const noexcept;
    RecentName& resolveAnew(std::string_view text);
    bool isType(const TzXmlName& name);
    const TzCString& uriForPrefix(std::string_view prefix) const;
    const TzXmlNamespace& sharedNamespace(std::string_view prefix, std::string_view uri);
    const TzSoapType* findTarget(std::string_view href);
    bool resolve(const TzCString& href, TzSoapReferenceTypeImp& reference,
                 TzSoapMimeLookup& lookup);
    void resolveOrRemember(const References::value_type& entry, TzSoapMimeLookup& lookup);
    void refer(TzSoapReferenceTypeImp& reference, const TzSoapType& target);
    void resolveEarlierReferences();
    void forgetId(const TzCString& id);

    TzXmlSAXParser* parser_ = nullptr;
    TzSoapEncodingStyles encodingStyles_;
    Namespaces namespaces_;
    References references_;
    std::vector<References::value_type> addedReferences_; // not in the ordered collection yet
    IdEntries idEntries_;
    TzMimeMultipart mimeMultipart_;
    TzSoapMessageImp* soapMessageImp_ = nullptr;
    References unresolved_;         // by id, of the parts of the message resolved so far
    IdEntries forgotten_;           // ids that references of those parts named
    std::vector<TzCString> newIds_; // filed since the last resolution
    std::vector<TzSoapReferenceToSoapTypeImp*> resolved_;
    std::vector<TzSoapType> kept_;
    std::size_t unfilledLimit_;
    std::size_t unfilledLeft_;
    std::size_t uriLimit_;
    TzSoapDroppedText droppedText_;
    std::vector<std::unique_ptr<TzSoapTypeHandlers>> spareHandlers_;
    std::array<RecentName, 8> recentNames_; // few types make up most of a message
    std::size_t nextRecent_ = 0;
    TzXmlNameMaker nameMaker_;
    ScopeMark latestMark_;     // of all open elements
    ScopeMark scopeMark_;      // of those down to the innermost one that may declare something
    std::uint64_t scopes_ = 1; // a number for each state of the open scopes
    TzXmlName typeAttribute_;  // the latest name that was one of a type
    std::set<TzXmlNamespace, ByText> sharedNamespaces_; // of all names resolved
};

// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapContentHandler.h>
#include <soap/TzSoapExport.h>
#include <soap/TzSoapReason.h>
#include <soap/TzSoapType.h>
#include <soap/TzSoapVersion.h>
#include <tz/pointer/TzBodyBase.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlAttributeSet.h>
#include <tz/xml/TzXmlName.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

class TzSoapDetailReader;
class TzSoapParseContext;
class TzSoapFaultSpellingReader;
class TzXmlElementImp;
struct TzSoapFaultSpelling;

/// Body of a fault: code, reason, node, role, detail and subcodes. Reads itself.
///
/// The version decides which element names the fault is written and read with. Only the reference
/// count is locked.
class TZSOAP_API TzSoapFaultImp : public TzBodyBase, public TzSoapContentHandler {
public:
    /// An empty fault named `name` with the detail element of `version`; `TzXmlError`
    /// UNKNOWN_VERSION for an unknown version.
    TzSoapFaultImp(const TzXmlName& name, TzSoapVersion::Version version);
    /// Copies name, version, code, texts and the detail (`TzSoapCompositeType::copy`), not the
    /// subcodes.
    TzSoapFaultImp(const TzSoapFaultImp& other);
    TzSoapFaultImp& operator=(const TzSoapFaultImp&) = delete;
    ~TzSoapFaultImp() override;

    /// A new body as the copy constructor makes it; the caller's handle takes it over.
    virtual TzSoapFaultImp* clone() const;

    /// The version whose element names apply.
    TzSoapVersion::Version getVersion() const noexcept { return version_; }
    /// Records the version, moves the fault's name into its envelope namespace and names the detail
    /// after it. `TzXmlError` UNKNOWN_VERSION, and nothing changed, for an unknown version.
    void setVersion(TzSoapVersion::Version version);
    /// The fault element's name.
    const TzXmlName& getName() const noexcept { return name_; }
    /// Takes the fault element's name, the code and the subcodes in place of those there were.
    void takeNames(TzXmlName name, TzXmlName code, std::vector<TzXmlName> subcodes) noexcept;

    /// The code, the empty name when not set.
    const TzXmlName& getCode() const noexcept { return code_; }
    /// Sets the code; `TzXmlError` INVALID_FAULT_CODE for one that `TzSoapFault::setCode` refuses.
    void setCode(const TzXmlName& code);
    /// The code without the white space that stood around it when it was read, its prefix resolved
    /// where it stood; otherwise the code.
    const TzXmlName& getCodeValue() const noexcept { return readCode_.valueOf(code_); }
    /// Adds a subcode after the others.
    void addSubcode(const TzXmlName& subcode) { subcodes_.push_back(subcode); }
    /// The subcode at `index`, the empty name beyond the last one.
    const TzXmlName& getSubcode(unsigned int index) const;
    /// The subcode at `index` as `getCodeValue` has the code. O(log subcodes).
    const TzXmlName& getSubcodeValue(unsigned int index) const;
    /// Number of subcodes.
    unsigned int getSubcodeCount() const noexcept {
        return static_cast<unsigned int>(subcodes_.size());
    }
    /// Removes all subcodes.
    void clearSubcodes() noexcept {
        subcodes_.clear();
        readSubcodes_.clear();
    }
    /// The reason (fault string), the first if there are several, "" when not set.
    const TzCString& getReason() const;
    /// The reason that suits `language` best, as `TzSoapFault::getReason` says.
    const TzCString& getReason(const TzCString& language) const;
    /// All reasons.
    const std::vector<TzSoapReason>& getReasons() const noexcept { return reasons_; }
    /// Sets the reason, in place of all there were.
    void setReason(const TzCString& reason);
    /// Adds a reason after the others.
    void addReason(const TzSoapReason& reason) { reasons_.push_back(reason); }
    /// The node (fault actor), "" when not set.
    const TzCString& getNode() const noexcept { return node_; }
    /// Sets the node.
    void setNode(const TzCString& node) { node_ = node; }
    /// The role, "" when not set.
    const TzCString& getRole() const noexcept { return role_; }
    /// Sets the role.
    void setRole(const TzCString& role) { role_ = role; }
    /// The detail.
    const TzSoapCompositeType& getDetails() const noexcept { return details_; }
    /// Replaces the detail; the composite is shared. `TzTHRInvalidPointer` for one without a body.
    void setDetails(const TzSoapCompositeType& details);
    /// The text directly inside of the detail, beside its entries; "" without any.
    const TzCString& getDetailText() const noexcept { return detailText_; }
    /// Sets the text directly inside of the detail.
    void setDetailText(const TzCString& text);
    /// How a literal message spelt the fault; null unless the fault was read from one and code,
    /// subcodes, texts and detail are those that were read. What the detail holds may differ.
    const TzSoapFaultSpelling* spelling() const;
    /// Whether there is a detail to write: an entry, or a text that is not white space.
    bool hasDetail() const;
    /// Names `value` after the text `name` and appends it, shared, to the detail. Where the value's
    /// own name has the prefix of the text, its namespace stays.
    void addDetailEntry(const TzCString& name, const TzSoapType& value);
    /// Empties code, texts and detail and takes the latest version; the subcodes, the fault's name
    /// and that of the detail stay.
    void clear();

    /// The Fault element starts: takes its name and receives until its end. What was there stays
    /// until it is read again.
    void populate(const TzXmlName& name, const TzXmlAttributeSet& attributes,
                  TzSoapParseContext* context);
    /// An element inside the fault starts.
    void startElement(const TzXmlName& name, const TzXmlAttributeSet& attributes) override;
    /// An element inside the fault ends, or the fault itself.
    void endElement(const TzXmlName& name) override;
    /// Replaces the buffered text.
    void characters(const TzCString& text) override;

private:
    /// Which child of the fault is open.
    enum class State : std::int32_t {
        None = 0,
        Code = 1,
        CodeValue = 2,
        Subcode = 3,
        SubcodeValue = 4,
        Reason = 5,
        Node = 6,
        Role = 7,
        Detail = 8,
        ReasonText = 9
    };
    /// Which state an element of the fault leads to.
    struct Transition {
        TzSoapVersion::SoapElement element;
        State state;
    };
    static const Transition Transitions[];
    /// A code that was read, with the white space around it and without.
    struct ReadName {
        TzXmlName asRead;
        TzXmlName value;
        std::size_t index = 0; // among the subcodes

        /// The value of `name`, which is the name itself when another one has been set since.
        const TzXmlName& valueOf(const TzXmlName& name) const noexcept {
            return name.isSame(asRead) ? value : name;
        }
    };

    State stateAfter(const TzXmlName& name) const;
    State stateAfter(const TzXmlName& name, TzSoapVersion::Version other) const;
    void readDetail(const TzXmlName& name, const TzXmlAttributeSet& attributes);
    void keepSpelling();
    void setValue();
    void takeReason(bool isElement);
    ReadName codeFromText() const;
    bool takesText() const noexcept;
    void noteUnusedText();
    TzXmlName convertToFaultcode(const TzCString& text) const;
    TzCString uriForPrefix(const TzCString& prefix) const;

    TzCString text_;
    bool textIsUnused_ = false; // nothing was made of it yet
    TzXmlName code_;
    std::vector<TzSoapReason> reasons_;
    bool reasonsAreOld_ = false; // of before this reading
    TzCString node_;
    TzCString role_;
    TzSoapCompositeType details_;
    TzCString detailText_;
    State state_ = State::None;
    TzXmlName name_;
    TzSoapVersion::Version version_;
    std::vector<TzXmlName> subcodes_;
    std::vector<TzXmlAttributeSet> scopes_; // attributes of the open children, innermost last
    ReadName readCode_;
    std::vector<ReadName> readSubcodes_;                        // in order of their indices
    std::unique_ptr<TzSoapDetailReader> detailReader_;          // while the fault is read
    std::unique_ptr<TzSoapFaultSpellingReader> spellingReader_; // while it is read literally
    std::unique_ptr<TzSoapFaultSpelling> spelling_;
    std::unique_ptr<TzXmlElementImp> element_; // the Fault element's declarations while it is read
};

// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <soap/TzSoapReason.h>
#include <soap/TzSoapVersion.h>
#include <tz/pointer/TzHandleBase.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlName.h>
#include <tz/xml/TzXmlText.h>

#include <vector>

class TzSoapCompositeType;
class TzSoapConstVisitor;
class TzSoapFaultImp;
class TzSoapType;
class TzSoapVisitor;

/// Handle of a fault: the error report that a body may carry.
///
/// One class serves both versions; names of SOAP 1.1 and SOAP 1.2 stand for the same fields. Codes
/// are not checked against the version, except by `setCode` of `V1_2Rec`. Copies share the body,
/// `copy()` makes a new one. Every operation on a handle without a body throws
/// `TzTHRInvalidPointer` "Invalid pointer". Handles that share a body may be copied and destroyed
/// on different threads; the fault itself is used by one thread at a time.
class TZSOAP_API TzSoapFault : public TzHandleBase {
public:
    /// An empty fault of the latest version.
    TzSoapFault();
    TzSoapFault(const TzSoapFault&) noexcept = default;
    TzSoapFault(TzSoapFault&&) noexcept = default;
    TzSoapFault& operator=(const TzSoapFault&) noexcept = default;
    TzSoapFault& operator=(TzSoapFault&&) noexcept = default;
    ~TzSoapFault() override;

    /// A new fault with a copy of name, version, code, texts and detail (whose entries are
    /// shared); subcodes do not travel with a copy.
    virtual TzSoapFault copy() const;
    /// Calls the visitor's operation for faults.
    virtual void acceptVisitor(TzSoapVisitor& visitor);
    /// Calls the visitor's operation for faults.
    virtual void acceptVisitor(TzSoapConstVisitor& visitor) const;

    /// Sets the code; a fault with a code is present. `TzXmlError` INVALID_FAULT_CODE "V1_2Rec" for
    /// a code of SOAP that a fault of that version cannot have: DTDNotSupported.
    void setCode(const TzXmlName& code);
    /// The code, the empty name when not set.
    TzXmlName getCode() const;
    /// The code without the white space that stood around it when it was read, its prefix resolved
    /// where it stood; otherwise what `getCode` returns.
    TzXmlName getCodeValue() const;
    /// Does what `setCode` does.
    void setFaultCode(const TzXmlName& code) { setCode(code); }
    /// Does what `getCode` does.
    TzXmlName getFaultCode() const { return getCode(); }

    /// Adds a subcode after the others.
    void addSubcode(const TzXmlName& subcode);
    /// The subcode at `index`, the empty name beyond the last one.
    TzXmlName getSubcode(unsigned int index) const;
    /// The subcode at `index` as `getCodeValue` has the code. O(log subcodes).
    TzXmlName getSubcodeValue(unsigned int index) const;
    /// Number of subcodes.
    unsigned int getSubcodeCount() const;
    /// Removes all subcodes.
    void clearSubcodes();
    /// Adds a subcode with the local part `qualifier` and no namespace: the way of SOAP 1.1 to
    /// refine a code.
    void addFaultCodeQualifier(const TzCString& qualifier);
    /// Overload for other texts; `TzXmlBadArgError` for a null pointer.
    void addFaultCodeQualifier(TzXmlText auto qualifier) {
        addFaultCodeQualifier(tzXmlText(qualifier));
    }

    /// Sets the reason, in place of all there were, in no particular language.
    void setReason(const TzCString& reason);
    /// Overload for other texts; `TzXmlBadArgError` for a null pointer.
    void setReason(TzXmlText auto reason) { setReason(tzXmlText(reason)); }
    /// The reason, the first if there are several, "" when not set.
    TzCString getReason() const;
    /// Adds the reason in a further language; `V1_2Rec` writes all of them, in order, the other
    /// versions write the first. A reason without language is written there as one in "en".
    void addReason(const TzCString& reason, const TzCString& language);
    /// The reason in `language`, such as "en-GB"; without one that in the language without its last
    /// subtag ("en"), and so on, or in a more particular one; otherwise the first, "" when none is
    /// set. Letter case does not matter. O(reasons * subtags).
    TzCString getReason(const TzCString& language) const;
    /// Overload for other texts; `TzXmlBadArgError` for a null pointer.
    TzCString getReason(TzXmlText auto language) const { return getReason(tzXmlText(language)); }
    /// All reasons; valid until they change.
    const std::vector<TzSoapReason>& getReasons() const;
    /// Does what `setReason` does.
    void setFaultString(const TzCString& reason) { setReason(reason); }
    /// Overload for other texts; `TzXmlBadArgError` for a null pointer.
    void setFaultString(TzXmlText auto reason) { setFaultString(tzXmlText(reason)); }
    /// Does what `getReason` does.
    TzCString getFaultString() const { return getReason(); }

    /// Sets the node that reports the fault.
    void setNode(const TzCString& node);
    /// Overload for other texts; `TzXmlBadArgError` for a null pointer.
    void setNode(TzXmlText auto node) { setNode(tzXmlText(node)); }
    /// The node, "" when not set; valid until it changes.
    const TzCString& getNode() const;
    /// Does what `setNode` does.
    void setFaultActor(const TzCString& node) { setNode(node); }
    /// Overload for other texts; `TzXmlBadArgError` for a null pointer.
    void setFaultActor(TzXmlText auto node) { setFaultActor(tzXmlText(node)); }
    /// Does what `getNode` does.
    const TzCString& getFaultActor() const { return getNode(); }

    /// Sets the role in which the node acted; written in SOAP 1.2 only.
    void setRole(const TzCString& role);
    /// Overload for other texts; `TzXmlBadArgError` for a null pointer.
    void setRole(TzXmlText auto role) { setRole(tzXmlText(role)); }
    /// The role, "" when not set; valid until it changes.
    const TzCString& getRole() const;

    /// Names `value` after the text `name` and appends it, shared, to the detail; every handle to
    /// the value sees the new name. The text states no namespace: where the value's own name has
    /// the prefix of the text, its namespace stays; otherwise the name is in none, and a prefix
    /// that nothing around it declares is written without a declaration, which receivers refuse.
    /// `TzTHRInvalidPointer`, and nothing changed, for a value without a body.
    void addDetailEntry(const TzCString& name, const TzSoapType& value);
    /// Overload for other texts; `TzXmlBadArgError` for a null pointer.
    void addDetailEntry(TzXmlText auto name, const TzSoapType& value) {
        addDetailEntry(tzXmlText(name), value);
    }
    /// Replaces the detail. The composite is shared: what the fault does to its detail is done to
    /// it. `TzTHRInvalidPointer`, and nothing changed, for one without a body.
    void setDetails(const TzSoapCompositeType& details);
    /// The text directly inside of the detail, beside its entries, where some senders put the
    /// cause; "" without any. Read without the white space at its ends; several texts between
    /// entries are lines of one.
    const TzCString& getDetailText() const;
    /// Sets the text directly inside of the detail; it is written before the entries. A detail is
    /// written when it has an entry or a text that is not white space.
    void setDetailText(const TzCString& text);
    /// Overload for other texts; `TzXmlBadArgError` for a null pointer.
    void setDetailText(TzXmlText auto text) { setDetailText(tzXmlText(text)); }
    /// The detail and its entries.
    const TzSoapCompositeType& getDetails() const;

    /// The fault element's name.
    const TzXmlName& getName() const;
    /// Empties code, reason, node, role and detail and makes the version the latest one. Subcodes
    /// stay
    /// (`clearSubcodes` removes them), and so do the names of fault and detail.
    void clear();
    /// The fault as XML text, standing alone.
    TzCString asString() const;

protected:
    /// An empty fault of `version`; `TzXmlError` UNKNOWN_VERSION for an unknown version.
    explicit TzSoapFault(TzSoapVersion::Version version);
    /// A handle to `body`, which may be null.
    explicit TzSoapFault(TzSoapFaultImp* body) noexcept;
    /// The body; `TzTHRInvalidPointer` "Invalid pointer" for an empty handle.
    TzSoapFaultImp& body() const;

private:
    friend struct TzSoapAccess;
};

// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapContentBase.h>
#include <soap/TzSoapElementHandle.h>
#include <soap/TzSoapExport.h>
#include <soap/TzSoapMemberAccess.h>
#include <soap/TzSoapVersion.h>
#include <tz/pointer/TzHandleBase.h>
#include <tz/tools/TzCString.h>
#include <tz/tools/TzPointerArgument.h>
#include <tz/xml/TzXmlName.h>
#include <tz/xml/TzXmlText.h>

class TzSoapConstVisitor;
class TzSoapTypeImp;
class TzSoapVisitor;

/// Handle of a value of any kind: a header entry, a body entry, a struct member, an array item.
///
/// Copies share the body, `copy()` makes a new one. Every operation on a handle without a body
/// throws `TzTHRInvalidPointer` "Invalid pointer". Handles that share a body may be copied and
/// destroyed on different threads; the value itself is used by one thread at a time.
class TZSOAP_API TzSoapType : public TzHandleBase,
                              public TzSoapContentBase,
                              public TzSoapElementHandle<TzSoapType>,
                              public TzSoapMemberAccess<TzSoapType> {
public:
    /// A generic value without name.
    TzSoapType();
    /// A generic value named `name`.
    explicit TzSoapType(const TzXmlName& name);
    TzSoapType(const TzSoapType&) noexcept = default;
    TzSoapType(TzSoapType&&) noexcept = default;
    // To lvalues only: assigned to what an operation returned, a value would be lost.
    TzSoapType& operator=(const TzSoapType&) & noexcept = default;
    TzSoapType& operator=(TzSoapType&&) & noexcept = default;
    ~TzSoapType() override = default;

    using TzSoapElementHandle<TzSoapType>::getName;
    /// The element's name, to change it in place.
    TzXmlName& getName();
    /// Replaces the element's name.
    void setName(const TzXmlName& name);

    /// The actor (role), "" when absent.
    TzCString getActorAttribute() const;
    /// Sets the actor (role); "" means absent.
    void setActor(const TzCString& actor);
    /// Overload for other texts; `TzXmlBadArgError` for a null pointer.
    void setActor(TzXmlText auto actor) { setActor(tzXmlText(actor)); }
    /// Removes the actor.
    void removeActorAttribute();
    /// mustUnderstand; false when not set.
    bool getMustUnderstand() const;
    /// Sets mustUnderstand.
    void setMustUnderstand(bool mustUnderstand);
    /// A pointer, even to the text "0", would be taken for true.
    void setMustUnderstand(TzPointerArgument auto mustUnderstand) = delete;
    /// Unsets mustUnderstand.
    void removeMustUnderstandAttribute();
    /// "true" or "false", "" when mustUnderstand is not set.
    TzCString getMustUnderstandAttribute() const;
    /// The text that `version` writes for mustUnderstand, "" when not set; `Tzxmsg` "Unrecognized
    /// TzSoapVersion::Version" when set and the version is unknown.
    TzCString getMustUnderstandAttribute(TzSoapVersion::Version version) const;

    /// What kind of value this is.
    SoapTypeId getSoapTypeId() const;
    /// The kind as text, such as "Simple".
    const TzCString& getSoapTypeIdAsString() const;
    /// Sets the xsi "nil" attribute to "1" or "0".
    void setNull(bool null);
    /// A pointer, even to the text "0", would be taken for true.
    void setNull(TzPointerArgument auto null) = delete;
    /// Whether the xsi "nil" attribute is "1".
    bool isNull() const;
    /// Sets how the value's text is written.
    void setEscapeText(EscapeText escape);
    /// How the value's text is written; `EscapeOn` unless set.
    EscapeText getEscapeText() const;

    /// A new value of its kind with a copy of the content. Composites and arrays share their
    /// children with the original. O(content).
    TzSoapType copy() const;
    /// Calls the visitor's operation for this kind of value.
    void acceptVisitor(TzSoapVisitor& visitor);
    /// Calls the visitor's operation for this kind of value.
    void acceptVisitor(TzSoapConstVisitor& visitor) const;
    /// The value as XML text, standing alone.
    TzCString asString() const;

protected:
    /// A handle to `body`, which may be null.
    explicit TzSoapType(TzSoapTypeImp* body) noexcept;
    /// The body; `TzTHRInvalidPointer` "Invalid pointer" for an empty handle.
    TzSoapTypeImp& body() const;

private:
    friend class TzSoapElementHandle<TzSoapType>;
    friend struct TzSoapAccess;

    TzSoapElementImp& elementBody() const;
};

extern template class TzSoapMemberAccess<TzSoapType>;

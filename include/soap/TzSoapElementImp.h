// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapAttributeSet.h>
#include <soap/TzSoapContentBase.h>
#include <soap/TzSoapExport.h>
#include <soap/TzSoapVersion.h>
#include <tz/pointer/TzSharedRecord.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlElementImp.h>
#include <tz/xml/TzXmlName.h>

#include <memory>

/// Body of every SOAP element: an XML element with the attributes that SOAP defines.
///
/// mustUnderstand, root, actor, encodingStyle and the type are separate properties; id and
/// offset live in the attribute set. Not locked: an element is used by one thread at a time.
class TZSOAP_API TzSoapElementImp : public TzXmlElementImp {
public:
    /// An element without name.
    TzSoapElementImp();
    /// An element named `name`.
    explicit TzSoapElementImp(TzXmlName name);
    /// Copies every property and the attribute set.
    TzSoapElementImp(const TzSoapElementImp& other);
    /// Copies every property and the attribute set.
    TzSoapElementImp& operator=(const TzSoapElementImp& other);
    ~TzSoapElementImp() override = default;

    /// Removes all attributes and whatever else was set; the name stays.
    void clearElement();
    /// Takes over everything that `other` is and has, its name included; `other` is left empty.
    void takeElement(TzSoapElementImp& other) noexcept;

    /// The attribute set: the element's SOAP and other attributes.
    TzSoapAttributeSet& getAttributeSet() noexcept { return listAs<TzSoapAttributeSet>(); }
    /// The attribute set: the element's SOAP and other attributes.
    const TzSoapAttributeSet& getAttributeSet() const noexcept {
        return listAs<TzSoapAttributeSet>();
    }

    /// The encodingStyle text, "" when absent.
    virtual TzCString getEncodingStyleAttribute() const;
    /// Replaces the encodingStyle text as a whole; "" means absent.
    virtual void setEncodingStyle(const TzCString& style);
    /// As `setEncodingStyle`, but shares the text `style` instead of copying it: for readers, where
    /// one long text may hold for many elements.
    void shareEncodingStyle(const TzSharedRecord<TzCString>& style);
    /// The encodingStyle text as `shareEncodingStyle` takes it, which copies nothing.
    TzSharedRecord<TzCString> sharedEncodingStyle() const noexcept;
    /// Whether the encodingStyle text is not empty.
    virtual bool hasEncodingStyleAttribute() const;
    /// Empties the encodingStyle text.
    virtual void removeEncodingStyleAttribute();
    /// The id, "" when absent.
    virtual const TzCString& getIdAttribute() const;
    /// Sets the id.
    virtual void setIdAttribute(const TzCString& id);
    /// Removes the id.
    virtual void removeIdAttribute();
    /// "1" or "0", "" when root is not set.
    virtual TzCString getRootAttribute() const;
    /// Root; false when not set.
    virtual bool getRoot() const;
    /// Sets root.
    virtual void setRoot(bool root);
    /// Whether root is set.
    virtual bool isRootAttributeSet() const;
    /// Unsets root.
    virtual void removeRootAttribute();
    /// The type, the empty name when absent.
    virtual const TzXmlName& getTypeValue() const;
    /// The qualified name of the type, "" when absent.
    virtual TzCString getTypeAttribute() const;
    /// Sets the type.
    virtual void setTypeAttribute(const TzXmlName& type);
    /// Removes the type.
    virtual void removeTypeAttribute();

    /// The actor (role), "" when absent.
    virtual const TzCString& getActorAttribute() const;
    /// Sets the actor (role); "" means absent.
    virtual void setActor(const TzCString& actor);
    /// Empties the actor.
    virtual void removeActorAttribute();
    /// mustUnderstand; false when not set.
    virtual bool getMustUnderstand() const;
    /// Sets mustUnderstand.
    virtual void setMustUnderstand(bool mustUnderstand);
    /// Unsets mustUnderstand.
    virtual void removeMustUnderstandAttribute();
    /// "true" or "false", "" when mustUnderstand is not set.
    virtual TzCString getMustUnderstandAttribute() const;
    /// The text of `version`: "1" or "0" in SOAP 1.1, "true" or "false" in SOAP 1.2, "" when not
    /// set. `Tzxmsg` "Unrecognized TzSoapVersion::Version" when set and the version is
    /// unknown.
    virtual TzCString getMustUnderstandAttribute(TzSoapVersion::Version version) const;
    /// The offset text, "" when absent.
    virtual TzCString getOffsetAttribute() const;
    /// Sets the offset text, always under the name of the latest version.
    virtual void setOffsetAttribute(const TzCString& offset);
    /// Removes the offset text.
    virtual void removeOffsetAttribute();

    /// Whether any of root, mustUnderstand, actor and encodingStyle may be set: false saves asking
    /// for each of them.
    bool hasProperties() const noexcept {
        return texts_ != nullptr || mustUnderstand_ != Flag::Absent || root_ != Flag::Absent;
    }

    /// Whether the attribute set holds every attribute as it was read, those too that are
    /// properties: literal messages write these under their own spelling as long as they say what
    /// the properties say.
    bool isVerbatim() const noexcept { return verbatim_; }
    /// Notes that the attribute set holds every attribute as it was read, or no longer does.
    void setVerbatim(bool verbatim) noexcept { verbatim_ = verbatim; }

private:
    friend class TzSoapTypeImp;

    /// Texts that few elements have: kept apart so that the others stay small.
    struct Texts {
        TzCString actor;
        TzSharedRecord<TzCString> encodingStyle;
    };
    /// A boolean attribute: absent, false or true.
    enum class Flag : unsigned char { Absent, False, True };

    Texts& texts();

    std::unique_ptr<Texts> texts_;
    TzXmlName type_;
    // Small members last, and among them one that only values need, because it fills a gap.
    Flag mustUnderstand_ = Flag::Absent;
    Flag root_ = Flag::Absent;
    bool verbatim_ = false;
    TzSoapContentBase::EscapeText escapeText_ = TzSoapContentBase::EscapeOn; // of values
};

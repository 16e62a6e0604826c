// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <soap/TzSoapVersion.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlAttributeSet.h>
#include <tz/xml/TzXmlName.h>

#include <string_view>

/// The attributes of a SOAP element, with typed access to those that SOAP defines.
///
/// A getter without version finds the attribute under the name of either version, the latest first;
/// a getter with one only under that version's name. Cost of look-ups and changes as for the base.
/// Not locked: one set is used by one thread at a time, the static operations by any number.
class TZSOAP_API TzSoapAttributeSet : public TzXmlAttributeSet {
public:
    /// An empty set.
    TzSoapAttributeSet() noexcept = default;
    TzSoapAttributeSet(const TzSoapAttributeSet& other);
    TzSoapAttributeSet(TzSoapAttributeSet&& other) noexcept;
    TzSoapAttributeSet& operator=(const TzSoapAttributeSet& other);
    TzSoapAttributeSet& operator=(TzSoapAttributeSet&& other) noexcept;
    ~TzSoapAttributeSet() override;

    /// Whether mustUnderstand is there with the value "1" ("true" is false).
    bool getMustUnderstandAttribute() const;
    /// Whether mustUnderstand of `version` is there with the value "1".
    bool getMustUnderstandAttribute(TzSoapVersion::Version version) const;
    /// Sets mustUnderstand under the name of `version` to "1" or "0".
    void setMustUnderstandAttribute(bool value, TzSoapVersion::Version version);
    /// Removes mustUnderstand, the form of the latest version if both are there.
    void removeMustUnderstandAttribute();
    /// Whether mustUnderstand is there with the value "0" or "1".
    bool isMustUnderstandAttributeSet() const;

    /// Whether root is there with the value "1" ("true" is false).
    bool getRootAttribute() const;
    /// Whether root of `version` is there with the value "1".
    bool getRootAttribute(TzSoapVersion::Version version) const;
    /// Sets root under the name of `version` to "1" or "0".
    void setRootAttribute(bool value, TzSoapVersion::Version version);
    /// Removes root, the form of the latest version if both are there.
    void removeRootAttribute();
    /// Whether root is there with the value "0" or "1".
    bool isRootAttributeSet() const;

    /// The value of actor (1.1) or role (1.2), "" if absent; valid until the next change.
    const TzCString& getActorAttribute() const;
    /// The value of actor or role as `version` names it, "" if absent; valid until the next change.
    const TzCString& getActorAttribute(TzSoapVersion::Version version) const;
    /// Sets actor or role under the name of `version`.
    void setActorAttribute(const TzCString& actor, TzSoapVersion::Version version);
    /// Removes actor or role, the form of the latest version if both are there.
    void removeActorAttribute();

    /// The value of encodingStyle, "" if absent; valid until the next change.
    const TzCString& getEncodingStyleAttribute() const;
    /// The value of encodingStyle of `version`, "" if absent; valid until the next change.
    const TzCString& getEncodingStyleAttribute(TzSoapVersion::Version version) const;
    /// Sets encodingStyle under the name of `version` to the URIs in `style`, single blanks between
    /// them. O(length).
    void setEncodingStyleAttribute(const TzCString& style, TzSoapVersion::Version version);
    /// Removes encodingStyle, the form of the latest version if both are there.
    void removeEncodingStyleAttribute();
    /// Whether encodingStyle is there, with any value.
    bool hasEncodingStyleAttribute() const;

    /// The value of arrayType, "" if absent; valid until the next change.
    const TzCString& getArrayTypeAttribute() const;
    /// The value of arrayType of `version`, "" if absent (always in 1.2); valid until the next
    /// change.
    const TzCString& getArrayTypeAttribute(TzSoapVersion::Version version) const;
    /// Sets arrayType under the name of `version`; does nothing in 1.2, which has no such
    /// attribute.
    void setArrayTypeAttribute(const TzCString& arrayType, TzSoapVersion::Version version);
    /// Removes arrayType.
    void removeArrayTypeAttribute();

    /// The value of position, "" if absent; valid until the next change.
    const TzCString& getPositionAttribute() const;
    /// The value of position of `version`, "" if absent; valid until the next change.
    const TzCString& getPositionAttribute(TzSoapVersion::Version version) const;
    /// Sets position under the name of `version`.
    void setPositionAttribute(const TzCString& position, TzSoapVersion::Version version);
    /// Whether position is there, with any value.
    bool hasPositionAttribute() const;
    /// Removes position, the form of the latest version if both are there.
    void removePositionAttribute();

    /// The value of offset, "" if absent; valid until the next change.
    const TzCString& getOffsetAttribute() const;
    /// The value of offset of `version`, "" if absent; valid until the next change.
    const TzCString& getOffsetAttribute(TzSoapVersion::Version version) const;
    /// Sets offset under the name of `version`.
    void setOffsetAttribute(const TzCString& offset, TzSoapVersion::Version version);
    /// Removes offset, the form of the latest version if both are there.
    void removeOffsetAttribute();

    /// The value of the unqualified "id", "" if absent; valid until the next change. In a set with
    /// an "enc:id", as values read from a message of `V1_2Rec` may have, that one is the id, here
    /// and below.
    const TzCString& getIdAttribute() const;
    /// Sets the unqualified "id".
    void setIdAttribute(const TzCString& id);
    /// Removes the unqualified "id".
    void removeIdAttribute();

    /// Whether xsi "nil" is there with the value "1" ("true" is false).
    bool getNullAttribute() const;
    /// Sets xsi "nil" to "1" or "0".
    void setNullAttribute(bool value);
    /// Removes xsi "nil".
    void removeNullAttribute();

    /// "1".
    static const TzCString& getTrueAttributeValue();
    /// "0".
    static const TzCString& getFalseAttributeValue();
    /// The unqualified name "id".
    static const TzXmlName& getIdAttributeName();
    /// The name "type" in the XML Schema instance namespace.
    static const TzXmlName& getTypeAttributeName();
    /// The name "nil" in the XML Schema instance namespace.
    static const TzXmlName& getNullAttributeName();
    /// "", the answer of the getters for an absent attribute.
    static const TzCString& getEmptyString();
    /// Whether `name` is the unqualified "id".
    static bool matchIdAttributeName(const TzXmlName& name);
    /// Whether `name` is "type" in an XML Schema instance namespace of any year.
    static bool matchTypeAttributeName(const TzXmlName& name);

private:
    TzXmlAttribute* getSoapAttribute(TzSoapVersion::SoapAttribute attribute);
    const TzXmlAttribute* getSoapAttribute(TzSoapVersion::SoapAttribute attribute) const;
    TzXmlAttribute* getSoapAttribute(TzSoapVersion::SoapAttribute attribute,
                                     TzSoapVersion::Version& found);
    const TzXmlAttribute* getSoapAttribute(TzSoapVersion::SoapAttribute attribute,
                                           TzSoapVersion::Version& found) const;

    const TzXmlAttribute* findOf(TzSoapVersion::SoapAttribute attribute,
                                 TzSoapVersion::Version version) const;
    const TzXmlName& idName() const;
    const TzCString& valueAt(const TzXmlAttribute* position) const;
    bool isTrueAt(const TzXmlAttribute* position) const;
    bool isBooleanAt(const TzXmlAttribute* position) const;
    void set(TzSoapVersion::SoapAttribute attribute, TzSoapVersion::Version version,
             TzCString value);
    void remove(TzSoapVersion::SoapAttribute attribute);

    static const TzCString& booleanValue(bool value);
    static TzCString normalisedStyle(std::string_view style);
};

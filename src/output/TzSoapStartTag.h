// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapTypeImp.h>
#include <soap/TzSoapVersion.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlAttributeSet.h>
#include <tz/xml/TzXmlName.h>
#include <tz/xml/TzXmlWriter.h>

#include "output/TzSoapOutputContext.h"
#include "output/TzSoapReadyTags.h"
#include "output/TzSoapScopeRules.h"
#include "output/TzSoapTagAttributes.h"
#include "output/TzSoapTagName.h"

#include <cstdint>
#include <string_view>

class TzSoapArrayTypeImp;
class TzSoapElementImp;
class TzSoapReferenceTypeImp;

/// The start tag being prepared: finds out what the innermost element has to declare, collects its
/// attributes, and writes them.
///
/// Most values declare and state nothing but their type; these take a short path,
/// `Brief`.
class TzSoapStartTag {
public:
    /// What prefixes of names without prefix are made from.
    static constexpr std::string_view PrefixBase = "prefix";

    /// What follows the name on the start tag of a brief value, up to the end of the tag.
    struct Brief {
        bool hasType = false;
        TzXmlWriter::Spelling type;

        /// Calls `use` with the pieces that it is made of.
        template <typename Use> decltype(auto) pass(const Use& use) const {
            return hasType ? use(TypeOpen, type, TypeClose) : use(TzXmlWriter::EndTag);
        }

        /// The attribute that states a type, around its value.
        static constexpr std::string_view TypeOpen = " xsi:type=\"";
        static constexpr std::string_view TypeClose = "\">";
    };

    /// The start tags written in `context`, which must outlive this object.
    explicit TzSoapStartTag(const TzSoapOutputContext& context) noexcept : context_(context) {}
    TzSoapStartTag(const TzSoapStartTag&) = delete;
    TzSoapStartTag& operator=(const TzSoapStartTag&) = delete;

    /// The scope of the element.
    TzSoapScope& scope() const noexcept { return context_.scope(); }
    /// The names of the version written.
    const TzSoapVersion& soap() const noexcept { return context_.soap(); }

    /// Begins the tag of the element opened last, which carries `attributes`.
    void begin(const TzXmlAttributeSet& attributes) {
        clear();
        if (!attributes.empty()) {
            context_.rules().enter(scope(), attributes);
        }
    }
    /// Forgets what was collected.
    void clear() noexcept {
        attributes_.clear();
        needsDefault_ = false;
    }
    /// Forgets everything, for another scope.
    void reset() noexcept;
    /// Declares what `name` needs where its prefix is unbound.
    void qualifyName(const TzXmlName& name);
    /// Collects the attributes of an envelope, header or body, and its style where the version
    /// allows one.
    void collectBlock(const TzSoapElementImp& element);
    /// Collects the attributes of a value with its style, and those that SOAP defines for values:
    /// `type` is its type, `position` its position in a sparse array, "" for any other value.
    void collectValue(const TzSoapTypeImp& value, const TzXmlName& type, std::string_view position);
    /// Collects root when it is set.
    void collectRoot(const TzSoapElementImp& element);
    /// Collects the attributes that an array has besides those of every value.
    void collectShape(const TzSoapArrayTypeImp& array);
    /// Collects the position in a sparse array, unless it is "".
    void collectPosition(std::string_view position);
    /// Collects the xsi attribute `name`.
    void collectSchemaInstance(const TzXmlName& name, std::string_view value);
    /// Collects an attribute of SOAP; does nothing if the version lacks it.
    void collectSoap(TzSoapVersion::SoapAttribute attribute, std::string_view value);
    /// Keeps a text until the next tag.
    std::string_view keep(std::string_view text) { return attributes_.keep(text); }
    /// Spells the attribute of a reference, collected before, as this version names it.
    void renameReference(const TzSoapReferenceTypeImp& reference);
    /// States the version's own style unless the element or one around it states a style already.
    void ensureStyle();
    /// Declares what the style attribute needs; to be called when all else is collected.
    void qualifyStyle() {
        if (scope().isStyleStated()) {
            context_.rules().qualifyStyle(*this);
        }
    }

    /// Finds the prefix to spell the style attribute with, and declares it where it has to be.
    void bindStyle();
    /// The prefix that `bindStyle` found for this tag.
    std::string_view stylePrefix() const noexcept { return stylePrefix_; }
    /// The prefix for an attribute of SOAP named `name` by the version's table.
    std::string_view soapPrefix(const TzXmlName& name) const;
    /// Whether `name` is an attribute of SOAP as another version than that written names it.
    bool isOfOtherVersion(const TzXmlName& name, TzSoapVersion::SoapAttribute& attribute) const;
    /// The prefix to spell an attribute named `name` with, declared where it has to be: `prefix`,
    /// or one made from it when that is bound to another namespace. Valid until the next tag.
    std::string_view boundPrefix(std::string_view prefix, const TzXmlName& name);

    /// Finds out what holds here for every value that comes next: whether it has to state a style,
    /// and whether a type can be stated without a declaration.
    void lookAround() {
        if (encodedAt_ != scope().styleChanges() ||
            schemaInstanceBoundAt_ != scope().declarationChanges()) {
            lookFurther();
        }
    }
    /// What `lookAround` finds.
    struct Around {
        bool isEncoded = false;
        bool isSchemaInstanceBound = false;
    };
    /// What it finds here.
    Around around() {
        lookAround();
        return {encodedAt_ == scope().styleChanges(),
                schemaInstanceBoundAt_ == scope().declarationChanges()};
    }
    /// It would find `known` here.
    void takeAround(const Around& known) noexcept {
        encodedAt_ = known.isEncoded ? scope().styleChanges() : 0;
        schemaInstanceBoundAt_ = known.isSchemaInstanceBound ? scope().declarationChanges() : 0;
    }
    /// Whether a value says nothing but its `type`, in the encoding of SOAP, and nothing has to be
    /// declared for it: then `brief` becomes what follows the name on its start tag, which is all
    /// that collecting would yield. `typeIsPlain` when the type is known to need no escaping.
    bool isBrief(const TzSoapTagName& tag, const TzXmlName& name, const TzSoapTypeImp& value,
                 const TzXmlName& type, bool typeIsPlain, Brief& brief) const {
        if (value.hasProperties() || !needsNothing(tag, name, value, type)) {
            return false;
        }
        if (type.isEmpty()) {
            return true;
        }
        const TzSoapTagName text = TzSoapTagName::of(type);
        brief.hasType = true;
        brief.type = text;
        // A name of XML needs no escaping.
        return text.isWritable || typeIsPlain ||
               (TzXmlWriter::isPlain(text.prefix) && TzXmlWriter::isPlain(text.local));
    }
    /// Writes the tag, without its end, of a value that says nothing but its `type`, mustUnderstand
    /// and actor, in the encoding of SOAP, if nothing has to be declared for it, as collecting and
    /// writing would. False, and nothing written, for any other value.
    bool writeShort(const TzSoapTagName& tag, const TzXmlName& name, const TzSoapTypeImp& value,
                    const TzXmlName& type);
    /// The tags of a value for which `isBrief` holds, ready to be copied; null for any other value,
    /// and where they are not worth keeping. Valid until the next call.
    const TzSoapReadyTags::Tags* readyTags(const TzXmlName& name, const TzSoapTypeImp& value,
                                           const TzXmlName& type, bool typeIsPlain) {
        if (!value.getAttributeSet().empty() || value.hasProperties() ||
            encodedAt_ != scope().styleChanges()) {
            return nullptr;
        }
        const TzSoapReadyTags::State state{scope().declarationChanges(), scope().styleChanges()};
        const TzSoapReadyTags::Tags* const known = ready_.find(name, type, state);
        return known != nullptr || !ready_.isWorthIt() ? known
                                                       : makeReady(name, value, type, typeIsPlain);
    }
    /// Writes the tag without its end: name, declarations, attributes.
    void write(const TzSoapTagName& name);
    /// Writes the tag, ends the line and indents what follows.
    void writeBlock(const TzSoapTagName& name);
    /// Writes the name of the element; one for a value without name is declared on this tag.
    /// `TzXmlBadArgError` for what is not a name of XML.
    void writeElementName(const TzSoapTagName& name);
    /// Writes the declarations of the element.
    void writeDeclarations();
    /// Whether the element declares something and its declarations can be written as they stand
    /// together in the scope.
    bool hasReadyDeclarations() const;
    /// Whether the style attribute, if any, is spelt with a prefix and holds nothing to escape.
    bool isStylePlain() const {
        return !scope().isStyleStated() ||
               (!stylePrefix_.empty() && TzXmlWriter::isPlain(scope().ownStyle()));
    }
    /// The style attribute as it stands on the tag, a blank before it; "" when no style is stated.
    /// `isStylePlain` must hold.
    TzCString styleAttribute() const;
    /// Writes one declaration; `TzXmlBadArgError` for a prefix that no name can have, and for "xml"
    /// and "xmlns" with a URI of another namespace.
    void writeDeclaration(std::string_view prefix, std::string_view uri);
    /// Writes the collected attributes.
    void writeAttributes();
    /// Writes one attribute.
    void writeAttribute(std::string_view prefix, std::string_view local, std::string_view value) {
        context_.xml().writeQualifiedAttribute(prefix, local, value);
    }

private:
    void lookFurther();
    // Whether a value without other attributes than those of SOAP has neither to state a style nor
    // to declare anything for its name and type.
    bool needsNothing(const TzSoapTagName& tag, const TzXmlName& name, const TzSoapTypeImp& value,
                      const TzXmlName& type) const {
        const TzSoapScope& around = scope();
        return value.getAttributeSet().empty() && encodedAt_ == around.styleChanges() &&
               !tag.isUnnamed && tag.isWritable && !around.needsDeclaration(name) &&
               (type.isEmpty() || (schemaInstanceBoundAt_ == around.declarationChanges() &&
                                   !(around.hasExactNames() && around.needsDeclaration(type))));
    }
    bool hasShortProperties(const TzSoapTypeImp& value) const;
    void writeSoap(TzSoapVersion::SoapAttribute attribute, std::string_view value);
    void collectDeclaration(const TzXmlAttribute& attribute);
    static void checkName(std::string_view prefix, const TzXmlName& name);
    void collectOwn(const TzSoapElementImp& element, bool styleStated);
    void collectOwn(const TzXmlAttribute& attribute, bool styleStated);
    void collectPlain(const TzSoapElementImp& element, const TzXmlAttribute& attribute);
    bool saysWhat(const TzSoapElementImp& element, const TzXmlAttribute& attribute) const;
    bool isCollected(TzSoapVersion::SoapAttribute attribute) const;
    bool collectId(const TzXmlAttribute& attribute);
    bool collectEncodedId(const TzXmlAttribute& attribute);
    void collectMade(const TzXmlName& name, std::string_view value);
    bool collectOfOtherVersion(const TzXmlAttribute& attribute, bool styleStated);
    bool meansEnvelope(std::string_view uri) const;
    void collectStyle(std::string_view style) { context_.rules().collectStyle(*this, style); }
    void collectProperties(const TzSoapTypeImp& value);
    void collectType(const TzXmlName& type);
    const TzSoapReadyTags::Tags* makeReady(const TzXmlName& name, const TzSoapTypeImp& value,
                                           const TzXmlName& type, bool typeIsPlain);

    const TzSoapOutputContext& context_;
    TzSoapTagAttributes attributes_;
    TzSoapReadyTags ready_;
    std::string_view stylePrefix_;
    bool needsDefault_ = false;               // the default namespace is that of the element's name
    std::uint64_t schemaInstanceBoundAt_ = 0; // changes when the prefix was bound
    std::uint64_t encodedAt_ = 0;             // changes when the style was in force
};

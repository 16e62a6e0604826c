// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapVersion.h>
#include <soap/TzSoapWriter.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlAttribute.h>
#include <tz/xml/TzXmlAttributeSet.h>
#include <tz/xml/TzXmlName.h>
#include <tz/xml/TzXmlNamespace.h>
#include <tz/xml/TzXmlWriter.h>

#include "output/TzSoapOutputState.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

class TzSoapArrayTypeImp;
class TzSoapElementImp;
class TzSoapReferenceTypeImp;
class TzSoapTypeImp;

/// Writes tags: collects the declarations and attributes of an element and its encoding style,
/// within the scopes of the elements around it.
///
/// What the writer and the serializer do differently in this is left to the classes derived from
/// this one: where an element's own declarations go, how prefixes are invented, where the encoding
/// style is written and when it is left out.
class TzSoapTagOutput {
public:
    /// Deepest nesting of elements that is written.
    static constexpr unsigned int DepthLimit = TzSoapWriter::DepthLimit;
    /// What prefixes are made from where there is none.
    static constexpr std::string_view PrefixBase = "prefix";

    /// The name on a tag, in three pieces; refers to texts that outlive the element.
    struct TagName {
        std::string_view prefix;
        std::string_view colon;
        std::string_view local;
        bool unnamed = false; // stands for a value without name
    };

    /// What follows the name on the start tag of a brief value, up to the end of the tag; the first
    /// four are empty when it has no type.
    struct BriefStart {
        std::string_view open;
        std::string_view typePrefix;
        std::string_view typeColon;
        std::string_view type;
        std::string_view close = TzXmlWriter::EndTag;
    };

    /// A scope for one element: opened by the constructor, closed by the destructor, which also
    /// takes the indentation back.
    class Element {
    public:
        /// Opens the scope of an element that carries `attributes`; `TzXmlDomainError` when it is
        /// nested too deeply.
        Element(TzSoapTagOutput& output, const TzXmlAttributeSet& attributes);
        ~Element();
        Element(const Element&) = delete;
        Element& operator=(const Element&) = delete;

    private:
        explicit Element(TzSoapTagOutput& output);

        TzSoapTagOutput& output_;
        std::size_t indentation_;
        std::size_t scopes_;
        std::size_t styles_;
        std::size_t outerScopes_;
        std::size_t outerStyles_;
    };

    /// An output to `text`, for the latest version, with a state of its own.
    explicit TzSoapTagOutput(TzXmlWriter* text);
    TzSoapTagOutput(const TzSoapTagOutput&) = default;
    TzSoapTagOutput& operator=(const TzSoapTagOutput&) = default;
    virtual ~TzSoapTagOutput();

    /// Where the text goes.
    TzXmlWriter& text() const noexcept { return *text_; }
    /// Writes to `text` from now on.
    void setText(TzXmlWriter* text) noexcept { text_ = text; }
    /// The version written.
    TzSoapVersion::Version version() const { return soap_->getVersion(); }
    /// The names of the version written.
    const TzSoapVersion& soap() const noexcept { return *soap_; }
    /// Writes `version` from now on; `TzXmlError` UNKNOWN_VERSION for a value that is no version.
    void setVersion(TzSoapVersion::Version version);
    /// Whether an envelope is being written.
    bool isInEnvelope() const noexcept { return inEnvelope_; }
    /// Whether a header, body or fault is being written on its own.
    bool isStandalone() const noexcept { return standalone_; }
    /// Sets whether an envelope is being written.
    void setInEnvelope(bool inEnvelope) noexcept { inEnvelope_ = inEnvelope; }
    /// Sets whether a header, body or fault is being written on its own.
    void setStandalone(bool standalone) noexcept { standalone_ = standalone; }
    /// What is shared with outer and inner writers.
    TzSoapOutputState& state() const noexcept { return *state_; }
    /// Makes a copy of a top-level output independent: gives it a state of its own. Inner outputs
    /// go on sharing theirs.
    void separate();
    /// Makes a copy of an output one for an element within.
    void becomeInner() noexcept { top_ = false; }
    /// Whether this is no output for an element within another.
    bool isTop() const noexcept { return top_; }

    /// Takes the prefixes that a message uses for the namespaces of SOAP.
    void takePrefixes(const TzCString& envelope, const TzCString& encoding);
    /// The prefix to spell the envelope namespace with.
    const TzCString& envelopePrefix() const;
    /// The URI bound to `prefix` where the output stands, "" when unbound.
    const TzCString& uriForPrefix(std::string_view prefix) const noexcept {
        return state_->namespaces.getURIForPrefix(prefix);
    }
    /// How values without name are called.
    static const TzXmlName& unnamedName();
    /// The name on the tag of an element named `name`.
    static TagName tagName(const TzXmlName& name) noexcept {
        const TzCString& prefix = name.getPrefix();
        return name.isEmpty()
                   ? unnamed()
                   : TagName{prefix, prefix.empty() ? std::string_view() : TzXmlWriter::Colon,
                             name.getLocalName(), false};
    }
    /// The name on a tag with `prefix`, whose colon is written in any case.
    static TagName tagName(std::string_view prefix, std::string_view local) noexcept {
        return {prefix, TzXmlWriter::Colon, local, false};
    }

    /// Declares a namespace on the tag being prepared, but for a prefix without URI, which XML
    /// forbids.
    void declare(const TzXmlNamespace& declared);
    /// Declares `uri` under `prefix` when that prefix is unbound.
    void declareUnbound(std::string_view prefix, const TzCString& uri);
    /// Declares what `name` needs where its prefix is unbound.
    void qualifyName(const TzXmlName& name);

    /// Collects the attributes of an envelope, header or body, and its style.
    void collectAttributes(const TzSoapElementImp& element);
    /// Collects the attributes of a value, its style and its position in a sparse array.
    void collectAttributes(const TzSoapTypeImp& value);
    /// Collects what the body of a message has beside that.
    virtual void collectBodyProperties(const TzSoapElementImp& body);
    /// Collects the attributes that an array has beside those of every value.
    void collectShape(const TzSoapArrayTypeImp& array);
    /// Collects the position in a sparse array, if there is one.
    void collectPosition();
    /// Collects the xsi attribute `name`.
    void collectSchemaInstance(const TzXmlName& name, std::string_view value);
    /// Spells the attribute of a reference, collected before, as this version names it.
    void renameReference(const TzSoapReferenceTypeImp& reference);
    /// States the version's own style unless the element or one around it states a style already.
    void ensureStyle();
    /// Declares what the style attribute needs; to be called when all else is collected.
    void qualifyStyle() {
        if (isStyleStated()) {
            doQualifyStyle();
        }
    }
    /// Refuses to go `levels` deeper than the open elements when that is too deep.
    void checkDepth(std::size_t levels) const {
        if (levels > DepthLimit - state_->depth) {
            refuseDepth();
        }
    }
    /// The next value stands at `position` of a sparse array; "" for any other value.
    void setPosition(std::string_view position) { position_ = position; }

    /// Writes a name.
    void writeName(const TagName& name) { text_->writeMarkup(name.prefix, name.colon, name.local); }
    /// Whether a value says nothing but its type, in the encoding of SOAP, and nothing has to be
    /// declared for it: then `brief` becomes what follows the name on its start tag, which is all
    /// that collecting would yield. `typeIsPlain` when the type is known to need no escaping.
    bool isBrief(const TagName& tag, const TzXmlName& name, const TzSoapTypeImp& value,
                 bool typeIsPlain, BriefStart& brief) const;
    /// Writes the name of an element; one for a value without name is declared on this tag.
    void writeElementName(const TagName& name);
    /// Writes the declarations made for the tag being prepared.
    void writeDeclarations();
    /// Writes the collected attributes.
    void writeAttributes();
    /// Writes a start tag without its end: name, declarations, attributes.
    void writeStartTag(const TagName& name);
    /// Writes an end tag and ends the line.
    void writeEndTag(const TagName& name);

protected:
    /// The style stated by the element whose tag is prepared, "" when it states none.
    std::string_view ownStyle() const noexcept {
        return isStyleStated() ? state_->styles.inForce(state_->styles.size()) : std::string_view();
    }
    /// Whether the element whose tag is prepared states a style.
    bool isStyleStated() const noexcept { return state_->styles.size() != outerStyles_; }
    /// The style in force around that element.
    std::string_view outerStyle() const noexcept { return state_->styles.inForce(outerStyles_); }
    /// Makes `style` the one that the element states.
    void setOwnStyle(std::string_view style);
    /// Collects root when it is set.
    void collectRoot(const TzSoapElementImp& element);
    /// Collects an attribute of SOAP; nothing happens where the version has no such attribute.
    void collectSoap(TzSoapVersion::SoapAttribute attribute, std::string_view value);
    /// The prefix for an attribute of SOAP named `name` by the version's table.
    std::string_view soapPrefix(const TzXmlName& name) const;
    /// Whether `name` is an attribute of SOAP as another version than that written names it.
    bool isOfOtherVersion(const TzXmlName& name, TzSoapVersion::SoapAttribute& attribute) const;
    /// The prefix to spell an attribute named `name` with, declared where it has to be: `prefix`,
    /// or one made from it when that is bound to another namespace. Valid until the next tag.
    std::string_view boundPrefix(std::string_view prefix, const TzXmlName& name);

private:
    static constexpr std::uint64_t NeverEncoded = ~std::uint64_t{0};

    /// Takes note of the declarations of an element before anything of it is qualified.
    virtual void enterDeclarations(const TzXmlAttributeSet& attributes) = 0;
    /// Collects a declaration that the element carries as an attribute.
    virtual void collectDeclaration(const TzXmlAttribute& declaration) = 0;
    /// A prefix made from `prefix` that can be declared for `uri`.
    virtual TzCString uniquePrefix(std::string_view prefix, std::string_view uri) const = 0;
    /// Collects `style` as the one that the element states.
    virtual void collectStyle(std::string_view style) = 0;
    /// Declares what the style attribute needs, which the element states.
    virtual void doQualifyStyle() = 0;
    /// Writes the style, which the element states, when it is not among the collected attributes.
    virtual void writeStyle() = 0;

    static TagName unnamed() noexcept;
    [[noreturn]] static void refuseDepth();
    void open();
    void close(std::size_t scopes, std::size_t styles) noexcept;
    void collectOwn(const TzSoapElementImp& element, bool styleStated);
    void collectOwn(const TzXmlAttribute& attribute, bool styleStated);
    void collectStyleOf(const TzSoapElementImp& element);
    bool collectOfOtherVersion(const TzXmlAttribute& attribute, bool styleStated);
    void collectProperties(const TzSoapTypeImp& value);
    void collectType(const TzXmlName& type);
    bool needsDeclaration(const TzXmlName& name) const noexcept;
    const TzCString& encodingPrefix() const;

    TzXmlWriter* text_;
    const TzSoapVersion* soap_;
    std::shared_ptr<TzSoapOutputState> state_;
    TzCString position_;
    std::size_t outerScopes_ = 0;
    std::size_t outerStyles_ = 0;
    std::uint64_t encodedAt_ = NeverEncoded; // where the styles put that of this version in force
    bool top_ = true;
    bool inEnvelope_ = false;
    bool standalone_ = false;
};

// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapContentBase.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlAttributeSet.h>
#include <tz/xml/TzXmlName.h>
#include <tz/xml/TzXmlNamespaceStack.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

class TzXmlElementImp;
class TzXmlSAXParser;

/// Finds the namespaces of names that stand in attribute values and in text, such as types: the
/// innermost open element that declares the prefix decides.
///
/// Keeps an index of the declarations in force. An element enters it when a name is looked up under
/// it, so elements that come and go without one cost nothing, and leaves it when it closes. Serves
/// one text after the other: names and declarations met recently are known again.
class TzSoapTypeNames {
public:
    /// Open elements, outermost first; not owned.
    using Elements = std::vector<TzXmlElementImp*>;

    /// The name of a type.
    struct Type {
        TzXmlName name;
        TzSoapContentBase::SchemaType schemaType = TzSoapContentBase::xsdUnknown;
    };

    TzSoapTypeNames();

    /// The declarations of `element` are in force until `close`. They may change until the first
    /// look-up under it.
    void open(TzXmlElementImp& element) { elements_.push_back(&element); }
    /// Closes the innermost element; there must be one.
    void close() noexcept;
    /// Whether no element is open.
    bool isEmpty() const noexcept { return elements_.empty(); }
    /// The open elements, to push and pop. From then on nothing is remembered about them, because
    /// the holder of the list may change them unnoticed: each look-up walks over them.
    Elements& expose() noexcept {
        exposed_ = true;
        return elements_;
    }
    /// Whether `expose` was called.
    bool isExposed() const noexcept { return exposed_; }

    /// The URI that the innermost open element which declares `prefix` binds it to; "" when none
    /// does. Valid until elements open or close. Namespaces that `parser` has a record of share it.
    /// O(log(declarations)) amortized, O(open elements) after `expose`.
    const TzCString& uriFor(std::string_view prefix, const TzXmlSAXParser* parser = nullptr);
    /// The name that a text such as "xsd:int" spells; an unbound prefix has the empty URI. Names
    /// met recently share one record. Valid until the next call. Otherwise as `uriFor`.
    const TzXmlName& resolve(std::string_view text, const TzXmlSAXParser* parser = nullptr) {
        return find(text, parser).name;
    }
    /// The same with the type that such a name means, whatever its namespace.
    const Type& resolveType(std::string_view text, const TzXmlSAXParser* parser = nullptr) {
        return find(text, parser);
    }

    /// The attribute that states the type when it is the only one of an element, otherwise null:
    /// most elements need no closer look.
    const TzXmlAttribute* findOnlyType(const TzXmlAttributeSet& attributes) {
        if (attributes.size() != 1) {
            return nullptr;
        }
        const TzXmlAttribute& only = *attributes.begin();
        return only.getName().isSame(typeAttribute_) || isType(only.getName()) ? &only : nullptr;
    }

    /// Closes all elements. Names and declarations met recently stay known, long ones excepted.
    void clear() noexcept;

private:
    /// A name resolved recently, and the text it was spelt by.
    struct RecentName : Type {
        TzCString text;
        std::uint64_t scope = 0; // the state of the index it is known to hold under, 0 for none
    };
    /// The declarations of an element that entered the index, and its states before and after.
    struct RecentScope {
        std::vector<TzXmlNamespace> declared;
        std::uint64_t before = 0; // 0: none
        std::uint64_t after = 0;
    };

    /// Brings the index in line with the open elements.
    void update(const TzXmlSAXParser* parser) {
        if (indexed_ != elements_.size() || index_.depth() != indexed_) {
            reindex(parser);
        }
    }
    std::uint64_t scope() const noexcept { return scopes_.empty() ? FirstScope : scopes_.back(); }
    void reindex(const TzXmlSAXParser* parser);
    void enter(const TzXmlElementImp& element, const TzXmlSAXParser* parser);
    void leave() noexcept;
    const RecentScope& meet(const TzXmlAttributeSet& attributes, const TzXmlSAXParser* parser);
    const TzCString& walkFor(std::string_view prefix) const noexcept;
    const RecentName& find(std::string_view text, const TzXmlSAXParser* parser);
    RecentName& resolveAnew(std::string_view text);
    bool isType(const TzXmlName& name);

    static constexpr std::uint64_t FirstScope = 1;

    Elements elements_;
    bool exposed_ = false;
    TzXmlNamespaceStack index_;
    std::size_t indexed_ = 0; // so many outermost elements are in the index as they are
    // A number for each state of the index, never used for another one: what is declared by
    // the elements in it, one in the other.
    std::vector<std::uint64_t> scopes_; // under each element in the index
    std::uint64_t latestScope_ = FirstScope;
    std::array<RecentScope, 4> recentScopes_;
    std::size_t nextRecentScope_ = 0;
    std::array<RecentName, 8> recent_; // few types make up most of a message
    std::size_t nextRecent_ = 0;
    bool hasLong_ = false; // whether one of the recent ones takes much memory
    TzXmlNameMaker maker_;
    TzXmlName typeAttribute_; // the xsi:type attribute name seen last
};

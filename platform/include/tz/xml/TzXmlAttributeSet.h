// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlAttribute.h>
#include <tz/xml/TzXmlName.h>

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

/// The ordered list of an element's attributes, namespace declarations among them.
///
/// Names are unique within a list. Look-ups are O(size) below 32 entries and O(log size) from there
/// on by an index made at the first look-up, so a hostile element cannot make work quadratic.
/// Positions are plain pointers, valid until the next change; handing out one through which
/// attributes can be renamed drops the index, so such a look-up is O(size) without one. Renaming
/// through a position that is older than the last look-up goes unnoticed. Not locked: one list is
/// used by one thread at a time.
class TZ_PLATFORM_API TzXmlAttributeSet {
public:
    /// Position of an attribute that may be changed in place.
    using iterator = TzXmlAttribute*;
    /// Position of an attribute.
    using const_iterator = const TzXmlAttribute*;

    /// An empty list.
    TzXmlAttributeSet() noexcept = default;
    TzXmlAttributeSet(const TzXmlAttributeSet& other);
    TzXmlAttributeSet(TzXmlAttributeSet&& other) noexcept;
    TzXmlAttributeSet& operator=(const TzXmlAttributeSet& other);
    TzXmlAttributeSet& operator=(TzXmlAttributeSet&& other) noexcept;
    virtual ~TzXmlAttributeSet();

    /// Position of the first attribute.
    iterator begin() noexcept {
        forgetIndex();
        return first();
    }
    /// Position of the first attribute.
    const_iterator begin() const noexcept { return first(); }
    /// Position behind the last attribute.
    iterator end() noexcept { return first() + size(); }
    /// Position behind the last attribute.
    const_iterator end() const noexcept { return first() + size(); }
    /// Number of attributes.
    std::size_t size() const noexcept { return list_ != nullptr ? list_->attributes.size() : 0; }
    /// Whether there is no attribute.
    bool empty() const noexcept { return size() == 0; }

    /// Position of the attribute of that name (URI and local part), `end()` if there is none.
    iterator find(const TzXmlName& name);
    /// Position of the attribute of that name (URI and local part), `end()` if there is none.
    const_iterator find(const TzXmlName& name) const;
    /// Position of the attribute with that name and value, `end()` if there is none.
    iterator find(const TzXmlAttribute& attribute);
    /// Position of the attribute with that name and value, `end()` if there is none.
    const_iterator find(const TzXmlAttribute& attribute) const;
    /// Position of the declaration of `prefix` ("" is the default namespace), `end()` if none.
    iterator findDeclaration(std::string_view prefix);
    /// Position of the declaration of `prefix` ("" is the default namespace), `end()` if none.
    const_iterator findDeclaration(std::string_view prefix) const {
        return find(TzXmlNamespace::getXmlns(), prefix);
    }

    /// Adds at the end; a name that is there already keeps its place and takes value and prefix.
    /// An unqualified "xmlns" becomes the declaration of the default namespace.
    void add(TzXmlAttribute attribute);
    /// Adds the attribute `name` with `value`, as above.
    void add(TzXmlName name, TzCString value);
    /// Adds or replaces the declaration of a namespace.
    void addDeclaration(const TzXmlNamespace& declared);
    /// Appends without looking for the name: for callers that know it is not there yet.
    void append(TzXmlAttribute attribute);
    /// Makes room for `count` attributes.
    void reserve(std::size_t count) { made().reserve(count); }
    /// Removes one attribute, the others keep their order. O(size).
    void erase(iterator position);
    /// Removes the attribute of that name, if any.
    void erase(const TzXmlName& name);
    /// Removes all attributes; the memory is kept for the next ones.
    void clear() noexcept;

private:
    /// Lists below this size are searched entry by entry.
    static constexpr std::size_t IndexedFrom = 32;

    class Index;
    /// What a list that is not empty has: most elements have no attributes.
    struct List {
        std::vector<TzXmlAttribute> attributes;
        std::unique_ptr<Index> index;

        List() noexcept;
        explicit List(const List& other);
        List& operator=(const List&) = delete;
        ~List();
    };

    std::vector<TzXmlAttribute>& made();
    TzXmlAttribute* first() const noexcept {
        return list_ != nullptr ? list_->attributes.data() : nullptr;
    }
    const_iterator find(const TzXmlNamespace& nameSpace, std::string_view localName) const {
        return size() < IndexedFrom ? findInTurn(nameSpace, localName)
                                    : findByIndex(nameSpace, localName);
    }
    iterator find(const TzXmlNamespace& nameSpace, std::string_view localName);
    const_iterator findInTurn(const TzXmlNamespace& nameSpace,
                              std::string_view localName) const noexcept {
        const_iterator at = begin();
        for (const const_iterator last = end(); at != last; ++at) {
            const TzXmlName& name = at->getName();
            if (name.getNamespace().sameUri(nameSpace) && name.getLocalName() == localName) {
                break;
            }
        }
        return at;
    }
    const_iterator findByIndex(const TzXmlNamespace& nameSpace, std::string_view localName) const;
    void forgetIndex() noexcept {
        if (list_ != nullptr && list_->index != nullptr) {
            dropIndex();
        }
    }
    void dropIndex() noexcept;

    std::unique_ptr<List> list_;
};

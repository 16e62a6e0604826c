// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/thread/TzMutexLock.h>
#include <tz/thread/TzTMonitor.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlAttribute.h>
#include <tz/xml/TzXmlName.h>

#include <cstddef>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

/// The ordered list of an element's attributes, namespace declarations among them.
///
/// Names are unique within a list; where there is no URI, names with different prefixes are
/// different ones. Look-ups prefer the same prefix there and otherwise find the first of the name,
/// with whatever prefix. They are O(size) below 32 entries and O(log size) from there on by an
/// index made at the first of them, so a hostile element cannot make work quadratic; attributes
/// that are renamed are looked at again by the next look-up. Positions are plain pointers, valid
/// until the next addition or removal. Constant operations may run on several threads at once.
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
    iterator begin() noexcept { return first(); }
    /// Position of the first attribute.
    const_iterator begin() const noexcept { return first(); }
    /// Position after the last attribute.
    iterator end() noexcept { return first() + size(); }
    /// Position after the last attribute.
    const_iterator end() const noexcept { return first() + size(); }
    /// Number of attributes.
    std::size_t size() const noexcept { return list_ != nullptr ? list_->attributes.size() : 0; }
    /// Whether the list is empty.
    bool empty() const noexcept { return size() == 0; }
    /// Whether it holds neither attributes nor memory for some, so that its end has nothing to do.
    bool isBare() const noexcept { return list_ == nullptr; }

    /// Position of the attribute of that name (URI and local part), `end()` if absent.
    iterator find(const TzXmlName& name) { return find(name.getNamespace(), name.getLocalName()); }
    /// Position of the attribute of that name (URI and local part), `end()` if absent.
    const_iterator find(const TzXmlName& name) const {
        return find(name.getNamespace(), name.getLocalName());
    }
    /// Position of the attribute with that name and value, `end()` if absent.
    iterator find(const TzXmlAttribute& attribute);
    /// Position of the attribute with that name and value, `end()` if absent.
    const_iterator find(const TzXmlAttribute& attribute) const;
    /// Position of the declaration of `prefix` ("" is the default namespace), `end()` if absent.
    iterator findDeclaration(std::string_view prefix) {
        return find(TzXmlNamespace::getXmlns(), prefix);
    }
    /// Position of the declaration of `prefix` ("" is the default namespace), `end()` if absent.
    const_iterator findDeclaration(std::string_view prefix) const {
        return find(TzXmlNamespace::getXmlns(), prefix);
    }

    /// Adds at the end; a name that is there already keeps its place and takes value and prefix.
    /// An unqualified "xmlns" becomes the declaration of the default namespace. What throws changes
    /// nothing.
    void add(TzXmlAttribute attribute);
    /// Adds the attribute `name` with `value`; a name that is there already takes the value.
    void add(TzXmlName name, TzCString value);
    /// Adds or replaces the declaration of a namespace.
    void addDeclaration(const TzXmlNamespace& declared);
    /// Appends without looking for the name: for callers that know it is not there yet.
    void append(TzXmlAttribute attribute);
    /// Makes room for `count` attributes.
    void reserve(std::size_t count);
    /// Removes one attribute, the others keep their order. O(size).
    void erase(iterator position);
    /// Removes the attribute of that name, if any.
    void erase(const TzXmlName& name);
    /// Removes all attributes; the memory is kept for the next ones.
    void clear() noexcept;

private:
    /// Lists below this size are searched entry by entry.
    static constexpr std::size_t IndexedFrom = 32;

    /// The memory of a list that is not empty: most elements have no attributes.
    struct List : private TzTMonitor<TzMutexLock> {
        std::vector<TzXmlAttribute> attributes;
        std::unique_ptr<TzXmlAttributeIndex> index;

        List() noexcept;
        explicit List(const List& other);
        List& operator=(const List&) = delete;
        ~List();
        std::size_t find(const TzXmlNamespace& nameSpace, std::string_view localName);
    };

    List& made();
    TzXmlAttribute* first() const noexcept {
        return list_ != nullptr ? list_->attributes.data() : nullptr;
    }
    const_iterator find(const TzXmlNamespace& nameSpace, std::string_view localName) const {
        return locate(nameSpace, localName);
    }
    iterator find(const TzXmlNamespace& nameSpace, std::string_view localName) {
        return locate(nameSpace, localName);
    }
    TzXmlAttribute* locate(const TzXmlNamespace& nameSpace, std::string_view localName) const {
        return size() < IndexedFrom ? locateInTurn(nameSpace, localName)
                                    : first() + list_->find(nameSpace, localName);
    }
    TzXmlAttribute* locateInTurn(const TzXmlNamespace& nameSpace,
                                 std::string_view localName) const noexcept {
        TzXmlAttribute* const last = first() + size();
        TzXmlAttribute* found = last;
        for (TzXmlAttribute* at = first(); at != last; ++at) {
            const TzXmlName& name = std::as_const(*at).getName();
            if (name.getNamespace().sameUri(nameSpace) && name.getLocalName() == localName) {
                if (isExact(name.getNamespace(), nameSpace)) {
                    return at;
                }
                found = found == last ? at : found;
            }
        }
        return found;
    }
    /// Whether two namespaces of one URI are the same, which only unbound prefixes can prevent.
    static bool isExact(const TzXmlNamespace& one, const TzXmlNamespace& other) noexcept {
        return !one.getUri().empty() || one.getPrefix() == other.getPrefix();
    }

    std::unique_ptr<List> list_;
};

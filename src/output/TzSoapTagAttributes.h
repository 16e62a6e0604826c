// SPDX-License-Identifier: MIT
#pragma once

#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlName.h>

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

/// The attributes that the start tag being prepared will carry, in order, each expanded name once.
///
/// Refers to names and values where they are: they must stay until `clear`. What has to be made for
/// one tag is kept by `keep`. Clearing keeps the memory for the next tag.
class TzSoapTagAttributes {
public:
    /// One attribute: the name it stands for, the prefix it is spelt with, its value.
    struct Attribute {
        const TzXmlName* name;
        std::string_view prefix;
        std::string_view value;
    };

    TzSoapTagAttributes() noexcept = default;
    /// An empty list: the contents of `other` belong to the tag that it prepares.
    TzSoapTagAttributes(const TzSoapTagAttributes&) noexcept {}
    TzSoapTagAttributes& operator=(const TzSoapTagAttributes&) = delete;
    ~TzSoapTagAttributes() = default;

    /// Adds an attribute that the element carries under this very name. O(attributes made so far).
    void addOwn(const Attribute& attribute);
    /// Adds an attribute made or renamed for this tag; one of that name takes it in place. O(size).
    void addMade(const Attribute& attribute);
    /// The attribute of that name, null if absent; valid until the next change. O(size).
    const Attribute* find(const TzXmlName& name) const;
    /// Whether an attribute of that name is there. O(size).
    bool contains(const TzXmlName& name) const { return find(name) != nullptr; }
    /// Gives the attribute of that name another value; false when it is not there. O(size).
    bool replaceValue(const TzXmlName& name, std::string_view value);
    /// Puts `to` in the place of the attribute `from`, or of one that has its name already. To be
    /// called when all is added. O(size).
    void rename(const TzXmlName& from, const Attribute& to);
    /// An empty text that lives until `clear`.
    TzCString& newText();
    /// Keeps a text until `clear`.
    std::string_view keep(TzCString text);
    /// Forgets attributes and texts.
    void clear() noexcept {
        attributes_.clear();
        made_.clear();
        textsUsed_ = 0;
    }

    std::vector<Attribute>::const_iterator begin() const noexcept { return attributes_.begin(); }
    std::vector<Attribute>::const_iterator end() const noexcept { return attributes_.end(); }

private:
    std::vector<Attribute>::iterator position(const TzXmlName& name);

    std::vector<Attribute> attributes_;
    std::vector<std::size_t>
        made_; // positions; an element's own names differ from each other anyway
    std::vector<std::unique_ptr<TzCString>> texts_;
    std::size_t textsUsed_ = 0;
};

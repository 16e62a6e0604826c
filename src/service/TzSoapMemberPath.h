// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapType.h>
#include <tz/tools/TzCString.h>

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

/// The way from a header, a body or a value down to a member, as a program asks for it.
///
/// Refers to the texts that it was made from. `Owner` is `TzSoapHeader`, `TzSoapBody` or
/// `TzSoapType`.
class TzSoapMemberPath {
public:
    /// The path that `text` states; `TzXmlBadArgError` when it states none.
    explicit TzSoapMemberPath(std::string_view text);
    /// One step, to the first member named so, its namespace compared too.
    TzSoapMemberPath(std::string_view localName, std::string_view uri);

    /// The value at the end of the path from `owner`, empty when it is missing.
    template <typename Owner> std::optional<TzSoapType> find(const Owner& owner) const;
    /// The value at the end of the path from `owner`; `TzSoapMissingError` when it is missing.
    template <typename Owner> TzSoapType get(const Owner& owner) const;

private:
    /// From a value to one of its members.
    struct Step {
        std::string_view text; // as the program wrote it
        std::string_view localName;
        std::optional<std::string_view> uri; // any when empty
        unsigned int index = 1;              // among the members of that name

        bool matches(const TzSoapType& member) const;
    };

    static Step stepOf(std::string_view text);
    template <typename Owner>
    static std::optional<TzSoapType> member(const Owner& owner, const Step& step);
    template <typename Owner>
    [[noreturn]] void refuse(const Owner& owner, std::size_t missing, TzCString path) const;

    std::vector<Step> steps_;
};

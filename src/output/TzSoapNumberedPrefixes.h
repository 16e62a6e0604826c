// SPDX-License-Identifier: MIT
#pragma once

#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlNamespace.h>

#include "output/TzSoapDeclarations.h"

#include <cstddef>
#include <map>
#include <set>
#include <string_view>
#include <vector>

/// Finds prefixes made from a base and a number that can be declared, however many are taken.
///
/// Follows a stack of declarations: `follow` takes in what came and went since the last time.
/// Numbers are decimal texts without leading zeros, of any length.
class TzSoapNumberedPrefixes {
public:
    /// Takes over `declared`, the declarations in force from the outermost to the innermost, of
    /// which the first `unchanged` are those of the last time. After an error it starts anew.
    /// O(declarations that came or went, times the logarithm of all).
    void follow(const TzSoapDeclarations& declared, std::size_t unchanged);
    /// The lowest number, `first` or greater, that makes `base` a prefix that is unbound or bound
    /// to `uri`. O(log declarations).
    TzCString lowest(std::string_view base, std::string_view first, std::string_view uri) const;

    /// `number` plus one; "" is 0, and leading zeros are left out.
    static TzCString increment(std::string_view number);

private:
    /// Orders numbers by value.
    struct ByValue {
        bool operator()(std::string_view left, std::string_view right) const noexcept {
            return left.size() != right.size() ? left.size() < right.size() : left < right;
        }
    };
    struct ByUri {
        using is_transparent = void;
        bool operator()(const TzXmlNamespace& left, const TzXmlNamespace& right) const noexcept {
            return left.getUri() < right.getUri();
        }
        bool operator()(const TzXmlNamespace& left, std::string_view right) const noexcept {
            return left.getUri() < right;
        }
        bool operator()(std::string_view left, const TzXmlNamespace& right) const noexcept {
            return left < right.getUri();
        }
    };
    using Numbers = std::set<TzCString, ByValue>;

    /// The numbers that follow one base.
    struct Base {
        void bind(const TzCString& number, const TzXmlNamespace& declared);
        void unbind(const TzCString& number, const TzXmlNamespace& declared);
        void addToRuns(const TzCString& number);
        void removeFromRuns(const TzCString& number);

        std::map<TzCString, std::vector<std::size_t>> positions; // in seen_, innermost last
        std::map<TzCString, TzCString, ByValue> runs; // first to last of those that are bound
        std::map<TzXmlNamespace, Numbers, ByUri> byUri;
    };

    template <typename Action> static void forEachNumber(const TzCString& prefix, Action action);
    void push(const TzXmlNamespace& declared);
    void pop();

    std::map<TzCString, Base, std::less<>> bases_;
    std::vector<TzXmlNamespace> seen_;
};

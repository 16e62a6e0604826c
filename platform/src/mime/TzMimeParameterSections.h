// SPDX-License-Identifier: MIT
#pragma once

#include "mime/TzMimeParameter.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

/// Puts together the parameters whose values are spread over sections or percent-encoded (RFC
/// 2231).
class TzMimeParameterSections {
public:
    /// Takes the parameter `name` as it stands in a header, such as "boundary*0*".
    void add(std::string_view name, TzCString value);
    /// The parameters in the order of their first sections; of several with one name the first. A
    /// section that is missing ends its parameter. O(n log n).
    std::vector<TzMimeParameter> join() &&;

private:
    struct Section {
        TzCString key; // the name in small letters
        TzMimeParameter parameter;
        std::uint32_t number;
        bool encoded;
        std::size_t arrival;
    };

    static bool precedes(const Section& left, const Section& right) noexcept;
    /// What the sections of one name, in their order, amount to.
    static std::optional<Section> joinGroup(std::span<Section> group);
    static void append(TzCString& value, const Section& section);

    std::vector<Section> sections_;
};

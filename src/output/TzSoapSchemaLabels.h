// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapContentBase.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlName.h>

#include <array>
#include <cstddef>
#include <string_view>

/// The names under which values show their schema types, such as int in the XML Schema namespace
/// with the prefix "xsd".
class TzSoapSchemaLabels {
public:
    /// All labels. Made on first use, kept for the life of the process.
    static const TzSoapSchemaLabels& instance();

    /// The label of `type`; the empty name for an unknown type.
    const TzXmlName& operator[](TzSoapContentBase::SchemaType type) const noexcept {
        const auto position = static_cast<std::size_t>(type);
        return labels_[position < labels_.size() ? position : 0];
    }

    /// What follows the name on the start tag of a value that shows `type` and says nothing else,
    /// up to the end of the tag.
    std::string_view restOfTag(TzSoapContentBase::SchemaType type) const noexcept {
        const auto position = static_cast<std::size_t>(type);
        return rests_[position < rests_.size() ? position : 0];
    }

private:
    static constexpr std::size_t Types = TzSoapContentBase::xsdPositiveInteger + 1;

    TzSoapSchemaLabels();

    std::array<TzXmlName, Types> labels_;
    std::array<TzCString, Types> rests_;
};

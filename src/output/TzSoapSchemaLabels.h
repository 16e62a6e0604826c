// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapContentBase.h>
#include <tz/xml/TzXmlName.h>

#include <array>
#include <cstddef>

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

private:
    TzSoapSchemaLabels();

    std::array<TzXmlName, TzSoapContentBase::xsdPositiveInteger + 1> labels_;
};

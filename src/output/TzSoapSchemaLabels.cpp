// SPDX-License-Identifier: MIT
#include "output/TzSoapSchemaLabels.h"

#include <tz/xml/TzXmlNamespace.h>

#include <array>
#include <cstddef>

namespace {

using Labels = std::array<TzSoapSchemaLabel, TzSoapContentBase::xsdPositiveInteger + 1>;

Labels makeLabels() {
    Labels labels;
    for (std::size_t i = 0; i < labels.size(); ++i) {
        const auto type = static_cast<TzSoapContentBase::SchemaType>(i);
        const std::string_view name = TzSoapContentBase::schemaTypeName(type);
        if (!name.empty()) {
            labels[i].name = TzXmlName(name, TzXmlNamespace::getXsd());
            labels[i].text = TzSoapContentBase::schemaTypeLabel(type);
        }
    }
    return labels;
}

} // namespace

const TzSoapSchemaLabel& tzSoapSchemaLabel(TzSoapContentBase::SchemaType type) {
    static const Labels labels = makeLabels();
    const auto position = static_cast<std::size_t>(type);
    return labels[position < labels.size() ? position : 0];
}

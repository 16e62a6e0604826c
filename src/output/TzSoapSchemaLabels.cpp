// SPDX-License-Identifier: MIT
#include "output/TzSoapSchemaLabels.h"
#include "model/TzSoapLasting.h"

#include <tz/xml/TzXmlNamespace.h>

#include <array>
#include <cstddef>

namespace {

using Labels = std::array<TzXmlName, TzSoapContentBase::xsdPositiveInteger + 1>;

Labels makeLabels() {
    Labels labels;
    for (std::size_t i = 0; i < labels.size(); ++i) {
        const std::string_view name =
            TzSoapContentBase::schemaTypeName(static_cast<TzSoapContentBase::SchemaType>(i));
        if (!name.empty()) {
            labels[i] = TzXmlName(name, TzXmlNamespace::getXsd());
        }
    }
    return labels;
}

} // namespace

const TzXmlName& tzSoapSchemaLabel(TzSoapContentBase::SchemaType type) {
    static TzSoapLasting<const Labels> made(makeLabels);
    const Labels& labels = *made;
    const auto position = static_cast<std::size_t>(type);
    return labels[position < labels.size() ? position : 0];
}

// SPDX-License-Identifier: MIT
#include "output/TzSoapSchemaLabels.h"

#include <tz/xml/TzXmlNamespace.h>

#include "model/TzSoapLasting.h"

TzSoapSchemaLabels::TzSoapSchemaLabels() {
    for (std::size_t i = 0; i < labels_.size(); ++i) {
        const std::string_view name =
            TzSoapContentBase::schemaTypeName(static_cast<TzSoapContentBase::SchemaType>(i));
        if (!name.empty()) {
            labels_[i] = TzXmlName(name, TzXmlNamespace::getXsd());
        }
    }
}

const TzSoapSchemaLabels& TzSoapSchemaLabels::instance() {
    static TzSoapLasting<const TzSoapSchemaLabels> labels([] { return TzSoapSchemaLabels(); });
    return *labels;
}

// SPDX-License-Identifier: MIT
#include "output/TzSoapSchemaLabels.h"

#include <tz/xml/TzXmlNamespace.h>

#include "model/TzSoapLasting.h"
#include "output/TzSoapStartTag.h"

TzSoapSchemaLabels::TzSoapSchemaLabels() {
    for (std::size_t i = 0; i < labels_.size(); ++i) {
        const std::string_view name =
            TzSoapContentBase::schemaTypeName(static_cast<TzSoapContentBase::SchemaType>(i));
        if (!name.empty()) {
            labels_[i] = TzXmlName(name, TzXmlNamespace::getXsd());
            rests_[i] = TzSoapStartTag::Brief::TypeOpen;
            labels_[i].appendQualifiedName(rests_[i]);
        }
        rests_[i] += name.empty() ? TzXmlWriter::EndTag : TzSoapStartTag::Brief::TypeClose;
    }
}

[[gnu::hot]] const TzSoapSchemaLabels& TzSoapSchemaLabels::instance() {
    static TzSoapLasting<const TzSoapSchemaLabels> labels([] { return TzSoapSchemaLabels(); });
    return *labels;
}

// SPDX-License-Identifier: MIT
#include <soap/TzSoapOperation.h>

#include <algorithm>

namespace {

/// Whether values of that kind can be operations.
bool isOperation(TzSoapContentBase::SoapTypeId kind) noexcept {
    return kind != TzSoapContentBase::Reference && kind != TzSoapContentBase::Array;
}

} // namespace

TzSoapType TzSoapOperation::in(const TzSoapMessage& request) {
    const TzSoapBody& body = request.getSoapBody();
    // Entries with a false root attribute are values that others refer to.
    const auto operation = std::find_if(body.begin(), body.end(), [](const TzSoapType& entry) {
        return entry.getRoot() || !entry.isRootAttributeSet();
    });
    if (body.hasFaultElement() || operation == body.end()) {
        throw TzSoapFaultError(TzSoapVersion::Client, "The request holds no operation");
    }
    if (!isOperation(operation->getSoapTypeId())) {
        throw TzSoapFaultError::procedureNotPresent(operation->getName());
    }
    return *operation;
}

TzSoapMessage TzSoapOperation::answerWith(const TzSoapMessage& request, const TzSoapType& value) {
    TzSoapMessage answer(request.getVersion());
    answer.setStyle(request.getStyle());
    answer.setProlog(TzXmlProlog());
    if (answer.getStyle() == TzSoapStyle::Encoded) {
        answer.declareTypeNamespaces();
    }
    answer.getSoapBody().appendEntry(value);
    return answer;
}

TzXmlName TzSoapOperation::answerName(const TzSoapMessage& request, const TzXmlName& stated) {
    if (!stated.isEmpty()) {
        return stated;
    }
    const TzXmlName operation = in(request).getName();
    return TzXmlName(operation.getLocalName() + "Response", operation.getNamespace());
}

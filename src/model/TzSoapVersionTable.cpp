// SPDX-License-Identifier: MIT
#include "model/TzSoapVersionTable.h"
#include "model/TzSoapLasting.h"

#include <soap/TzSoapCatalog.h>
#include <tz/tools/TzMessage.h>
#include <tz/xml/TzThrow.h>

#include <algorithm>

namespace {

template <std::size_t Size>
void makeNames(std::array<TzXmlName, Size>& names,
               const std::array<TzSoapVersionTable::NameText, Size>& texts,
               const TzSoapVersionTable& table) {
    for (std::size_t i = 0; i < Size; ++i) {
        names[i] = TzXmlName(texts[i].localName, table.nameSpace(texts[i].home));
    }
}

/// Entry `number`, or `absent` if the number is out of range or its entry is empty. A negative
/// number becomes a large one, which is out of range.
template <std::size_t Size, typename Number>
const TzXmlName& entryAt(const std::array<TzXmlName, Size>& names, Number number,
                         const TzXmlName& absent) {
    const auto position = static_cast<std::size_t>(number);
    return position < Size && !names[position].isEmpty() ? names[position] : absent;
}

template <std::size_t Size>
int findLocalName(const std::array<TzXmlName, Size>& names, std::string_view localName) noexcept {
    if (localName.empty()) {
        return -1;
    }
    const auto found = std::find_if(names.begin(), names.end(), [localName](const auto& name) {
        return name.getLocalName() == localName;
    });
    return found == names.end() ? -1 : static_cast<int>(found - names.begin());
}

} // namespace

TzSoapVersionTable::TzSoapVersionTable(const Texts& texts)
    : errorName_(texts.errorName), habits_(texts.habits) {
    for (std::size_t home = 0; home < Homes; ++home) {
        namespaces_[home] =
            TzXmlNamespace(texts.namespaces[home].prefix, texts.namespaces[home].uri);
    }
    makeNames(attributes_, texts.attributes, *this);
    makeNames(elements_, texts.elements, *this);
    makeNames(faultCodes_, texts.faultCodes, *this);
    makeNames(subFaultCodes_, texts.subFaultCodes, *this);
    makeNames(terms_, texts.terms, *this);
    if (!texts.noStyleSuffix.empty()) {
        noStyle_ = nameSpace(Envelope).getUri();
        noStyle_ += texts.noStyleSuffix;
    }
    for (std::size_t role = 0; role < roles_.size(); ++role) {
        if (!texts.roleSuffixes[role].empty()) {
            roles_[role] = nameSpace(Envelope).getUri();
            roles_[role] += texts.roleSuffixes[role];
        }
    }
}

[[gnu::hot]] const TzSoapVersionTable& TzSoapVersionTable::soap11() {
    using Tags = TzSoapVersion;
    static TzSoapLasting<const TzSoapVersionTable> table([] {
        return TzSoapVersionTable(Texts{
            .errorName = "V1_1",
            .namespaces = {{
                {},
                {"SOAP-ENV", "http://schemas.xmlsoap.org/soap/envelope/"},
                {"SOAP-ENC", "http://schemas.xmlsoap.org/soap/encoding/"},
            }},
            .attributes = {{
                {Tags::EncodingStyleTag, Envelope},
                {Tags::MustUnderstandTag, Envelope},
                {"actor", Envelope},
                {Tags::RootTag, Encoding},
                {"arrayType", Encoding},
                {Tags::PositionTag, Encoding},
                {Tags::OffsetTag, Encoding},
                {},
                {},
                {"href", Unqualified},
                {"href", Unqualified},
            }},
            .elements = {{
                {Tags::EnvelopeTag, Envelope},
                {Tags::BodyTag, Envelope},
                {Tags::HeaderTag, Envelope},
                {Tags::FaultTag, Envelope},
                {"faultcode", Unqualified},
                {"faultstring", Unqualified},
                {"faultactor", Unqualified},
                {},
                {"detail", Unqualified},
            }},
            .faultCodes = {{
                {Tags::VersionMismatchTag, Envelope},
                {Tags::MustUnderstandFaultTag, Envelope},
                {Tags::ServerTag, Envelope},
                {Tags::ClientTag, Envelope},
            }},
            .subFaultCodes = {},
            // Deliberate: not the published role; programs compare roles with this URI.
            .roleSuffixes = {{"actor/next"}},
            .terms = {{{"id", Unqualified}}},
            .noStyleSuffix = {},
            .habits = {.booleansAreWords = false, .indicesInBrackets = true},
        });
    });
    return *table;
}

// NOLINTNEXTLINE(readability-function-size): a table, a line for each name
TzSoapVersionTable::Texts TzSoapVersionTable::soap12Texts() {
    using Tags = TzSoapVersion;
    return {
        .errorName = "Version1_2",
        .namespaces = {{
            {},
            {"env", "http://www.w3.org/2002/06/soap-envelope"},
            {"enc", "http://www.w3.org/2002/06/soap-encoding"},
            {"f", "http://www.w3.org/2002/06/soap-faults"},
            {"rpc", "http://www.w3.org/2002/06/soap-rpc"},
            {"upgrade", "http://www.w3.org/2002/06/soap-upgrade"},
        }},
        .attributes = {{
            {Tags::EncodingStyleTag, Envelope},
            {Tags::MustUnderstandTag, Envelope},
            {"role", Envelope},
            {Tags::RootTag, Encoding},
            {},
            {Tags::PositionTag, Encoding},
            {Tags::OffsetTag, Encoding},
            {"itemType", Encoding},
            {"arraySize", Encoding},
            {"ref", Unqualified},
            {"href", Unqualified},
        }},
        .elements = {{
            {Tags::EnvelopeTag, Envelope},
            {Tags::BodyTag, Envelope},
            {Tags::HeaderTag, Envelope},
            {Tags::FaultTag, Envelope},
            {"Code", Envelope},
            {"Reason", Envelope},
            {"Node", Envelope},
            {"Role", Envelope},
            {"Detail", Envelope},
            {"Subcode", Envelope},
            {"Value", Envelope},
            {Tags::MisunderstoodTag, Faults},
        }},
        .faultCodes = {{
            {Tags::VersionMismatchTag, Envelope},
            {Tags::MustUnderstandFaultTag, Envelope},
            {Tags::ReceiverTag, Envelope},
            {Tags::SenderTag, Envelope},
            {Tags::DataEncodingUnknownTag, Envelope},
            {Tags::DTDNotSupportedTag, Envelope},
        }},
        .subFaultCodes = {{
            {Tags::MissingIDTag, Encoding},
            {Tags::UnTypedValueTag, Encoding},
            {Tags::ProcedureNotPresentTag, Rpc},
            {Tags::BadArgumentsTag, Rpc},
        }},
        .roleSuffixes = {{"/role/next", "/role/none", "/role/ultimateReceiver"}},
        .terms = {{{"id", Unqualified}}},
        .noStyleSuffix = {},
        .habits = {},
    };
}

TzSoapVersionTable::Texts TzSoapVersionTable::soap12RecTexts() {
    Texts texts = soap12Texts();
    texts.errorName = "V1_2Rec";
    texts.namespaces = {{
        {},
        {"env", "http://www.w3.org/2003/05/soap-envelope"},
        {"enc", "http://www.w3.org/2003/05/soap-encoding"},
        {},
        {"rpc", "http://www.w3.org/2003/05/soap-rpc"},
    }};
    for (const auto dropped :
         {TzSoapVersion::Root, TzSoapVersion::Position, TzSoapVersion::Offset}) {
        texts.attributes[static_cast<std::size_t>(dropped)] = {};
    }
    texts.attributes[static_cast<std::size_t>(TzSoapVersion::Ref)].home = Encoding;
    texts.elements[static_cast<std::size_t>(TzSoapVersion::Misunderstood)] = {"NotUnderstood",
                                                                              Envelope};
    texts.faultCodes[static_cast<std::size_t>(TzSoapVersion::DTDNotSupported)] = {};
    texts.subFaultCodes[static_cast<std::size_t>(TzSoapVersion::UnTypedValue)].localName =
        "UntypedValue";
    texts.terms = {{
        {"id", Encoding},
        {"nodeType", Encoding},
        {"relay", Envelope},
        {"Text", Envelope},
        {"Upgrade", Envelope},
        {"SupportedEnvelope", Envelope},
        {"DuplicateID", Encoding},
        {"result", Rpc},
    }};
    texts.noStyleSuffix = "/encoding/none";
    texts.habits = {.blocksStateStyle = false,
                    .targetsInline = true,
                    .itemTypeIsOptional = true,
                    .refersByFragment = false,
                    .refusesForeignCodes = true,
                    .readsFaultsOf = TzSoapVersion::V1_1,
                    .senderStatus = 400,
                    .packageType = "application/soap+xml"};
    return texts;
}

[[gnu::hot]] const TzSoapVersionTable& TzSoapVersionTable::soap12() {
    static TzSoapLasting<const TzSoapVersionTable> table(
        [] { return TzSoapVersionTable(soap12Texts()); });
    return *table;
}

const TzSoapVersionTable& TzSoapVersionTable::soap12Rec() {
    static TzSoapLasting<const TzSoapVersionTable> table(
        [] { return TzSoapVersionTable(soap12RecTexts()); });
    return *table;
}

[[gnu::hot]] const TzSoapVersionTable* TzSoapVersionTable::find(TzSoapVersion::Version version) {
    switch (version) {
    case TzSoapVersion::V1_1:
        return &soap11();
    case TzSoapVersion::V1_2:
        return &soap12();
    case TzSoapVersion::V1_2Rec:
        return &soap12Rec();
    }
    return nullptr;
}

[[gnu::hot]] const TzSoapVersionTable& TzSoapVersionTable::of(TzSoapVersion::Version version) {
    const TzSoapVersionTable* const table = find(version);
    if (table == nullptr) {
        TzThrow(TzXmlError(TzMessage(tzsoap_UNKNOWN_VERSION())));
    }
    return *table;
}

bool TzSoapVersionTable::lacksFaultCode(const TzXmlName& name) const {
    TzSoapVersion::Version version{};
    if (!TzSoapVersion::isKnownVersion(name.getNamespace(), version)) {
        return false;
    }
    for (const TzSoapVersion::Version each : Known) {
        const int number = of(each).findFaultCode(name.getLocalName());
        if (number >= 0) {
            return faultCodes_[static_cast<std::size_t>(number)].isEmpty();
        }
    }
    return false;
}

[[gnu::hot]] const TzXmlName&
TzSoapVersionTable::attribute(TzSoapVersion::SoapAttribute attribute) const {
    return entryAt(attributes_, attribute, TzSoapVersion::DummyXmlName);
}

const TzXmlName& TzSoapVersionTable::element(TzSoapVersion::SoapElement element) const {
    return entryAt(elements_, element, TzSoapVersion::DummyXmlName);
}

const TzXmlName& TzSoapVersionTable::validCode(const TzXmlName& name) const {
    if (name.isEmpty()) {
        refuseFaultCode(errorName_);
    }
    return name;
}

const TzXmlName& TzSoapVersionTable::faultCode(TzSoapVersion::SoapFaultCode code) const {
    return validCode(entryAt(faultCodes_, code, TzSoapVersion::DummyXmlName));
}

const TzXmlName& TzSoapVersionTable::subFaultCode(TzSoapVersion::SoapSubFaultCode code) const {
    return validCode(entryAt(subFaultCodes_, code, TzSoapVersion::DummyXmlName));
}

const TzCString& TzSoapVersionTable::role(TzSoapVersion::SoapRole role) const {
    const auto position = static_cast<std::size_t>(role);
    return position < roles_.size() ? roles_[position] : noRole_;
}

int TzSoapVersionTable::findAttribute(std::string_view localName) const noexcept {
    return findLocalName(attributes_, localName);
}

int TzSoapVersionTable::findFaultCode(std::string_view localName) const noexcept {
    return findLocalName(faultCodes_, localName);
}

bool TzSoapVersionTable::matchUris(std::string_view left, std::string_view right) noexcept {
    const std::size_t longer = std::max(left.size(), right.size());
    // Equal texts are also equal without their last character: one comparison serves both cases.
    return longer == 0 || left.substr(0, longer - 1) == right.substr(0, longer - 1);
}

bool TzSoapVersionTable::findVersion(std::string_view uri, Home home,
                                     TzSoapVersion::Version& version) {
    if (matchUris(uri, soap12().nameSpace(home).getUri())) {
        version = TzSoapVersion::V1_2;
        return true;
    }
    if (matchUris(uri, soap11().nameSpace(home).getUri())) {
        version = TzSoapVersion::V1_1;
        return true;
    }
    return false;
}

void TzSoapVersionTable::refuseFaultCode(const char* versions) {
    TzThrow(TzXmlError(TzMessage(tzsoap_INVALID_FAULT_CODE(), versions)));
}

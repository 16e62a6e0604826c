// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapCast.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapType.h>
#include <soap/TzSoapVersion.h>

#include <gtest/gtest.h>

#include <iterator>
#include <string>

/// How messages of one version look on the wire. Prefixes: "e" for the envelope, "c" for the
/// encoding, "xsi" and "xsd".
class WireForm {
public:
    explicit WireForm(TzSoapVersion::Version version)
        : names_(&TzSoapVersion::getSoapVersion(version)) {}

    TzSoapVersion::Version version() const { return names_->getVersion(); }
    const TzSoapVersion& names() const { return *names_; }
    std::string envelopeUri() const { return names_->getSoapEnv().getUri(); }
    /// The URI of the encoding style.
    std::string style() const { return names_->getSoapEnc().getUri(); }

    /// An Envelope with these children and further attributes.
    std::string envelope(const std::string& children, const std::string& attributes = {}) const {
        return "<e:Envelope xmlns:e=\"" + envelopeUri() + "\" xmlns:c=\"" + style() +
               "\" xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\""
               " xmlns:xsd=\"http://www.w3.org/2001/XMLSchema\"" +
               (attributes.empty() ? "" : " " + attributes) + ">" + children + "</e:Envelope>";
    }
    /// A message with these body entries.
    std::string body(const std::string& entries, const std::string& attributes = {}) const {
        return envelope("<e:Body>" + entries + "</e:Body>", attributes);
    }
    /// A message with these header entries and body entries.
    std::string message(const std::string& header, const std::string& body) const {
        return envelope("<e:Header>" + header + "</e:Header><e:Body>" + body + "</e:Body>");
    }

    /// The attribute that refers to the value with this id.
    std::string ref(const std::string& id) const {
        const bool isEncoded = version() == TzSoapVersion::V1_2Rec;
        return (isEncoded                          ? "c:ref=\""
                : version() == TzSoapVersion::V1_1 ? "href=\"#"
                                                   : "ref=\"#") +
               id + "\"";
    }
    /// The attribute that names a value for references.
    std::string id(const std::string& id) const {
        return (version() == TzSoapVersion::V1_2Rec ? "c:id=\"" : "id=\"") + id + "\"";
    }
    /// The attributes of an array with one axis of `size`; "" leaves it open.
    std::string array(const std::string& type, const std::string& size) const {
        return version() == TzSoapVersion::V1_1 ? "c:arrayType=\"" + type + "[" + size + "]\""
                                                : "c:itemType=\"" + type + "\" c:arraySize=\"" +
                                                      (size.empty() ? "*" : size) + "\"";
    }
    /// The attribute with the position of a member.
    std::string position(const std::string& index) const {
        return version() == TzSoapVersion::V1_1 ? "c:position=\"[" + index + "]\""
                                                : "c:position=\"" + index + "\"";
    }
    /// The attribute with the position of the first member.
    std::string offset(const std::string& index) const {
        return version() == TzSoapVersion::V1_1 ? "c:offset=\"[" + index + "]\""
                                                : "c:offset=\"" + index + "\"";
    }

private:
    const TzSoapVersion* names_;
};

/// Tests that run for both versions.
class ReadingBothVersions : public testing::TestWithParam<TzSoapVersion::Version> {
protected:
    const WireForm wire{GetParam()};
};

/// Instantiates tests for both versions.
#define TZSOAP_BOTH_VERSIONS(Suite)                                                                \
    INSTANTIATE_TEST_SUITE_P(                                                                      \
        Version, Suite, testing::Values(TzSoapVersion::V1_1, TzSoapVersion::V1_2),                 \
        [](const auto& version) { return "V1_" + std::to_string(version.param); })

inline TzSoapMessage readMessage(const std::string& text) {
    TzSoapMessage message;
    message.extract(text);
    return message;
}

inline TzSoapType bodyEntry(const TzSoapMessage& message, unsigned int index = 0) {
    const TzSoapBody& body = message.getSoapBody();
    if (index >= body.entryCount()) {
        ADD_FAILURE() << "no body entry " << index;
        return {};
    }
    return *std::next(body.entriesBegin(), index);
}

inline TzSoapType headerEntry(const TzSoapMessage& message, unsigned int index = 0) {
    const TzSoapHeader& header = message.getSoapHeader();
    if (index >= header.entryCount()) {
        ADD_FAILURE() << "no header entry " << index;
        return {};
    }
    return *std::next(header.entriesBegin(), index);
}

/// `value` as a handle of its kind; a test failure and a handle to something empty when it is not.
template <typename Handle, typename... Substitute>
Handle as(const TzSoapType& value, const Substitute&... substitute) {
    const auto handle = tzSoapCast<Handle>(value);
    if (!handle) {
        ADD_FAILURE() << value.getName().getLocalName() << " is of kind "
                      << value.getSoapTypeIdAsString();
        return Handle(substitute...);
    }
    return *handle;
}

/// Whether two handles refer to one value: different values have different attribute lists.
inline bool sameValue(const TzSoapType& left, const TzSoapType& right) {
    return &left.getName() == &right.getName();
}

/// `part` repeated `count` times.
inline std::string repeated(const std::string& part, std::size_t count) {
    std::string text;
    text.reserve(part.size() * count);
    for (std::size_t i = 0; i < count; ++i) {
        text += part;
    }
    return text;
}

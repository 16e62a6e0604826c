// SPDX-License-Identifier: MIT
//
// Reads every message in samples/ and compares the model with what the .json beside it says is in
// it.
#include "support/Samples.h"

#include <soap/TzSoapAttributeSet.h>
#include <soap/TzSoapCast.h>
#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapSparseArrayType.h>
#include <tz/mime/TzMimePart.h>
#include <tz/xml/TzXmlParseError.h>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace {

using Json = nlohmann::json;

std::string bracedName(const TzXmlName& name) {
    return name.getUri().empty() ? name.getLocalName()
                                 : "{" + name.getUri() + "}" + name.getLocalName();
}

/// The children of a value in document order, whatever kind of value it is.
std::vector<TzSoapType> childrenOf(const TzSoapType& value) {
    std::vector<TzSoapType> children;
    if (const auto composite = tzSoapCast<TzSoapCompositeType>(value)) {
        children.assign(composite->childrenBegin(), composite->childrenEnd());
    } else if (const auto sparse = tzSoapCast<TzSoapSparseArrayType>(value)) {
        const TzSoapSparseArrayType& items = *sparse;
        for (auto item = items.begin(); item != items.end(); ++item) {
            children.push_back(item->second);
        }
    } else if (const auto compact = tzSoapCast<TzSoapCompactArrayType>(value)) {
        const TzSoapCompactArrayType& items = *compact;
        for (const auto* item = items.begin(); item != items.end(); ++item) {
            // Positions that no member was sent for hold placeholders.
            if (item->getSoapTypeId() != TzSoapContentBase::Generic) {
                children.push_back(*item);
            }
        }
    }
    return children;
}

/// Compares one message with what its description says.
class Comparison {
public:
    Comparison(const TzSoapMessage& message, const Json& wire)
        : message_(message), wire_(wire), version_(message.getSoapVersion()) {}

    void run() {
        EXPECT_EQ(message_.getName().getUri(), wire_["envelope_ns"].get<std::string>());
        EXPECT_EQ(message_.getEncodingStyleAttribute(),
                  wire_.value("envelope_encodingStyle", std::string()));
        compareHeader();
        if (wire_.contains("fault") && !wire_["fault"].is_null()) {
            compareFault(wire_["fault"]);
        } else {
            compareBody();
        }
        compareReferences();
    }

private:
    void compareHeader() {
        const TzSoapHeader& header = message_.getSoapHeader();
        const Json expected = wire_.value("header", Json::array());
        ASSERT_EQ(header.entryCount(), expected.size());
        auto entry = header.entriesBegin();
        for (const Json& described : expected) {
            compareFlags(*entry, described);
            compare(*entry, described["node"], "Header");
            ++entry;
        }
    }

    void compareFlags(const TzSoapType& entry, const Json& described) {
        const std::string mustUnderstand = described.value("mustUnderstand", std::string());
        EXPECT_EQ(entry.getMustUnderstand(), mustUnderstand == "1" || mustUnderstand == "true");
        EXPECT_EQ(entry.getMustUnderstandAttribute().empty(), mustUnderstand.empty());
        // "actor" is an attribute of SOAP 1.1 only; elsewhere it is one of the sender's own.
        const TzXmlName actor("actor", version_.getSoapEnv());
        const auto* kept = entry.findAttribute(actor);
        EXPECT_EQ(kept != entry.attributesEnd() ? kept->getValue() : entry.getActorAttribute(),
                  described.value("actor", described.value("role", std::string())));
    }

    void compareBody() {
        const TzSoapBody& body = message_.getSoapBody();
        const Json& expected = wire_["body"];
        ASSERT_EQ(body.entryCount(), expected.size());
        compareAll({body.entriesBegin(), body.entriesEnd()}, expected,
                   "{" + version_.getSoapEnv().getUri() + "}Body");
    }

    void compareFault(const Json& expected) {
        ASSERT_TRUE(message_.getSoapBody().hasSoapFault());
        const TzSoapFault& fault = message_.getSoapBody().getSoapFault();
        EXPECT_EQ(bracedName(fault.getCode()), expected["code"].get<std::string>());
        EXPECT_EQ(fault.getReason(), expected.contains("string")
                                         ? expected["string"].get<std::string>()
                                         : expected["reason"][0][1].get<std::string>());
        const Json actor = expected.value("actor", Json());
        EXPECT_EQ(fault.getNode(), actor.is_null() ? std::string() : actor.get<std::string>());
        const Json detail = expected.value("detail", Json());
        compareAll(childrenOf(fault.getDetails()), detail.is_null() ? Json::array() : detail,
                   "Detail");
    }

    void compareAll(const std::vector<TzSoapType>& values, const Json& expected,
                    const std::string& path) {
        ASSERT_EQ(values.size(), expected.size()) << path;
        std::map<std::string, int> seen;
        std::map<std::string, int> count;
        for (const Json& node : expected) {
            ++count[node["name"].get<std::string>()];
        }
        for (std::size_t i = 0; i < values.size(); ++i) {
            const std::string name = expected[i]["name"].get<std::string>();
            std::string step = path + "/" + name;
            if (count[name] > 1) {
                step += "[" + std::to_string(++seen[name]) + "]";
            }
            compare(values[i], expected[i], step);
        }
    }

    void compare(const TzSoapType& value, const Json& node, const std::string& path) {
        SCOPED_TRACE(path);
        values_.emplace(path, value);
        EXPECT_EQ(bracedName(value.getName()), node["name"].get<std::string>());
        EXPECT_EQ(bracedName(value.getType()), node.value("xsi:type", std::string()));
        compareNil(value, node);
        const Json attributes = node.value("attrs", Json::object());
        for (const auto& [name, expected] : attributes.items()) {
            EXPECT_EQ(attributeOf(value, name), expected.get<std::string>()) << name;
        }
        if (node.contains("array")) {
            compareArray(value, node["array"]);
        }
        notePositions(value);
        if (node.contains("children")) {
            compareAll(childrenOf(value), node["children"], path);
        } else {
            compareText(value, node);
        }
    }

    /// The items of a sparse array carry no position attribute any more.
    void notePositions(const TzSoapType& value) {
        if (const auto sparse = tzSoapCast<TzSoapSparseArrayType>(value)) {
            const TzSoapSparseArrayType& items = *sparse;
            for (auto item = items.begin(); item != items.end(); ++item) {
                positions_[&item->second.getName()] =
                    TzSoapArrayType::vectorToString(item->first, true, TzSoapVersion::V1_1);
            }
        }
    }

    void compareNil(const TzSoapType& value, const Json& node) {
        const auto* nil = value.findAttribute(TzSoapAttributeSet::getNullAttributeName());
        EXPECT_EQ(nil == value.attributesEnd() ? std::string() : nil->getValue(),
                  node.value("xsi:nil", std::string()));
    }

    void compareText(const TzSoapType& value, const Json& node) {
        const std::string expected = node.value("text", std::string());
        if (const auto simple = tzSoapCast<TzSoapSimpleType>(value)) {
            EXPECT_EQ(simple->getString(), expected);
        } else {
            EXPECT_EQ(expected, "")
                << "only simple values have text, this is " << value.getSoapTypeIdAsString();
        }
    }

    /// An attribute by its braced name, wherever the model keeps it.
    std::string attributeOf(const TzSoapType& value, const std::string& name) {
        const auto properties = propertiesOf(value);
        if (const auto found = properties.find(name); found != properties.end()) {
            return found->second;
        }
        for (const auto* attribute = value.attributesBegin(); attribute != value.attributesEnd();
             ++attribute) {
            if (bracedName(attribute->getName()) == name) {
                return attribute->getValue();
            }
        }
        return "(no such attribute)";
    }

    std::map<std::string, std::string> propertiesOf(const TzSoapType& value) {
        std::map<std::string, std::string> properties;
        const auto name = [this](TzSoapVersion::SoapAttribute attribute) {
            return bracedName(version_.getSoapAttributeQName(attribute));
        };
        const TzCString mustUnderstand = value.getMustUnderstandAttribute();
        if (!mustUnderstand.empty()) {
            // The model does not keep which of the two spellings a sender took.
            const auto spelling = version_.getVersion() == TzSoapVersion::V1_2Rec
                                      ? TzSoapVersion::V1_2Rec
                                      : TzSoapVersion::V1_1;
            properties[name(TzSoapVersion::MustUnderstand)] =
                value.getMustUnderstandAttribute(spelling);
        }
        if (const TzCString actor = value.getActorAttribute(); !actor.empty()) {
            properties[name(TzSoapVersion::Actor)] = actor;
        }
        if (value.hasEncodingStyleAttribute()) {
            properties[name(TzSoapVersion::EncodingStyle)] = value.getEncodingStyleAttribute();
        }
        if (const auto array = tzSoapCast<TzSoapArrayType>(value)) {
            properties[name(TzSoapVersion::Offset)] =
                array->getOffsetAttribute(version_.getVersion());
        }
        if (const auto* ref = value.findAttribute(TzXmlName("ref")); ref != value.attributesEnd()) {
            properties["href"] = ref->getValue(); // where a reference that has its target keeps it
        }
        if (const auto* ref =
                value.findAttribute(version_.getSoapAttributeQName(TzSoapVersion::Ref));
            ref != value.attributesEnd() && !ref->getName().getUri().empty()) {
            // An IDREF without the mark of a fragment, which some senders add.
            properties[name(TzSoapVersion::Ref)] = '#' + ref->getValue();
        }
        if (const auto found = positions_.find(&value.getName()); found != positions_.end()) {
            properties[name(TzSoapVersion::Position)] = found->second;
        }
        return properties;
    }

    void compareArray(const TzSoapType& value, const Json& described) {
        const auto array = tzSoapCast<TzSoapArrayType>(value);
        if (version_.getVersion() != TzSoapVersion::V1_1 && !described.contains("arraySize")) {
            // "arrayType" is unknown to SOAP 1.2: the sender's array is a struct to its
            // reader.
            EXPECT_FALSE(array.has_value());
            EXPECT_EQ(attributeOf(value, "{" + version_.getSoapEnc().getUri() + "}arrayType"),
                      described["raw"].get<std::string>());
            return;
        }
        if (tzSoapCast<TzSoapReferenceType>(value)) {
            // The reference decides, what it says about its target stays an attribute.
            EXPECT_EQ(attributeOf(value, bracedName(version_.getSoapAttributeQName(
                                             TzSoapVersion::ArrayType))),
                      described["raw"].get<std::string>());
            return;
        }
        ASSERT_TRUE(array.has_value());
        if (described.contains("arraySize")) {
            EXPECT_EQ(array->getElementType(), described["itemType"].get<std::string>());
            EXPECT_EQ(array->getBoundsAsString(version_.getVersion()),
                      described["arraySize"].get<std::string>());
            return;
        }
        EXPECT_EQ(array->getArrayType(), withOpenAxis(described["raw"].get<std::string>()));
    }

    /// Readers take a size of 0 and no size at all for one open axis.
    static std::string withOpenAxis(std::string arrayType) {
        constexpr std::string_view zero = "[0]";
        const std::size_t found = arrayType.rfind(zero);
        return found == std::string::npos ? arrayType : arrayType.replace(found, zero.size(), "[]");
    }

    /// Every reference points at the value that has the id.
    void compareReferences() {
        const Json references = wire_.value("refs", Json::array());
        for (const Json& described : references) {
            const std::string path = described[0].get<std::string>();
            const std::string href = described[1].get<std::string>();
            SCOPED_TRACE(path + " -> " + href);
            const auto found = values_.find(path);
            ASSERT_NE(found, values_.end());
            const auto reference = tzSoapCast<TzSoapReferenceType>(found->second);
            ASSERT_TRUE(reference.has_value());
            compareTarget(*reference, href);
        }
    }

    void compareTarget(const TzSoapReferenceType& reference, const std::string& href) {
        if (reference.isMimeReference()) {
            // A fragment in "href" is what SOAP 1.1 sends: in SOAP 1.2 it names a part that is not
            // there.
            EXPECT_EQ(reference.hasReference(), !href.starts_with('#'));
            return;
        }
        ASSERT_TRUE(reference.hasReference());
        const std::string id = href.starts_with('#') ? href.substr(1) : href;
        EXPECT_EQ(reference.getSoapReference().getIdAttribute(), id);
        const auto target = values_.find(wire_["ids"][id].get<std::string>());
        ASSERT_NE(target, values_.end());
        EXPECT_EQ(&reference.getSoapReference().getIdAttribute(), &target->second.getIdAttribute())
            << "the target is the value itself, not a copy";
    }

    const TzSoapMessage& message_;
    const Json& wire_;
    const TzSoapVersion& version_;
    std::map<std::string, TzSoapType> values_;
    std::map<const TzXmlName*, std::string> positions_; // by where a body keeps its name
};

class EverySample : public testing::TestWithParam<std::filesystem::path> {
protected:
    Json description() const {
        auto file = GetParam();
        return Json::parse(readFile(file.replace_extension(".json")));
    }
};

TEST_P(EverySample, ReadsAsDescribed) {
    const Json described = description();
    const Json& wire = described["wire"];
    TzSoapMessage message;
    TzSoapVersion::Version version{};
    const TzXmlNamespace envelope("", wire["envelope_ns"].get<std::string>());
    ASSERT_TRUE(TzSoapVersion::isKnownVersion(envelope, version));
    message.setReadLimits({.soap12Recommendation = true});
    message.extract(readFile(GetParam()));
    EXPECT_EQ(message.getVersion(), version);
    Comparison(message, wire).run();
}

TEST_P(EverySample, OfALaterVersionIsRefusedByDefault) {
    const Json described = description();
    TzSoapMessage message;
    TzSoapVersion::Version version{};
    const TzXmlNamespace envelope("", described["wire"]["envelope_ns"].get<std::string>());
    if (TzSoapVersion::isSupportedVersion(envelope, version)) {
        message.extract(readFile(GetParam()));
        EXPECT_EQ(message.getVersion(), version);
        return;
    }
    try {
        message.extract(readFile(GetParam()));
        FAIL() << "an envelope of an unknown version was accepted";
    } catch (const TzXmlParseError& error) {
        EXPECT_EQ(error.asString(), "[UNKNOWN_VERSION][SOAP Version specified by URI \"" +
                                        envelope.getUri() + "\" is unknown ]");
        EXPECT_GE(error.getLine(), 1u);
    }
}

std::string nameOfSample(const testing::TestParamInfo<std::filesystem::path>& info) {
    std::string name =
        std::filesystem::relative(info.param, TZSOAP_SAMPLES_DIR).replace_extension().string();
    std::replace_if(
        name.begin(), name.end(),
        [](char character) { return !std::isalnum(static_cast<unsigned char>(character)); }, '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(All, EverySample, testing::ValuesIn(sampleFiles()), nameOfSample);

} // namespace

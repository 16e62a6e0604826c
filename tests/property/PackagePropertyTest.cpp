// SPDX-License-Identifier: MIT
//
// Messages with attachments in every place: written, read, compared byte for byte, and the packages
// read by GMime too.
#include "support/GMimeOracle.h"

#include <soap/TzSoapCast.h>
#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapSparseArrayType.h>
#include <tz/mime/TzMimeContentIdHeader.h>
#include <tz/mime/TzMimeContentLocationHeader.h>
#include <tz/mime/TzMimeMultipart.h>

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace {

/// An attachment as it was made up.
struct Attachment {
    TzMimePart part;
    std::string bytes;
    std::string reference; // how references name it
};

class Generator {
public:
    explicit Generator(std::uint32_t seed) : random_(seed) {}

    std::size_t below(std::size_t limit) { return random_() % limit; }

    Attachment attachment(std::size_t number) {
        Attachment made;
        const std::string id = std::to_string(number) + "@example";
        const std::string location = "http://example/" + std::to_string(number);
        const std::size_t named = below(3);
        if (named != 0) {
            made.part.insertHeader(TzMimeContentLocationHeader(location));
        }
        if (named != 1) {
            made.part.insertHeader(TzMimeContentIdHeader(id));
        }
        made.reference = named == 1 ? location : "cid:" + id;
        constexpr std::array<const char*, 5> encodings = {"binary", "8bit", "base64",
                                                          "quoted-printable", "x-own"};
        if (const std::size_t which = below(encodings.size() + 1); which < encodings.size()) {
            made.part.insertHeader(TzMimeHeader("Content-Transfer-Encoding", encodings[which]));
        }
        made.bytes = bytes();
        made.part.setBody(made.bytes);
        return made;
    }

    /// An entry that holds `value`, at whatever depth.
    TzSoapType holder(TzSoapType value) {
        for (std::size_t depth = below(4); depth > 0; --depth) {
            value = wrapped(value);
        }
        return value;
    }

private:
    TzSoapType wrapped(const TzSoapType& value) {
        switch (below(3)) {
        case 0: {
            TzSoapCompositeType composite{TzXmlName("composite")};
            composite.appendChild(value);
            return composite;
        }
        case 1: {
            TzSoapCompactArrayType array(TzXmlName("compact"), "xsd:anyType", 1, 0);
            array[0U] = value;
            return array;
        }
        default: {
            TzSoapSparseArrayType array(TzXmlName("sparse"), "xsd:anyType", 9);
            array[static_cast<unsigned int>(below(9))] = value;
            return array;
        }
        }
    }

    std::string bytes() {
        constexpr std::array<const char*, 10> pieces = {"\r",
                                                        "\n",
                                                        "\r\n",
                                                        "-",
                                                        "--",
                                                        "--MIME_bound",
                                                        "--MIME_boundary",
                                                        "--MIME_boundary--",
                                                        "\r\n--MIME_boundary\r\n",
                                                        "\n--MIME_boundary--\n"};
        constexpr std::array<std::size_t, 12> sizes = {0,    1,    2,    57,   76,    1023,
                                                       4095, 4096, 4097, 4110, 12288, 70000};
        const std::size_t size = sizes[below(sizes.size())];
        const std::size_t chance = below(2) == 0 ? 100 : 3; // few pieces in many bytes, or many
        std::string made;
        while (made.size() < size) {
            made += below(chance) == 0 ? pieces[below(pieces.size())]
                                       : std::string(1, static_cast<char>(below(256)));
        }
        return made;
    }

    std::mt19937 random_;
};

/// The reference that a holder holds.
TzSoapReferenceType referenceIn(TzSoapType value) {
    while (value.getSoapTypeId() != TzSoapContentBase::Reference) {
        if (const auto composite = tzSoapCast<TzSoapCompositeType>(value)) {
            value = *composite->childrenBegin();
        } else if (auto compact = tzSoapCast<TzSoapCompactArrayType>(value)) {
            value = (*compact)[0U];
        } else {
            value = tzSoapCast<TzSoapSparseArrayType>(value).value().begin()->second;
        }
    }
    return *tzSoapCast<TzSoapReferenceType>(value);
}

/// Adds an entry for each attachment: to header, body or detail.
void fill(TzSoapMessage& message, const std::vector<Attachment>& attachments,
          Generator& generator) {
    for (std::size_t i = 0; i < attachments.size(); ++i) {
        const TzSoapType entry =
            generator.holder(TzSoapReferenceType(TzXmlName("file"), attachments[i].part));
        if (i % 3 == 0) {
            message.getSoapHeader().appendHeaderEntry(entry, true);
        } else if (i % 3 == 1) {
            message.getSoapBody().appendEntry(entry);
        } else {
            TzSoapFault& fault = message.getSoapBody().getSoapFault();
            fault.setCode(TzXmlName("code"));
            fault.addDetailEntry("entry", entry);
        }
    }
}

/// The references of a message that was filled, in the order of the attachments.
std::vector<TzSoapReferenceType> references(const TzSoapMessage& message, std::size_t count) {
    auto header = message.getSoapHeader().entriesBegin();
    auto body = message.getSoapBody().entriesBegin();
    auto detail = message.getSoapBody().getSoapFault().getDetails().childrenBegin();
    std::vector<TzSoapReferenceType> found;
    for (std::size_t i = 0; i < count; ++i) {
        found.push_back(referenceIn(i % 3 == 0 ? *header++ : i % 3 == 1 ? *body++ : *detail++));
    }
    return found;
}

void expectSame(const TzSoapMessage& read, const std::vector<Attachment>& attachments) {
    const auto found = references(read, attachments.size());
    for (std::size_t i = 0; i < attachments.size(); ++i) {
        ASSERT_TRUE(found[i].hasReference()) << i;
        EXPECT_TRUE(found[i].getMimeReference().getBodyView() == attachments[i].bytes) << i;
        EXPECT_EQ(found[i].findAttribute(TzXmlName("href"))->getValue(), attachments[i].reference);
    }
}

void expectSame(const GMimeOracle::Package& other, const TzMimeMultipart& read) {
    ASSERT_EQ(other.parts.size(), read.getPartCount());
    for (std::size_t at = 0; at < other.parts.size(); ++at) {
        EXPECT_TRUE(other.parts[at].body == read.getPart(at).getBodyView()) << at;
    }
}

} // namespace

TEST(PackageProperty, EveryByteOfEveryAttachmentComesBack) {
    for (std::uint32_t seed = 1; seed <= 300 && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Generator generator(seed);
        std::vector<Attachment> attachments(1 + generator.below(8));
        for (std::size_t i = 0; i < attachments.size(); ++i) {
            attachments[i] = generator.attachment(i);
        }
        TzSoapMessage written(seed % 2 == 0 ? TzSoapVersion::V1_1 : TzSoapVersion::V1_2);
        fill(written, attachments, generator);
        const std::string text = written.asString();

        TzSoapMessage read(written.getVersion());
        read.extract(text);
        EXPECT_EQ(read.getVersion(), written.getVersion());
        expectSame(read, attachments);
        EXPECT_TRUE(read.asString() == text);
        expectSame(GMimeOracle::read(text), read.getMimeMultipart());
    }
}

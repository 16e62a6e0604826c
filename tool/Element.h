// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapReason.h>
#include <tz/xml/TzXmlAttribute.h>
#include <tz/xml/TzXmlName.h>

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The form of an array.
struct ArrayFacts {
    std::string itemType; ///< As a qualified name.
    std::vector<unsigned int> bounds;
    std::vector<unsigned int> offset; ///< Empty when none is stated.
    bool sparse;
    std::size_t items;     ///< How many positions hold an item.
    std::string arrayType; ///< Item type and bounds as SOAP 1.1 writes them.
};

/// What a reference points at.
struct ReferenceFacts {
    std::string text;                ///< The reference as it was sent.
    std::optional<std::size_t> part; ///< The number of an attachment in the package.
    std::size_t size = 0;            ///< Bytes of that attachment.
    std::string_view kind;           ///< The kind of a value; "" for any other target.
    TzXmlName name;                  ///< The value's name.
};

/// What a fault says besides its detail.
struct FaultFacts {
    TzXmlName code;
    std::vector<TzXmlName> subcodes;
    std::vector<TzSoapReason> reasons; ///< In all languages, never empty.
    std::string node;
    std::string role;
    std::string detailText; ///< Text in the detail, besides its entries.
};

/// What there is to say about one element of a message, apart from the elements in it.
struct Element {
    std::string_view kind;     ///< Such as "Body" or "Simple".
    std::string_view role;     ///< Its role in the element around it; "" for one of several.
    std::string_view children; ///< The name of the elements in it; "" where none can be.
    TzXmlName name;
    TzXmlName type;             ///< Empty when none is stated.
    std::string mustUnderstand; ///< "true" or "false", "" when not set.
    std::string actor;
    std::optional<bool> relay; ///< Of a header entry that states it.
    std::string root;          ///< "1" or "0", "" when not set.
    std::string id;
    bool nil = false;
    std::optional<std::string> encodingStyle;
    std::optional<std::string> text;
    std::span<const TzXmlAttribute> attributes; ///< Declarations of namespaces included.
    std::vector<unsigned int> position;         ///< Of an item in its array.
    std::optional<ArrayFacts> array;
    std::optional<ReferenceFacts> reference;
    std::optional<FaultFacts> fault;
    std::optional<TzXmlName> misunderstood; ///< What a report says was not understood.
};

/// A number that stands for the envelope's version, such as "1.1", in what is printed.
using VersionText = std::string_view;
struct PartFacts;

/// Takes what `MessageWalk` finds, in the order of the message.
class ElementSink {
public:
    ElementSink() = default;
    ElementSink(const ElementSink&) = delete;
    ElementSink& operator=(const ElementSink&) = delete;
    virtual ~ElementSink() = default;

    /// A message begins.
    virtual void beginMessage(VersionText version) = 0;
    /// The message ends.
    virtual void endMessage() = 0;
    /// An element begins; what it refers to lives until the call returns.
    virtual void begin(const Element& element) = 0;
    /// The element that began last ends.
    virtual void end() = 0;
    /// A part of the package besides the envelope, after all elements.
    virtual void attachment(std::size_t number, const PartFacts& facts) = 0;
};

// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapCompactArrayImp.h>
#include <soap/TzSoapSparseArrayImp.h>
#include <soap/TzSoapValueList.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlName.h>

#include "output/TzSoapInlineVector.h"
#include "output/TzSoapOutputContext.h"
#include "output/TzSoapStartTag.h"
#include "output/TzSoapValueOutput.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

class TzSoapArrayTypeImp;
class TzSoapCompositeTypeImp;
class TzSoapConstVisitor;
class TzSoapTypeImp;

/// Writes composites and arrays with all that they hold.
///
/// `visitor` is the visitor that asks for it. If its class is derived, it gets every value and
/// calls back for it. All others need neither calls nor recursion: a list holds the containers that
/// are open.
class TzSoapContainerOutput {
public:
    /// The containers written in `context` with `startTag` and `values`, which must outlive this
    /// object.
    TzSoapContainerOutput(const TzSoapOutputContext& context, TzSoapStartTag& startTag,
                          TzSoapValueOutput& values) noexcept
        : context_(context), startTag_(startTag), values_(values) {}
    TzSoapContainerOutput(const TzSoapContainerOutput&) = delete;
    TzSoapContainerOutput& operator=(const TzSoapContainerOutput&) = delete;

    /// Writes a composite as an element named `name`.
    void write(TzSoapConstVisitor& visitor, const TzXmlName& name, TzSoapCompositeTypeImp& value);
    /// Writes the detail of a fault as an element named `name`, `text` before its children unless
    /// that is white space only or the composite is nil.
    void writeDetail(TzSoapConstVisitor& visitor, const TzXmlName& name,
                     TzSoapCompositeTypeImp& value, std::string_view text);
    /// Writes a reference; in a version that writes targets inline perhaps its target.
    void write(TzSoapConstVisitor& visitor, TzSoapReferenceTypeImp& value);
    /// Writes an array and its items from the offset on; items never assigned are written as nil,
    /// those at the end are left out.
    void write(TzSoapConstVisitor& visitor, TzSoapCompactArrayImp& value);
    /// Writes an array and the items it holds, each with its position or, in a version without
    /// positions, after nil items for those before it.
    void write(TzSoapConstVisitor& visitor, TzSoapSparseArrayImp& value);
    /// Writes a value of any kind on behalf of the element that holds it.
    void writeChild(TzSoapConstVisitor& visitor, const TzSoapType& child);

private:
    /// The rest of a container that is still to be written, from one position to another.
    template <typename Position> struct Remaining {
        Position next;
        Position end;
    };
    struct Members : Remaining<TzSoapValueList::const_iterator> {
        const TzSoapValueList* texts; ///< The list with text beside the members, null without.
    };
    struct Items
        : Remaining<decltype(std::declval<const TzSoapCompactArrayImp&>().itemsToWrite().begin())> {
        std::uint64_t gap = 0; ///< So many nil items come first.
    };
    /// The items of a sparse array for a version without positions.
    struct FilledItems {
        std::vector<std::pair<std::uint64_t, const TzSoapType*>> items; ///< In order of positions.
        std::size_t next = 0;
        std::uint64_t position = 0; ///< Of what is written next.
    };
    struct SparseItems : Remaining<TzSoapSparseArrayImp::const_iterator> {
        unsigned int count; ///< At most so many.
    };
    /// A container whose start tag is written.
    struct Container {
        const TzXmlName* name;
        std::size_t depth; // of the element around it
        std::variant<Members, Items, SparseItems, FilledItems> rest;
    };
    class Run;

    void open(const TzXmlName& name, TzSoapCompositeTypeImp& value, std::string_view position);
    void openDetail(const TzXmlName& name, TzSoapCompositeTypeImp& value);
    Members membersToWrite(const TzSoapCompositeTypeImp& value) const;
    void noteOmittedMembers(const TzSoapCompositeTypeImp& value);
    void open(TzSoapCompactArrayImp& value, std::string_view position);
    void open(TzSoapSparseArrayImp& value, std::string_view position);
    bool openArray(TzSoapTypeImp& value, std::string_view position);
    void startArray(TzSoapArrayTypeImp& value, std::string_view position);
    bool hasPositions() const;
    FilledItems filledItems(TzSoapSparseArrayImp& value) const;
    template <typename Rest>
    void enter(const TzXmlName& name, const TzSoapTypeImp& value, const Rest& rest);
    void close();

    bool writeNext(TzSoapConstVisitor& visitor, bool isServed);
    bool writeNext(TzSoapConstVisitor& visitor, bool isServed, Members& rest);
    bool writeNext(TzSoapConstVisitor& visitor, bool isServed, Items& rest);
    bool writeNext(TzSoapConstVisitor& visitor, bool isServed, SparseItems& rest);
    bool writeNext(TzSoapConstVisitor& visitor, bool isServed, FilledItems& rest);
    void writeItem(TzSoapConstVisitor& visitor, bool isServed, const TzSoapType& item);
    template <typename Position> Position writeSimples(Position next, Position end);
    void writeServed(TzSoapConstVisitor& visitor, const TzSoapType& value, bool isItem,
                     std::string_view position);
    void writeReference(TzSoapConstVisitor& visitor, bool isServed, TzSoapReferenceTypeImp& value,
                        std::string_view position);
    TzSoapType inPlaceOf(TzSoapReferenceTypeImp& reference) const;
    bool mayBeRepeated(const TzSoapTypeImp& value) const;
    bool writeRepeated(const TzSoapType& value, std::string_view position);
    void visitAt(TzSoapConstVisitor& visitor, const TzSoapType& item, const TzCString& position);

    const TzSoapOutputContext& context_;
    TzSoapStartTag& startTag_;
    TzSoapValueOutput& values_;
    TzSoapInlineVector<Container, 6> open_; // innermost last
    std::vector<TzSoapType> inPlace_; // targets in the places of references, while any is open
};

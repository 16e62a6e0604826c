// SPDX-License-Identifier: MIT
#include "output/TzSoapContainerOutput.h"

#include <soap/TzSoapArrayTypeImp.h>
#include <soap/TzSoapCompositeTypeImp.h>
#include <soap/TzSoapConstVisitor.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapReferenceTypeImp.h>
#include <soap/TzSoapSimpleTypeImp.h>
#include <soap/TzSoapUserDefinedTypeImp.h>
#include <tz/xml/TzXmlUtils.h>

#include "model/TzSoapAccess.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <utility>

namespace {

/// Whether `name` is that of an attribute which makes a reference to a value, in the model or in
/// `version`.
bool isReferenceText(const TzXmlName& name, TzSoapVersion::Version version) {
    return TzSoapVersion::matchSoapAttributeName(name, TzSoapVersion::Ref, version) ||
           TzSoapVersion::matchSoapAttributeName(name, TzSoapVersion::Ref,
                                                 TzSoapVersion::getLatestVersion());
}

/// Asks for the memory that lies some values after `value`: those made one after the other mostly
/// lie one after the other, and where they do not, this only costs time.
void prefetchAfter(const TzSoapTypeImp& value) {
    constexpr std::size_t Ahead = 2048;
    constexpr std::size_t CacheLine = 64; // the usual size
    const auto* const from = reinterpret_cast<const char*>(&value) + Ahead;
    for (std::size_t at = 0; at < sizeof(TzSoapSimpleTypeImp); at += CacheLine) {
        __builtin_prefetch(from + at);
    }
}

} // namespace

/// Writes the contents of a container and of all containers within; when an error passes, closes
/// the containers that it opened.
class TzSoapContainerOutput::Run {
public:
    explicit Run(TzSoapContainerOutput& output)
        : output_(output), containers_(output.open_.size()),
          depth_(output.context_.scope().depth()),
          indentation_(output.context_.xml().getIndentation()) {}
    ~Run() {
        output_.open_.shrink(containers_);
        output_.context_.scope().closeTo(depth_);
        output_.context_.xml().setIndentation(indentation_);
        if (output_.open_.empty()) {
            output_.inPlace_.clear();
        }
    }
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;

    void finish(TzSoapConstVisitor& visitor, bool isServed) {
        while (output_.open_.size() > containers_) {
            if (!output_.writeNext(visitor, isServed)) {
                output_.close();
            }
        }
    }

private:
    TzSoapContainerOutput& output_;
    std::size_t containers_;
    std::size_t depth_;
    std::size_t indentation_;
};

void TzSoapContainerOutput::write(TzSoapConstVisitor& visitor, const TzXmlName& name,
                                  TzSoapCompositeTypeImp& value) {
    TzSoapWrittenTogether together(context_);
    together.add(value);
    Run run(*this);
    open(name, value, {});
    run.finish(visitor, context_.isServed(visitor));
}

void TzSoapContainerOutput::writeDetail(TzSoapConstVisitor& visitor, const TzXmlName& name,
                                        TzSoapCompositeTypeImp& value, std::string_view text) {
    Run run(*this);
    if (context_.habits().blocksStateStyle) {
        open(name, value, {});
    } else {
        openDetail(name, value);
    }
    if (!TzXmlUtils::trim(text).empty() && !TzSoapValueOutput::isNil(value)) {
        context_.xml().write(text, true);
        context_.xml().writeNewLine();
    }
    run.finish(visitor, context_.isServed(visitor));
}

void TzSoapContainerOutput::write(TzSoapConstVisitor& visitor, TzSoapCompactArrayImp& value) {
    TzSoapWrittenTogether together(context_);
    together.add(value);
    Run run(*this);
    open(value, {});
    run.finish(visitor, context_.isServed(visitor));
}

void TzSoapContainerOutput::write(TzSoapConstVisitor& visitor, TzSoapSparseArrayImp& value) {
    TzSoapWrittenTogether together(context_);
    together.add(value);
    Run run(*this);
    open(value, {});
    run.finish(visitor, context_.isServed(visitor));
}

void TzSoapContainerOutput::write(TzSoapConstVisitor& visitor, TzSoapReferenceTypeImp& value) {
    TzSoapWrittenTogether together(context_);
    together.add(value);
    Run run(*this);
    const bool isServed = context_.isServed(visitor);
    writeReference(visitor, isServed, value, {});
    run.finish(visitor, isServed);
}

[[gnu::hot]] void TzSoapContainerOutput::writeChild(TzSoapConstVisitor& visitor,
                                                    const TzSoapType& child) {
    if (!context_.isServed(visitor)) {
        child.acceptVisitor(visitor);
        return;
    }
    TzSoapTypeImp& body = TzSoapAccess::body(child);
    if (body.getSoapTypeId() == TzSoapContentBase::Simple && !mayBeRepeated(body)) {
        values_.writeSimple(static_cast<TzSoapSimpleTypeImp&>(body));
        return;
    }
    Run run(*this);
    writeServed(visitor, child, false, {});
    run.finish(visitor, true);
}

template <typename Rest>
[[gnu::hot]] void TzSoapContainerOutput::enter(const TzXmlName& name, const TzSoapTypeImp& value,
                                               const Rest& rest) {
    open_.push_back({&name, context_.scope().depth(), rest});
    context_.scope().openHolder(&value);
}

[[gnu::hot]] void TzSoapContainerOutput::close() {
    const Container& container = open_.back();
    TzSoapTagName::of(*container.name).endBlock(context_.xml());
    context_.scope().closeTo(container.depth);
    open_.pop_back();
}

[[gnu::hot]] void TzSoapContainerOutput::open(const TzXmlName& name, TzSoapCompositeTypeImp& value,
                                              std::string_view position) {
    enter(name, value, membersToWrite(value));
    const auto* const tags =
        position.empty() ? startTag_.readyTags(name, value, value.getTypeValue(), false) : nullptr;
    if (tags != nullptr) {
        context_.xml().writeReadyLine(tags->start);
        context_.xml().incrementIndent();
        noteOmittedMembers(value);
        return;
    }
    const bool isUpgrade = context_.isUpgrade(name);
    if (!isUpgrade) {
        startTag_.lookAround();
    }
    const TzSoapTagName tag = TzSoapTagName::of(name);
    TzSoapStartTag::Brief brief;
    if (position.empty() &&
        startTag_.isBrief(tag, name, value, value.getTypeValue(), false, brief)) {
        brief.pass([&](const auto&... rest) {
            context_.xml().writeMarkupLine(TzXmlWriter::StartTag, tag, rest...);
        });
        context_.xml().incrementIndent();
    } else if (position.empty() && !isUpgrade && value.hasProperties() &&
               startTag_.writeShort(tag, name, value, value.getTypeValue())) {
        context_.xml().writeMarkupLine(TzXmlWriter::EndTag);
        context_.xml().incrementIndent();
    } else {
        startTag_.begin(value.getAttributeSet());
        startTag_.qualifyName(name);
        startTag_.collectValue(value, value.getTypeValue(), position);
        if (!isUpgrade) {
            startTag_.ensureStyle();
        }
        startTag_.qualifyStyle();
        startTag_.writeBlock(tag);
        context_.book().noteWritten(value);
        if (isUpgrade) {
            // After its tag: only so that nothing in it states a style.
            context_.scope().setOwnStyle(context_.table().noEncodingStyle());
        }
    }
    noteOmittedMembers(value);
}

void TzSoapContainerOutput::openDetail(const TzXmlName& name, TzSoapCompositeTypeImp& value) {
    enter(name, value, membersToWrite(value));
    startTag_.begin(value.getAttributeSet());
    startTag_.qualifyName(name);
    startTag_.collectBlock(value);
    startTag_.writeBlock(TzSoapTagName::of(name));
    context_.book().noteWritten(value);
    noteOmittedMembers(value);
}

TzSoapContainerOutput::Members
TzSoapContainerOutput::membersToWrite(const TzSoapCompositeTypeImp& value) const {
    const bool nil = TzSoapValueOutput::isNil(value);
    const bool hasText = !nil && context_.rules().style().keepsAll && value.children().hasText();
    return {{nil ? value.childrenEnd() : value.childrenBegin(), value.childrenEnd()},
            hasText ? &value.children() : nullptr};
}

void TzSoapContainerOutput::noteOmittedMembers(const TzSoapCompositeTypeImp& value) {
    if (TzSoapValueOutput::isNil(value) && value.childCount() != 0) {
        context_.book().noteOmission();
    }
}

[[gnu::hot]] void TzSoapContainerOutput::open(TzSoapCompactArrayImp& value,
                                              std::string_view position) {
    Items items{};
    if (!TzSoapValueOutput::isNil(value)) {
        const auto range = value.itemsToWrite();
        items = {{range.begin(), range.end()}, 0};
        if (!hasPositions() && !TzSoapArrayTypeImp::isDefaultOffset(value.getOffsetIndex())) {
            items.gap = value.indexToLinear(value.getOffsetIndex(), true);
            context_.gaps().add(items.gap,
                                static_cast<std::uint64_t>(std::distance(items.next, items.end)));
        }
    }
    enter(std::as_const(value).getName(), value, items);
    startArray(value, position);
}

[[gnu::hot]] void TzSoapContainerOutput::open(TzSoapSparseArrayImp& value,
                                              std::string_view position) {
    const auto& items = std::as_const(value);
    const unsigned int count = value.getCountElementsToWrite();
    if (!hasPositions()) {
        enter(items.getName(), value, filledItems(value));
        startArray(value, position);
        return;
    }
    enter(items.getName(), value,
          SparseItems{{TzSoapValueOutput::isNil(value) ? items.end() : items.begin(), items.end()},
                      count != 0 ? count : std::numeric_limits<unsigned int>::max()});
    startArray(value, position);
}

void TzSoapContainerOutput::startArray(TzSoapArrayTypeImp& value, std::string_view position) {
    const TzXmlName& name = std::as_const(value).getName();
    startTag_.begin(value.getAttributeSet());
    startTag_.qualifyName(name);
    startTag_.collectValue(value, value.getTypeValue(), position);
    startTag_.collectShape(value);
    startTag_.ensureStyle();
    startTag_.qualifyStyle();
    startTag_.writeBlock(TzSoapTagName::of(name));
    context_.book().noteWritten(value);
    if (TzSoapValueOutput::isNil(value) || value.getCountElementsToWrite() != 0 ||
        !TzSoapArrayTypeImp::isDefaultOffset(value.getOffsetIndex())) {
        context_.book().noteOmission();
    }
}

bool TzSoapContainerOutput::hasPositions() const {
    return !context_.table().attribute(TzSoapVersion::Position).isEmpty();
}

TzSoapContainerOutput::FilledItems
TzSoapContainerOutput::filledItems(TzSoapSparseArrayImp& value) const {
    FilledItems filled;
    if (TzSoapValueOutput::isNil(value)) {
        return filled;
    }
    unsigned int rest = value.getCountElementsToWrite();
    rest = rest != 0 ? rest : std::numeric_limits<unsigned int>::max();
    const auto& items = std::as_const(value);
    for (auto item = items.begin(); item != items.end() && rest > 0; ++item, --rest) {
        filled.items.emplace_back(value.indexToLinear(item->first, true), &item->second);
    }
    const auto isBefore = [](const auto& left, const auto& right) {
        return left.first < right.first;
    };
    std::stable_sort(filled.items.begin(), filled.items.end(), isBefore);
    // Of several items at one position the first is the one that look-ups find.
    const auto isSame = [](const auto& left, const auto& right) {
        return left.first == right.first;
    };
    filled.items.erase(std::unique(filled.items.begin(), filled.items.end(), isSame),
                       filled.items.end());
    if (!filled.items.empty()) {
        context_.gaps().add(filled.items.back().first + 1 - filled.items.size(),
                            filled.items.size());
    }
    return filled;
}

bool TzSoapContainerOutput::openArray(TzSoapTypeImp& value, std::string_view position) {
    const auto& array = static_cast<const TzSoapArrayTypeImp&>(value);
    if (array.isSparse()) {
        auto* const sparse = dynamic_cast<TzSoapSparseArrayImp*>(&value);
        if (sparse != nullptr) {
            open(*sparse, position);
        }
        return sparse != nullptr;
    }
    auto* const compact =
        array.isCompact() ? dynamic_cast<TzSoapCompactArrayImp*>(&value) : nullptr;
    if (compact != nullptr) {
        open(*compact, position);
    }
    return compact != nullptr;
}

[[gnu::hot]] bool TzSoapContainerOutput::writeNext(TzSoapConstVisitor& visitor, bool isServed) {
    // Writing may open another container and move this one: take the step before
    // writing.
    return std::visit([&](auto& rest) { return writeNext(visitor, isServed, rest); },
                      open_.back().rest);
}

[[gnu::hot]] bool TzSoapContainerOutput::writeNext(TzSoapConstVisitor& visitor, bool isServed,
                                                   Members& rest) {
    if (rest.texts != nullptr) {
        context_.xml().write(rest.texts->textBefore(rest.next), true);
    } else if (isServed) {
        rest.next = writeSimples(rest.next, rest.end);
    }
    if (rest.next == rest.end) {
        return false;
    }
    const TzSoapType& child = *rest.next++;
    if (isServed) {
        writeServed(visitor, child, false, {});
    } else {
        child.acceptVisitor(visitor);
    }
    return true;
}

[[gnu::hot]] bool TzSoapContainerOutput::writeNext(TzSoapConstVisitor& visitor, bool isServed,
                                                   Items& rest) {
    if (rest.gap > 0) {
        --rest.gap;
        values_.writePlaceholder({});
        return true;
    }
    if (isServed) {
        rest.next = writeSimples(rest.next, rest.end);
    }
    if (rest.next == rest.end) {
        return false;
    }
    writeItem(visitor, isServed, *rest.next++);
    return true;
}

[[gnu::hot]] bool TzSoapContainerOutput::writeNext(TzSoapConstVisitor& visitor, bool isServed,
                                                   FilledItems& rest) {
    if (rest.next == rest.items.size()) {
        return false;
    }
    const auto [position, item] = rest.items[rest.next];
    if (rest.position++ < position) {
        values_.writePlaceholder({});
    } else {
        ++rest.next;
        writeItem(visitor, isServed, *item);
    }
    return true;
}

void TzSoapContainerOutput::writeItem(TzSoapConstVisitor& visitor, bool isServed,
                                      const TzSoapType& item) {
    if (isServed) {
        writeServed(visitor, item, true, {});
    } else if (TzSoapArrayTypeImp::isPlaceholder(item)) {
        values_.writePlaceholder({});
    } else {
        item.acceptVisitor(visitor);
    }
}

template <typename Position>
Position TzSoapContainerOutput::writeSimples(Position next, Position end) {
    // Fast path: most values are simple; writing one opens no container.
    while (next != end) {
        TzSoapTypeImp& body = TzSoapAccess::body(*next);
        if (body.getSoapTypeId() != TzSoapContentBase::Simple || mayBeRepeated(body)) {
            break;
        }
        ++next;
        prefetchAfter(body);
        values_.writeSimple(static_cast<TzSoapSimpleTypeImp&>(body));
    }
    return next;
}

[[gnu::hot]] bool TzSoapContainerOutput::writeNext(TzSoapConstVisitor& visitor, bool isServed,
                                                   SparseItems& rest) {
    if (rest.next == rest.end || rest.count == 0) {
        return false;
    }
    const auto& [index, item] = *rest.next++;
    --rest.count;
    const TzCString position = TzSoapArrayTypeImp::vectorToString(index, true, context_.version());
    if (isServed) {
        writeServed(visitor, item, true, position);
    } else if (TzSoapArrayTypeImp::isPlaceholder(item)) {
        values_.writePlaceholder(position);
    } else {
        visitAt(visitor, item, position);
    }
    return true;
}

bool TzSoapContainerOutput::mayBeRepeated(const TzSoapTypeImp& value) const {
    return context_.habits().targetsInline && !value.getAttributeSet().empty();
}

bool TzSoapContainerOutput::writeRepeated(const TzSoapType& value, std::string_view position) {
    const TzSoapTypeImp& body = TzSoapAccess::body(value);
    if (!context_.targets().isRepeated(body)) {
        return false;
    }
    // An id may stand in one place of a message only.
    const TzSoapReferenceType reference(body.getName(), value);
    values_.writeReference(TzSoapAccess::body(reference), position);
    return true;
}

void TzSoapContainerOutput::writeReference(TzSoapConstVisitor& visitor, bool isServed,
                                           TzSoapReferenceTypeImp& value,
                                           std::string_view position) {
    TzSoapReferenceTypeImp* reference = &value;
    // A target may be a reference itself, and so on.
    while (context_.habits().targetsInline && context_.targets().takePlace(*reference)) {
        const TzSoapType target = inPlaceOf(*reference);
        inPlace_.push_back(target);
        TzSoapTypeImp& body = TzSoapAccess::body(target);
        if (body.getSoapTypeId() != TzSoapContentBase::Reference) {
            return isServed ? writeServed(visitor, target, false, position)
                            : target.acceptVisitor(visitor);
        }
        reference = &static_cast<TzSoapReferenceTypeImp&>(body);
    }
    values_.writeReference(*reference, position);
}

TzSoapType TzSoapContainerOutput::inPlaceOf(TzSoapReferenceTypeImp& reference) const {
    // Others refer to the target, too: it keeps its own name.
    TzSoapType target = reference.getSoapReference().copy();
    TzSoapTypeImp& body = TzSoapAccess::body(target);
    body.setName(std::as_const(reference).getName());
    TzSoapAttributeSet& attributes = body.getAttributeSet();
    for (const TzXmlAttribute& attribute : std::as_const(reference).getAttributeSet()) {
        const TzXmlName& name = attribute.getName();
        if (!isReferenceText(name, context_.version()) &&
            std::as_const(attributes).find(name) == attributes.end()) {
            attributes.add(attribute);
        }
    }
    return target;
}

void TzSoapContainerOutput::visitAt(TzSoapConstVisitor& visitor, const TzSoapType& item,
                                    const TzCString& position) {
    // The visitor sees the position in a copy; the item stays unchanged.
    const TzSoapType placed = item.copy();
    TzXmlName name = context_.soap().getSoapAttributeQName(TzSoapVersion::Position);
    name.setPrefix(context_.scope().encodingPrefix());
    TzSoapAccess::body(placed).getAttributeSet().add(name, position);
    placed.acceptVisitor(visitor);
}

[[gnu::hot]] void TzSoapContainerOutput::writeServed(TzSoapConstVisitor& visitor,
                                                     const TzSoapType& value, bool isItem,
                                                     std::string_view position) {
    TzSoapTypeImp& body = TzSoapAccess::body(value);
    if (mayBeRepeated(body) && writeRepeated(value, position)) {
        return;
    }
    switch (body.getSoapTypeId()) {
    case TzSoapContentBase::Simple:
        return position.empty()
                   ? values_.writeSimple(static_cast<TzSoapSimpleTypeImp&>(body))
                   : values_.writeSimpleAt(static_cast<TzSoapSimpleTypeImp&>(body), position);
    case TzSoapContentBase::Composite:
        return open(std::as_const(body).getName(), static_cast<TzSoapCompositeTypeImp&>(body),
                    position);
    case TzSoapContentBase::UserDefined:
        return values_.writeUserDefined(static_cast<TzSoapUserDefinedTypeImp&>(body), position);
    case TzSoapContentBase::Reference:
        return writeReference(visitor, true, static_cast<TzSoapReferenceTypeImp&>(body), position);
    case TzSoapContentBase::Misunderstood:
        return values_.writeMisunderstood(body, position);
    case TzSoapContentBase::Generic:
        return isItem && TzSoapArrayTypeImp::isPlaceholder(value)
                   ? values_.writePlaceholder(position)
                   : values_.writeGeneric(body, position);
    case TzSoapContentBase::Array:
        if (openArray(body, position)) {
            return;
        }
    }
    // A body of another class that claims one of these kinds goes to the visitor.
    value.acceptVisitor(visitor);
}

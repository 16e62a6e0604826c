// SPDX-License-Identifier: MIT
#include "output/TzSoapContainerOutput.h"

#include <soap/TzSoapArrayTypeImp.h>
#include <soap/TzSoapCompositeTypeImp.h>
#include <soap/TzSoapConstVisitor.h>
#include <soap/TzSoapReferenceTypeImp.h>
#include <soap/TzSoapSimpleTypeImp.h>
#include <soap/TzSoapUserDefinedTypeImp.h>
#include <tz/xml/TzXmlUtils.h>

#include "model/TzSoapAccess.h"

#include <limits>
#include <utility>

/// Writes the contents of a container and of all containers within; when an error passes, closes
/// the containers that it opened.
class TzSoapContainerOutput::Run {
public:
    explicit Run(TzSoapContainerOutput& output)
        : output_(output), containers_(output.open_.size()),
          depth_(output.context_.scope().depth()),
          indentation_(output.context_.xml().getIndentation()) {}
    ~Run() {
        output_.open_.erase(output_.open_.begin() + static_cast<std::ptrdiff_t>(containers_),
                            output_.open_.end());
        output_.context_.scope().closeTo(depth_);
        output_.context_.xml().setIndentation(indentation_);
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
                                  TzSoapCompositeTypeImp& value, std::string_view text) {
    Run run(*this);
    open(name, value, {});
    if (!TzXmlUtils::trim(text).empty() && !TzSoapValueOutput::isNil(value)) {
        context_.xml().write(text, true);
        context_.xml().writeNewLine();
    }
    run.finish(visitor, context_.isServed(visitor));
}

void TzSoapContainerOutput::write(TzSoapConstVisitor& visitor, TzSoapCompactArrayImp& value) {
    Run run(*this);
    open(value, {});
    run.finish(visitor, context_.isServed(visitor));
}

void TzSoapContainerOutput::write(TzSoapConstVisitor& visitor, TzSoapSparseArrayImp& value) {
    Run run(*this);
    open(value, {});
    run.finish(visitor, context_.isServed(visitor));
}

void TzSoapContainerOutput::writeChild(TzSoapConstVisitor& visitor, const TzSoapType& child) {
    if (!context_.isServed(visitor)) {
        child.acceptVisitor(visitor);
        return;
    }
    TzSoapTypeImp& body = TzSoapAccess::body(child);
    if (body.getSoapTypeId() == TzSoapContentBase::Simple) {
        values_.writeSimple(static_cast<TzSoapSimpleTypeImp&>(body));
        return;
    }
    Run run(*this);
    writeServed(visitor, child, false, {});
    run.finish(visitor, true);
}

template <typename Rest>
void TzSoapContainerOutput::enter(const TzXmlName& name, const TzSoapTypeImp& value,
                                  const Rest& rest) {
    if (open_.empty()) {
        open_.reserve(16); // enough for most messages
    }
    open_.push_back({&name, context_.scope().depth(), rest});
    context_.scope().openHolder(&value);
}

void TzSoapContainerOutput::close() {
    const Container& container = open_.back();
    TzSoapTagName::of(*container.name).endBlock(context_.xml());
    context_.scope().closeTo(container.depth);
    open_.pop_back();
}

void TzSoapContainerOutput::open(const TzXmlName& name, TzSoapCompositeTypeImp& value,
                                 std::string_view position) {
    const auto& members = std::as_const(value);
    const bool nil = TzSoapValueOutput::isNil(value);
    const bool hasText = !nil && context_.rules().style().keepsAll && members.children().hasText();
    enter(name, value,
          Members{{nil ? members.childrenEnd() : members.childrenBegin(), members.childrenEnd()},
                  hasText ? &members.children() : nullptr});
    const TzSoapTagName tag = TzSoapTagName::of(name);
    TzSoapStartTag::Brief brief;
    if (position.empty() &&
        startTag_.isBrief(tag, name, value, value.getTypeValue(), false, brief)) {
        context_.xml().writeMarkupLine(TzXmlWriter::StartTag, tag.prefix, tag.colon, tag.local,
                                       brief.open, brief.typePrefix, brief.typeColon, brief.type,
                                       brief.close);
        context_.xml().incrementIndent();
    } else {
        startTag_.begin(value.getAttributeSet());
        startTag_.qualifyName(name);
        startTag_.collectValue(value, value.getTypeValue(), position);
        startTag_.ensureStyle();
        startTag_.qualifyStyle();
        startTag_.writeBlock(tag);
        context_.book().noteWritten(value);
    }
    if (nil && value.childCount() != 0) {
        context_.book().noteOmission();
    }
}

void TzSoapContainerOutput::open(TzSoapCompactArrayImp& value, std::string_view position) {
    Items items{};
    if (!TzSoapValueOutput::isNil(value)) {
        const auto range = value.itemsToWrite();
        items = {range.begin(), range.end()};
    }
    enter(std::as_const(value).getName(), value, items);
    startArray(value, position);
}

void TzSoapContainerOutput::open(TzSoapSparseArrayImp& value, std::string_view position) {
    const auto& items = std::as_const(value);
    const unsigned int count = value.getCountElementsToWrite();
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

bool TzSoapContainerOutput::writeNext(TzSoapConstVisitor& visitor, bool isServed) {
    // Writing may open another container and move this one: take the step before
    // writing.
    return std::visit([&](auto& rest) { return writeNext(visitor, isServed, rest); },
                      open_.back().rest);
}

bool TzSoapContainerOutput::writeNext(TzSoapConstVisitor& visitor, bool isServed, Members& rest) {
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

bool TzSoapContainerOutput::writeNext(TzSoapConstVisitor& visitor, bool isServed, Items& rest) {
    if (isServed) {
        rest.next = writeSimples(rest.next, rest.end);
    }
    if (rest.next == rest.end) {
        return false;
    }
    const TzSoapType& item = *rest.next++;
    if (isServed) {
        writeServed(visitor, item, true, {});
    } else if (TzSoapArrayTypeImp::isPlaceholder(item)) {
        values_.writePlaceholder({});
    } else {
        item.acceptVisitor(visitor);
    }
    return true;
}

template <typename Position>
Position TzSoapContainerOutput::writeSimples(Position next, Position end) {
    // Fast path: most values are simple; writing one opens no container.
    for (; next != end; ++next) {
        TzSoapTypeImp& body = TzSoapAccess::body(*next);
        if (body.getSoapTypeId() != TzSoapContentBase::Simple) {
            break;
        }
        values_.writeSimple(static_cast<TzSoapSimpleTypeImp&>(body));
    }
    return next;
}

bool TzSoapContainerOutput::writeNext(TzSoapConstVisitor& visitor, bool isServed,
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

void TzSoapContainerOutput::visitAt(TzSoapConstVisitor& visitor, const TzSoapType& item,
                                    const TzCString& position) {
    // The visitor sees the position in a copy; the item stays unchanged.
    const TzSoapType placed = item.copy();
    TzXmlName name = context_.soap().getSoapAttributeQName(TzSoapVersion::Position);
    name.setPrefix(context_.scope().encodingPrefix());
    TzSoapAccess::body(placed).getAttributeSet().add(name, position);
    placed.acceptVisitor(visitor);
}

void TzSoapContainerOutput::writeServed(TzSoapConstVisitor& visitor, const TzSoapType& value,
                                        bool isItem, std::string_view position) {
    TzSoapTypeImp& body = TzSoapAccess::body(value);
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
        return values_.writeReference(static_cast<TzSoapReferenceTypeImp&>(body), position);
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

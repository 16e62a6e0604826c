// SPDX-License-Identifier: MIT
#include "view/TzSoapEntryReading.h"

#include <soap/TzSoapFaultImp.h>
#include <soap/TzSoapParseContext.h>
#include <tz/xml/TzThrow.h>
#include <tz/xml/TzXmlSAXParser.h>

#include "model/TzSoapAccess.h"
#include "model/TzSoapVersionTable.h"
#include "reading/TzSoapReadingState.h"
#include "view/TzSoapViewPath.h"

#include <algorithm>
#include <utility>

namespace {

/// Bytes between two looks at the length of a record.
constexpr std::size_t PieceSize = std::size_t{64} * 1024;

} // namespace

/// Passes over one element.
class TzSoapEntryReading::Skipper final : public TzSoapContentHandler {
public:
    explicit Skipper(TzSoapEntryReading& reading) noexcept : reading_(reading) {}

    /// Its start tag was read.
    void skip(TzSoapParseContext* context) {
        depth_ = 1;
        acceptEvents(context);
    }
    void startElement(const TzXmlName&, const TzXmlAttributeSet&) override {
        reading_.noteProgress();
        ++depth_;
    }
    void endElement(const TzXmlName&) override {
        reading_.noteProgress();
        if (--depth_ == 0) {
            declineEvents();
        }
    }
    void characters(const TzCString&) override {}

private:
    TzSoapEntryReading& reading_;
    std::size_t depth_ = 0;
};

/// Reads the children of Body or of an element on the path.
class TzSoapEntryReading::Level final : public TzSoapGenericTypeHandler {
public:
    Level(TzSoapEntryReading& reading, std::size_t depth) noexcept
        : reading_(reading), depth_(depth) {}

    /// The element starts; `path` leads to it.
    void enter(const TzXmlName& name, const TzXmlAttributeSet& attributes, TzCString path) {
        element_ = TzSoapElementImp();
        path_ = std::make_shared<const TzCString>(std::move(path));
        numbers_.clear();
        begin(element_, name, attributes, &reading_.context());
    }
    void startElement(const TzXmlName& name, const TzXmlAttributeSet& attributes) override;
    void endElement(const TzXmlName& name) override {
        deliver();
        TzSoapGenericTypeHandler::endElement(name);
    }
    void characters(const TzCString& text) override {
        deliver();
        TzSoapGenericTypeHandler::characters(text);
    }
    void addChild(const TzSoapType& child) override { record_ = child; }
    void takeChild(TzSoapType&& child) override { record_ = std::move(child); }

private:
    bool isFault(const TzXmlName& name) const {
        return depth_ == 0 &&
               reading_.getSoapVersion().matchSoapElement(name, TzSoapVersion::Fault);
    }
    std::size_t count(const TzCString& name);
    void startRecord(const TzXmlName& name, const TzXmlAttributeSet& attributes);
    void deliver();

    TzSoapEntryReading& reading_;
    std::size_t depth_; // below Body
    TzSoapElementImp element_;
    std::shared_ptr<const TzCString> path_;
    std::vector<std::pair<TzCString, std::size_t>> numbers_; // of children at the path, by name
    std::size_t number_ = 0;                                 // of the latest one
    std::optional<TzSoapType> record_;
    std::size_t line_ = 0; // where it begins
    std::size_t column_ = 0;
};

void TzSoapEntryReading::Level::startElement(const TzXmlName& name,
                                             const TzXmlAttributeSet& attributes) {
    deliver();
    reading_.noteProgress();
    const TzCString& step = reading_.steps_[depth_];
    if (isFault(name)) {
        const TzSoapFault& fault = reading_.getSoapBody().getSoapFault();
        TzSoapAccess::body(fault).populate(name, attributes, context());
    } else if (step != "*" && step != name.getLocalName()) {
        reading_.skipper_->skip(context());
    } else if (number_ = count(name.getLocalName()); depth_ + 1 == reading_.steps_.size()) {
        startRecord(name, attributes);
    } else {
        reading_.levels_[depth_ + 1]->enter(
            name, attributes, tzSoapJoined(*path_, tzSoapNumbered(name.getLocalName(), number_)));
    }
}

/// The number of this child of that name; 0, which paths do not show, after many different names,
/// because they would take memory.
std::size_t TzSoapEntryReading::Level::count(const TzCString& name) {
    constexpr std::size_t ManyNames = 16;
    const auto known = std::find_if(numbers_.begin(), numbers_.end(),
                                    [&name](const auto& each) { return each.first == name; });
    if (known != numbers_.end()) {
        return ++known->second;
    }
    if (numbers_.size() == ManyNames) {
        return 0;
    }
    numbers_.emplace_back(name, 1);
    return 1;
}

void TzSoapEntryReading::Level::startRecord(const TzXmlName& name,
                                            const TzXmlAttributeSet& attributes) {
    TzSoapReadingState& state = TzSoapAccess::reading(*context());
    line_ = state.parser->getLine();
    column_ = state.parser->getColumn();
    TzSoapGenericTypeHandler::startElement(name, attributes);
}

/// The next event after a record shows that it is complete.
void TzSoapEntryReading::Level::deliver() {
    if (!record_) {
        return;
    }
    TzSoapType record = *std::move(record_);
    record_.reset();
    reading_.forgetReferences();
    try {
        if (!reading_.take_(std::move(record), path_, number_)) {
            throw Stopped();
        }
    } catch (Tzxmsg& error) {
        error.addPlace(line_, column_);
        throw;
    }
}

TzSoapEntryReading::TzSoapEntryReading(std::vector<TzCString> steps, std::size_t recordLimit,
                                       Take take)
    : TzSoapMessageImp(TzSoapVersion::getLatestVersion()), steps_(std::move(steps)),
      recordLimit_(recordLimit), take_(std::move(take)),
      skipper_(std::make_unique<Skipper>(*this)) {
    for (std::size_t depth = 0; depth < steps_.size(); ++depth) {
        levels_.push_back(std::make_unique<Level>(*this, depth));
    }
}

TzSoapEntryReading::~TzSoapEntryReading() = default;

void TzSoapEntryReading::begin() {
    prepare(0);
    isReading_ = true;
}

void TzSoapEntryReading::end() noexcept {
    if (std::exchange(isReading_, false)) {
        TzSoapReadingState& state = TzSoapAccess::reading(context());
        droppedText_ = state.droppedText;
        state.references.dropTargets();
        state.clear();
        parser().setContentHandler(nullptr);
        parser().abandon();
    }
}

void TzSoapEntryReading::startElement(const TzXmlName& name, const TzXmlAttributeSet& attributes) {
    noteProgress();
    if (isReading_ && readState_ == InEnvelope &&
        getSoapVersion().matchSoapElement(name, TzSoapVersion::Body)) {
        // Those of the header have their targets.
        TzSoapAccess::reading(context()).references.keepTargets();
        forgetReferences();
        levels_.front()->enter(name, attributes, {});
    } else {
        TzSoapMessageImp::startElement(name, attributes);
    }
}

bool TzSoapEntryReading::feed(std::string_view chunk) {
    return run([this, chunk]() mutable {
        while (!chunk.empty()) {
            const std::string_view piece = chunk.substr(0, PieceSize);
            chunk.remove_prefix(piece.size());
            TzSoapAccess::reading(context()).budget.addText(piece.size());
            parser().feed(piece);
            fed_ += piece.size();
            requireShort();
        }
    });
}

bool TzSoapEntryReading::finish() {
    return run([this] { parser().finish(); });
}

template <typename Work> bool TzSoapEntryReading::run(Work work) {
    try {
        work();
    } catch (const Stopped&) {
        return false;
    }
    return true;
}

void TzSoapEntryReading::requireShort() {
    if (fed_ - mark_ > recordLimit_ && fed_ - mark_ > PieceSize) {
        TzThrow(tzWithDetail(
            TzXmlParseError::at("a record is too long", parser().getLine(), parser().getColumn()),
            "the limit is " + std::to_string(recordLimit_)));
    }
}

/// Ids and references of what was handed over take memory, and would keep it alive.
void TzSoapEntryReading::forgetReferences() {
    TzSoapReferenceTable& references = TzSoapAccess::reading(context()).references;
    references.clear();
    references.setIdName(TzSoapVersionTable::of(getVersion()).term(TzSoapVersionTable::Id));
}

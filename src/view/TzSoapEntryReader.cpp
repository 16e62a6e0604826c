// SPDX-License-Identifier: MIT
#include <soap/TzSoapEntryReader.h>

#include <soap/TzSoapMessage.h>
#include <tz/xml/TzThrow.h>

#include "model/TzSoapAccess.h"
#include "view/TzSoapEntryReading.h"

#include <algorithm>
#include <istream>
#include <vector>

namespace {

std::vector<TzCString> stepsOf(std::string_view path) {
    std::vector<TzCString> steps;
    std::size_t slash = 0;
    do {
        slash = path.find('/');
        steps.emplace_back(path.substr(0, slash));
        if (steps.back().empty()) {
            TzThrow(TzXmlBadArgError(TzMessage("a path of records has a step without a name")));
        }
        path.remove_prefix(std::min(slash, path.size() - 1) + 1);
    } while (slash != std::string_view::npos);
    return steps;
}

} // namespace

/// The settings, and the text that is read.
struct TzSoapEntryReader::State {
    std::vector<TzCString> steps;
    Visit visit;
    TzSoapStyle style = TzSoapStyle::Literal;
    TzSoapReadLimits limits;
    std::size_t recordLimit = DefaultRecordLimit;
    TzSoapMessage message;
    TzSoapEntryReading* reading = nullptr; // the body of the message while it reads
    std::size_t records = 0;
    bool isStopped = false;

    State() = default;
    State(const State&) = delete;
    State& operator=(const State&) = delete;
    ~State() { end(); }

    /// The program may hold the message longer than the reading goes on.
    void end() noexcept {
        if (TzSoapEntryReading* const ended = std::exchange(reading, nullptr)) {
            ended->end();
        }
    }
    /// Does `work` with the reading, which an error ends; the next chunk begins another text.
    template <typename Work> void run(const Work& work) {
        struct Ending {
            State* state;
            ~Ending() {
                if (state != nullptr) {
                    state->end();
                }
            }
        } ending{this};
        isStopped = !work(*reading);
        ending.state = nullptr;
    }
};

TzSoapEntryReader::TzSoapEntryReader(Visit visit, std::string_view path)
    : state_(std::make_unique<State>()) {
    state_->steps = stepsOf(path);
    state_->visit = std::move(visit);
}

TzSoapEntryReader::TzSoapEntryReader(TzSoapEntryReader&&) noexcept = default;

TzSoapEntryReader& TzSoapEntryReader::operator=(TzSoapEntryReader&&) noexcept = default;

TzSoapEntryReader::~TzSoapEntryReader() = default;

void TzSoapEntryReader::setStyle(TzSoapStyle style) noexcept { state_->style = style; }

void TzSoapEntryReader::setReadLimits(const TzSoapReadLimits& limits) noexcept {
    state_->limits = limits;
}

void TzSoapEntryReader::setRecordLimit(std::size_t bytes) noexcept { state_->recordLimit = bytes; }

void TzSoapEntryReader::begin() {
    State& state = *state_;
    state.end();
    state.records = 0;
    state.isStopped = false;
    const auto take = [&state](TzSoapType&& record, const std::shared_ptr<const TzCString>& above,
                               std::size_t number) {
        ++state.records;
        return state.visit(TzSoapView(record, above, number));
    };
    auto* const reading = new TzSoapEntryReading(state.steps, state.recordLimit, take);
    state.message = TzSoapAccess::handle<TzSoapMessage>(static_cast<TzSoapMessageImp*>(reading));
    reading->setStyle(state.style);
    reading->setReadLimits(state.limits);
    reading->begin();
    state.reading = reading;
}

void TzSoapEntryReader::feed(std::string_view chunk) {
    if (state_->reading == nullptr) {
        begin();
    }
    if (!state_->isStopped) {
        state_->run([chunk](TzSoapEntryReading& reading) { return reading.feed(chunk); });
    }
}

void TzSoapEntryReader::finish() {
    if (state_->reading == nullptr) {
        begin();
    }
    if (!state_->isStopped) {
        state_->run([](TzSoapEntryReading& reading) { return reading.finish(); });
    }
    state_->end();
}

void TzSoapEntryReader::read(std::string_view text) {
    begin();
    feed(text);
    finish();
}

void TzSoapEntryReader::read(std::istream& stream) {
    begin();
    std::vector<char> piece(std::size_t{64} * 1024);
    while (stream && !state_->isStopped) {
        stream.read(piece.data(), static_cast<std::streamsize>(piece.size()));
        feed({piece.data(), static_cast<std::size_t>(stream.gcount())});
    }
    if (stream.bad()) {
        state_->end();
        TzThrow(TzXmlError("the stream of a message broke"));
    }
    finish();
}

bool TzSoapEntryReader::isStopped() const noexcept { return state_->isStopped; }

std::size_t TzSoapEntryReader::getRecordCount() const noexcept { return state_->records; }

const TzSoapMessage& TzSoapEntryReader::getMessage() const noexcept { return state_->message; }

// SPDX-License-Identifier: MIT
#include "xml/TzXmlCharacterTable.h"
#include "xml/TzXmlEventSink.h"
#include "xml/TzXmlEventSource.h"

#include <tz/xml/TzXmlParseError.h>

#include <expat.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <cstdint>
#include <exception>
#include <new>
#include <type_traits>
#include <utility>
#include <vector>

static_assert(std::is_same_v<XML_Char, char>, "Expat has to be built for UTF-8");

namespace {

struct ParserDeleter {
    void operator()(XML_Parser parser) const noexcept { XML_ParserFree(parser); }
};

using Parser = std::unique_ptr<std::remove_pointer_t<XML_Parser>, ParserDeleter>;

/// Making a parser takes longer than reading a short text, so a thread keeps the one of its latest
/// short text for the next. Null while the thread ends: other thread_local objects may still read.
Parser* spareParser() noexcept {
    thread_local bool threadEnds = false; // trivially destructible: readable to the last
    struct Spare {
        Parser parser;
        ~Spare() { threadEnds = true; }
    };
    thread_local Spare spare;
    return threadEnds ? nullptr : &spare.parser;
}

/// A parser that has read more than this goes: what it holds can be twenty times the text.
constexpr std::size_t ShortText = std::size_t{4} * 1024;

Parser makeParser(const char* encoding) {
    Parser* const spare = spareParser();
    Parser parser = spare != nullptr ? std::move(*spare) : nullptr;
    if (parser == nullptr || XML_ParserReset(parser.get(), encoding) != XML_TRUE) {
        parser.reset(XML_ParserCreate(encoding));
    }
    if (parser == nullptr) {
        throw std::bad_alloc();
    }
    return parser;
}

/// A number that no sender can guess. Asks the kernel and opens no file; where the kernel has
/// none to give, the places of code and data have to do.
std::uint64_t drawSecret() noexcept {
    std::uint64_t secret = 0;
    if (getentropy(&secret, sizeof(secret)) != 0) {
        const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
        secret = static_cast<std::uint64_t>(now) ^ reinterpret_cast<std::uintptr_t>(&drawSecret) ^
                 reinterpret_cast<std::uintptr_t>(&secret) << 16;
    }
    return secret;
}

/// A salt that a sender cannot guess: drawn from the system once, then changed for each parser.
/// Expat would otherwise draw a new one for every text.
unsigned long nextSalt() {
    static const std::uint64_t secret = drawSecret();
    static std::atomic<std::uint64_t> drawn{0};
    // The mixing of SplitMix64: neighbouring numbers give unrelated salts.
    std::uint64_t salt = secret + ++drawn * 0x9E3779B97F4A7C15U;
    salt = (salt ^ salt >> 30) * 0xBF58476D1CE4E5B9U;
    salt = (salt ^ salt >> 27) * 0x94D049BB133111EBU;
    return static_cast<unsigned long>(salt ^ salt >> 31) | 1U;
}

class ExpatSource final : public TzXmlEventSource {
public:
    ExpatSource(TzXmlEventSink& sink, TzXmlKnownEncoding encoding,
                const TzXmlEventCount& delivered);
    ~ExpatSource() override;

    void feed(std::string_view piece, bool last) override;
    std::size_t line() const noexcept override {
        return failure_ != nullptr ? failed_.line : XML_GetCurrentLineNumber(parser_.get());
    }
    std::size_t column() const noexcept override {
        return failure_ != nullptr ? failed_.column : XML_GetCurrentColumnNumber(parser_.get()) + 1;
    }
    std::size_t offset() const noexcept override {
        return failure_ != nullptr
                   ? failed_.offset
                   : static_cast<std::size_t>(XML_GetCurrentByteIndex(parser_.get()));
    }
    std::size_t length() const noexcept override {
        return failure_ != nullptr
                   ? failed_.length
                   : static_cast<std::size_t>(XML_GetCurrentByteCount(parser_.get()));
    }

private:
    void deliverFromHere() noexcept;
    void skip(std::string_view name = {}) noexcept;
    std::span<const TzXmlSpelledAttribute> viewed(const char** attributes);

    // An exception must not cross the C code: it is kept here and thrown again by feed.
    template <typename Event> static void deliver(void* data, Event event) noexcept {
        auto& self = *static_cast<ExpatSource*>(data);
        try {
            event(self, self.sink_);
        } catch (...) {
            self.stop(std::current_exception());
        }
    }
    void stop(std::exception_ptr failure) noexcept;
    [[noreturn]] void fail() const;

    static void XMLCALL onDeclaration(void* data, const char* version, const char* encoding,
                                      int standalone);
    static void XMLCALL onDocumentType(void* data, const char*, const char*, const char*, int);
    static void XMLCALL onStart(void* data, const char* name, const char** attributes);
    static void XMLCALL onEnd(void* data, const char*);
    static void XMLCALL onText(void* data, const char* begin, int length);
    static void XMLCALL skipDeclaration(void* data, const char*, const char*, int);
    static void XMLCALL skipStart(void* data, const char* name, const char**);
    static void XMLCALL skipEnd(void* data, const char*);
    static int XMLCALL onEncoding(void* data, const char* name, XML_Encoding* encoding);

    Parser parser_;
    TzXmlEventSink& sink_;
    const TzXmlEventCount delivered_; // not to be delivered again
    TzXmlEventCount seen_;            // of these
    std::vector<TzXmlSpelledAttribute> attributes_;
    std::exception_ptr failure_;
    struct {
        std::size_t line = 0;
        std::size_t column = 0;
        std::size_t offset = 0;
        std::size_t length = 0;
    } failed_;            // the event that failed: Expat goes on to the next one when it is stopped
    std::size_t fed_ = 0; // bytes so far
    TzCString unknownEncoding_;
    bool ended_ = false; // the whole text was read
};

ExpatSource::ExpatSource(TzXmlEventSink& sink, TzXmlKnownEncoding encoding,
                         const TzXmlEventCount& delivered)
    : parser_(makeParser(encoding == TzXmlKnownEncoding::Utf8 ? "UTF-8" : nullptr)), sink_(sink),
      delivered_(delivered) {
    XML_SetHashSalt(parser_.get(), nextSalt());
    XML_SetUserData(parser_.get(), this);
    XML_SetStartDoctypeDeclHandler(parser_.get(), onDocumentType);
    XML_SetUnknownEncodingHandler(parser_.get(), onEncoding, this);
    if (seen_.reached(delivered_)) {
        deliverFromHere();
    } else {
        XML_SetXmlDeclHandler(parser_.get(), skipDeclaration);
        XML_SetElementHandler(parser_.get(), skipStart, skipEnd);
    }
}

void ExpatSource::deliverFromHere() noexcept {
    XML_SetXmlDeclHandler(parser_.get(), onDeclaration);
    XML_SetElementHandler(parser_.get(), onStart, onEnd);
    XML_SetCharacterDataHandler(parser_.get(), onText);
}

void ExpatSource::skip(std::string_view name) noexcept {
    seen_.add(name);
    sink_.noteSkipped();
    if (seen_.reached(delivered_)) {
        deliverFromHere();
    }
}

ExpatSource::~ExpatSource() {
    Parser* const spare = ended_ && fed_ <= ShortText ? spareParser() : nullptr;
    if (spare != nullptr) {
        *spare = std::move(parser_);
    }
}

void ExpatSource::feed(std::string_view piece, bool last) {
    const XML_Status status =
        XML_Parse(parser_.get(), piece.data(), static_cast<int>(piece.size()), last ? 1 : 0);
    if (failure_ != nullptr) {
        std::rethrow_exception(failure_);
    }
    if (status == XML_STATUS_ERROR || last) {
        seen_.expectReached(delivered_);
    }
    if (status == XML_STATUS_ERROR) {
        fail();
    }
    fed_ += piece.size();
    ended_ = last;
}

void ExpatSource::stop(std::exception_ptr failure) noexcept {
    failed_ = {line(), column(), offset(), length()};
    failure_ = std::move(failure);
    // Expat still ends the element of an empty-element tag after it was stopped.
    XML_SetElementHandler(parser_.get(), nullptr, nullptr);
    XML_SetCharacterDataHandler(parser_.get(), nullptr);
    XML_StopParser(parser_.get(), XML_FALSE);
}

void ExpatSource::fail() const {
    const XML_Error error = XML_GetErrorCode(parser_.get());
    if (error == XML_ERROR_NO_MEMORY) {
        throw std::bad_alloc();
    }
    TzXmlParseError refused = TzXmlParseError::at(XML_ErrorString(error), line(), column());
    if (error == XML_ERROR_UNKNOWN_ENCODING && !unknownEncoding_.empty()) {
        refused.addDetail("the encoding is \"" + unknownEncoding_.substr(0, 80) + "\"");
    }
    throw refused;
}

void ExpatSource::onDeclaration(void* data, const char* version, const char* encoding,
                                int standalone) {
    deliver(data, [=](ExpatSource&, TzXmlEventSink& sink) {
        sink.declaration(version != nullptr ? version : "", encoding != nullptr ? encoding : "",
                         standalone);
    });
}

void ExpatSource::onDocumentType(void* data, const char*, const char*, const char*, int) {
    deliver(data, [](ExpatSource&, TzXmlEventSink& sink) { sink.documentType(); });
}

[[gnu::hot]] void ExpatSource::onStart(void* data, const char* name, const char** attributes) {
    deliver(data, [=](ExpatSource& self, TzXmlEventSink& sink) {
        sink.startTag(name, self.viewed(attributes));
    });
}

[[gnu::hot]] void ExpatSource::onEnd(void* data, const char*) {
    deliver(data, [](ExpatSource&, TzXmlEventSink& sink) { sink.endTag(); });
}

[[gnu::hot]] void ExpatSource::onText(void* data, const char* begin, int length) {
    deliver(data, [=](ExpatSource&, TzXmlEventSink& sink) {
        sink.text({begin, static_cast<std::size_t>(length)});
    });
}

/// `attributes`, which are name, value, name, value ... null.
std::span<const TzXmlSpelledAttribute> ExpatSource::viewed(const char** attributes) {
    attributes_.clear();
    for (; *attributes != nullptr; attributes += 2) {
        attributes_.push_back({attributes[0], attributes[1]});
    }
    return attributes_;
}

void ExpatSource::skipDeclaration(void* data, const char*, const char*, int) {
    static_cast<ExpatSource*>(data)->skip();
}

void ExpatSource::skipStart(void* data, const char* name, const char**) {
    static_cast<ExpatSource*>(data)->skip(name);
}

void ExpatSource::skipEnd(void* data, const char*) { static_cast<ExpatSource*>(data)->skip(); }

int ExpatSource::onEncoding(void* data, const char* name, XML_Encoding* encoding) {
    encoding->data = nullptr;
    encoding->convert = nullptr;
    encoding->release = nullptr;
    if (TzXmlCharacterTable::fill(name, encoding->map)) {
        return XML_STATUS_OK;
    }
    auto& self = *static_cast<ExpatSource*>(data);
    try {
        self.unknownEncoding_ = name;
    } catch (const std::bad_alloc&) {
        self.stop(std::current_exception());
    }
    return XML_STATUS_ERROR;
}

} // namespace

std::unique_ptr<TzXmlEventSource> tzMakeExpatSource(TzXmlEventSink& sink,
                                                    TzXmlKnownEncoding encoding,
                                                    const TzXmlEventCount& delivered) {
    return std::make_unique<ExpatSource>(sink, encoding, delivered);
}

// SPDX-License-Identifier: MIT
#include "reading/TzSoapStylesInForce.h"

#include <soap/TzSoapUtils.h>
#include <soap/TzSoapVersion.h>

#include "model/TzSoapVersionTable.h"

#include <utility>

TzSoapStylesInForce::TzSoapStylesInForce() = default;

TzSoapStylesInForce::~TzSoapStylesInForce() = default;

TzSoapStyleInForce TzSoapStylesInForce::meaningOf(const TzCString& text) const {
    TzCString first(TzSoapUtils::firstEncodingStyle(text));
    const bool soapEncoding = first.empty() || TzSoapVersion::isSoapEncodingStyle(first) ||
                              (table_ != nullptr && table_->isSettled(first));
    return {text, std::move(first), {}, soapEncoding};
}

void TzSoapStylesInForce::push(const TzCString& text) {
    if (texts_ != nullptr) {
        texts_->push(text);
    } else if (!text.empty() && known_.text == text && knownTable_ == table_) {
        meanings_.push_back(std::move(known_));
        known_.text.clear();
    } else {
        meanings_.push_back(meaningOf(text));
    }
}

void TzSoapStylesInForce::pop() {
    if (texts_ != nullptr) {
        texts_->pop();
    } else {
        meanings_.pop_back();
    }
}

TzSoapStylesInForce::Texts& TzSoapStylesInForce::expose() {
    if (texts_ == nullptr) {
        auto texts = std::make_unique<Texts>();
        for (const TzSoapStyleInForce& meaning : meanings_) {
            texts->push(meaning.text);
        }
        texts_ = std::move(texts);
    }
    return *texts_;
}

void TzSoapStylesInForce::compare() {
    // What is below the innermost text is compared when it becomes the innermost one.
    meanings_.resize(texts_->size());
    if (!meanings_.empty() && meanings_.back().text != texts_->top()) {
        meanings_.back() = meaningOf(texts_->top());
    }
}

TzSharedRecord<TzCString> TzSoapStylesInForce::share(const TzCString& style) {
    TzSoapStyleInForce& meaning = inForce();
    if (meaning.first != style) {
        return TzSharedRecord<TzCString>(style);
    }
    if (meaning.shared->empty()) {
        meaning.shared = TzSharedRecord<TzCString>(style);
    }
    return meaning.shared;
}

void TzSoapStylesInForce::clear() noexcept {
    constexpr std::size_t LongStyle = 256;
    if (texts_ == nullptr && !meanings_.empty()) {
        TzSoapStyleInForce& style = meanings_.front();
        if (style.soapEncoding && style.text.size() <= LongStyle) {
            known_ = std::move(style);
            knownTable_ = table_;
        }
    }
    table_ = nullptr;
    meanings_.clear();
    while (texts_ != nullptr && !texts_->empty()) {
        texts_->pop();
    }
}

// SPDX-License-Identifier: MIT
#pragma once

#include <tz/pointer/TzSharedRecord.h>
#include <tz/tools/TzCString.h>

#include <cstddef>
#include <memory>
#include <stack>
#include <vector>

class TzSoapVersionTable;

/// What an encodingStyle text means.
struct TzSoapStyleInForce {
    TzCString text;                   ///< The attribute's text.
    TzCString first;                  ///< The first URI of its list, the one that decides.
    TzSharedRecord<TzCString> shared; ///< The same once values share it; empty before.
    bool soapEncoding = true;         ///< Whether values are read by the rules of SOAP encoding.
};

/// The encodingStyle texts of the open elements that state one, and what each of them means. A text
/// is understood once, when it is pushed.
class TzSoapStylesInForce {
public:
    /// The texts, innermost on top.
    using Texts = std::stack<TzCString>;

    TzSoapStylesInForce();
    ~TzSoapStylesInForce();

    /// The version read is that of `table`, which outlives this object: its own styles are SOAP
    /// encoding, too. To be called before the first text.
    void setVersion(const TzSoapVersionTable& table) noexcept { table_ = &table; }
    /// Opens the scope of the encodingStyle `text`. O(length).
    void push(const TzCString& text);
    /// Ends the innermost scope; there must be one.
    void pop();
    /// Number of open scopes.
    std::size_t size() const noexcept {
        return texts_ != nullptr ? texts_->size() : meanings_.size();
    }
    /// The texts, to push and pop. From then on each look-up compares the innermost one with what
    /// is remembered, because the holder of the stack may change it unnoticed.
    Texts& expose();
    /// Whether `expose` was called.
    bool isExposed() const noexcept { return texts_ != nullptr; }
    /// What holds under the innermost text; what holds without any style if none is open. Valid
    /// until the next call, push or pop. O(1), O(length) after `expose`.
    TzSoapStyleInForce& inForce() {
        if (texts_ != nullptr) {
            compare();
        }
        return meanings_.empty() ? none_ : meanings_.back();
    }
    /// A record of the URI `style` that all values under one style share.
    TzSharedRecord<TzCString> share(const TzCString& style);
    /// Ends all scopes; the version is that of no message. What the encoding style of the message
    /// means stays known.
    void clear() noexcept;

private:
    TzSoapStyleInForce meaningOf(const TzCString& text) const;
    void compare();

    const TzSoapVersionTable* table_ = nullptr; // null: the versions known by default
    TzSoapStyleInForce none_;
    std::vector<TzSoapStyleInForce> meanings_; // of the texts, outermost first
    TzSoapStyleInForce known_; // of a message before, under the version of knownTable_
    const TzSoapVersionTable* knownTable_ = nullptr;
    std::unique_ptr<Texts> texts_; // made by `expose`, then decides what is in force
};

// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <tz/tools/TzCString.h>

#include <cstddef>
#include <vector>

/// What an encodingStyle text means. A plain value.
struct TzSoapStyleInForce {
    TzCString text;           ///< The attribute's text.
    TzCString first;          ///< The first URI of its list, the one that counts; "" without any.
    bool soapEncoding = true; ///< Whether values are read by the rules of SOAP encoding.
};

/// The encodingStyle texts of the open elements that state one, innermost on top.
///
/// A text is understood once, when it is pushed. Belongs to one reading on one thread.
class TZSOAP_API TzSoapEncodingStyles {
public:
    /// No styles.
    TzSoapEncodingStyles();
    ~TzSoapEncodingStyles();

    /// Opens the scope of the encodingStyle `text`. O(length).
    void push(const TzCString& text);
    /// Ends the innermost scope; there must be one.
    void pop() noexcept { styles_.pop_back(); }
    /// The innermost text; there must be one.
    const TzCString& top() const noexcept { return styles_.back().text; }
    /// Number of open scopes.
    std::size_t size() const noexcept { return styles_.size(); }
    /// Whether no scope is open.
    bool empty() const noexcept { return styles_.empty(); }
    /// Ends all scopes.
    void clear() noexcept { styles_.clear(); }
    /// What holds in the innermost scope; what holds without any style when there is none. Valid
    /// until the next push or pop.
    const TzSoapStyleInForce& inForce() const noexcept {
        return styles_.empty() ? none() : styles_.back();
    }

private:
    static const TzSoapStyleInForce& none() noexcept;

    std::vector<TzSoapStyleInForce> styles_;
};

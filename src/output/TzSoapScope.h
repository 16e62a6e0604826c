// SPDX-License-Identifier: MIT
#pragma once

#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlName.h>
#include <tz/xml/TzXmlNamespace.h>

#include "output/TzSoapDeclarations.h"
#include "output/TzSoapInlineVector.h"
#include "output/TzSoapNumberedPrefixes.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>

class TzSoapTypeImp;
class TzSoapVersion;

/// What is in force at the end of the output: the open elements, their declarations and encoding
/// styles, and the prefixes that a message wants for the namespaces of SOAP.
///
/// A writer shares its scope with the writers within it. The two counters of changes let others
/// cache facts: these are valid while the counter is unchanged.
class TzSoapScope {
public:
    /// Nothing is open, and no more than `depthLimit` elements may be; the prefixes are those of
    /// `soap`.
    TzSoapScope(const TzSoapVersion& soap, std::size_t depthLimit)
        : depthLimit_(depthLimit), soap_(&soap) {}

    /// Opens an element; `TzXmlDomainError` when it is nested too deeply.
    void open() {
        checkDepth(1);
        open_.push_back(around_);
        ++depth_;
        around_ = {declarations_.scopeCount(), styleEnds_.size()};
    }
    /// Opens the element of a value that holds others; also `TzXmlDomainError` when `value` stands
    /// within itself. That is found by Brent's algorithm, which compares each value with one of
    /// those around it only, so before all has been written a second or third time.
    void openHolder(const TzSoapTypeImp* value) {
        if (value == landmark_) {
            refuseRing();
        }
        open();
        if (depth_ >= nextLandmark_) {
            landmark_ = value;
            landmarkDepth_ = depth_;
            nextLandmark_ = 2 * depth_;
        }
    }
    /// Closes elements, with their declarations and styles, until no more than `depth` are open.
    void closeTo(std::size_t depth) noexcept {
        while (depth_ > depth) {
            close();
        }
    }
    /// Most elements that may be open at once.
    std::size_t depthLimit() const noexcept { return depthLimit_; }
    /// Lets no more than `limit` elements be open at once.
    void setDepthLimit(std::size_t limit) noexcept { depthLimit_ = limit; }
    /// Number of open elements.
    std::size_t depth() const noexcept { return depth_; }
    /// `TzXmlDomainError` when `levels` more elements would be nested too deeply.
    void checkDepth(std::size_t levels) const {
        if (depth_ + levels > depthLimit_) {
            refuseDepth();
        }
    }

    /// The URI bound to `prefix`, "" when unbound; valid until the next declaration.
    std::string_view uriFor(std::string_view prefix) const noexcept {
        return declarations_.uriFor(prefix);
    }
    /// Declares `uri` under `prefix` on the innermost element, but for a prefix without URI, which
    /// XML forbids. Neither argument may refer to a text that `uriFor` returned.
    void declare(std::string_view prefix, std::string_view uri);
    /// As `declare`, for a prefix that is unbound; not for "", which may be declared without URI.
    void declareNew(std::string_view prefix, std::string_view uri);
    /// Declares a namespace, as above.
    void declare(const TzXmlNamespace& declared) {
        declare(declared.getPrefix(), declared.getUri());
    }
    /// Declares `uri` under `prefix` when that prefix is unbound.
    void declareUnbound(std::string_view prefix, std::string_view uri) {
        if (uriFor(prefix).empty()) {
            declare(prefix, uri);
        }
    }
    /// The lowest number, `first` or greater, that makes `base` a prefix that is unbound or bound
    /// to `uri`, in decimal. O(log declarations) for each declaration made or dropped since the
    /// last call.
    TzCString numberFor(std::string_view base, std::string_view first, std::string_view uri) const;
    /// Declares on the innermost element, which is the only one and declares nothing yet, all that
    /// `declarations`, a scope and no more, hold.
    void enterOutermost(const TzSoapDeclarations& declarations) {
        declarations_.assign(declarations);
        ++declarationChanges_;
    }
    /// Whether `name` needs a declaration. Deliberate: a prefix that is bound stays as it is,
    /// whatever its URI, so that no prefix changes its meaning within an element; only the default
    /// namespace does. While names are exact, a prefix bound otherwise needs one, too, and so does
    /// an unqualified name within a default namespace.
    bool needsDeclaration(const TzXmlName& name) const noexcept {
        return (exactNames_ || !name.getUri().empty()) && lacksDeclaration(name.getNamespace());
    }
    /// Whether names are exact: they have their namespaces, whatever is bound around them.
    bool hasExactNames() const noexcept { return exactNames_; }
    /// Makes names exact from now on, or not; returns whether they were.
    bool setExactNames(bool exact) noexcept {
        declarationChanges_ += exact != exactNames_ ? 1 : 0;
        return std::exchange(exactNames_, exact);
    }
    /// Whether the innermost element declares something.
    bool hasDeclarations() const noexcept { return declarations_.scopeCount() != around_.scopes; }
    /// All declarations in force; the innermost scope is that of the innermost element if this has
    /// declarations.
    const TzSoapDeclarations& declarations() const noexcept { return declarations_; }
    /// Grows with every declaration that is added or removed, and when names become exact or not.
    std::uint64_t declarationChanges() const noexcept { return declarationChanges_; }

    /// Whether the innermost element states an encoding style.
    bool isStyleStated() const noexcept { return styleEnds_.size() != around_.styles; }
    /// The style that the innermost element states, "" when it states none.
    std::string_view ownStyle() const noexcept {
        return isStyleStated() ? styleAfter(styleEnds_.size()) : std::string_view();
    }
    /// The style in force for what comes next, "" without one.
    std::string_view styleInForce() const noexcept { return styleAfter(styleEnds_.size()); }
    /// The style in force around the innermost element, "" without one.
    std::string_view outerStyle() const noexcept { return styleAfter(around_.styles); }
    /// Makes `style` the one that the innermost element states; "" means that it states none. Not
    /// one of the styles above.
    void setOwnStyle(std::string_view style);
    /// Changes with every style that comes or goes, and with the version written.
    std::uint64_t styleChanges() const noexcept { return styleChanges_; }
    /// A writer in this scope writes another version from now on.
    void noteVersion() noexcept { ++styleChanges_; }

    /// Takes default prefixes from `soap`, which outlives this object.
    void setVersion(const TzSoapVersion& soap) noexcept { soap_ = &soap; }
    /// Sets the prefixes that a message wants for the namespaces of SOAP; "" is the default.
    void setPrefixes(const TzCString& envelope, const TzCString& encoding);
    /// The prefix to spell the envelope namespace with.
    const TzCString& envelopePrefix() const;
    /// The prefix to spell the encoding namespace with.
    const TzCString& encodingPrefix() const;

private:
    /// The sizes at the start of an element.
    struct Mark {
        std::size_t scopes = 0;
        std::size_t styles = 0;
    };

    bool lacksDeclaration(const TzXmlNamespace& needed) const noexcept;
    std::size_t endOfStyles(std::size_t count) const noexcept {
        return count == 0 ? 0 : styleEnds_[count - 1];
    }
    std::string_view styleAfter(std::size_t count) const noexcept {
        const std::size_t begin = endOfStyles(count == 0 ? 0 : count - 1);
        return {styles_.begin() + begin, endOfStyles(count) - begin};
    }
    void close() noexcept {
        dropStyles(around_.styles);
        if (hasDeclarations()) {
            dropDeclarations();
        }
        around_ = open_.back();
        open_.pop_back();
        if (depth_-- == landmarkDepth_) {
            forgetLandmark();
        }
    }
    void forgetLandmark() noexcept {
        landmark_ = nullptr;
        nextLandmark_ = landmarkDepth_;
        landmarkDepth_ = 0;
    }
    void dropStyles(std::size_t count) noexcept {
        if (styleEnds_.size() != count) {
            styleEnds_.shrink(count);
            styles_.shrink(endOfStyles(count));
            ++styleChanges_;
        }
    }
    void dropDeclarations() noexcept;
    [[noreturn]] void refuseDepth() const;
    [[noreturn]] static void refuseRing();

    TzSoapDeclarations declarations_; // only elements that declare something have a scope
    mutable std::optional<TzSoapNumberedPrefixes> numbered_; // none until a number is needed
    mutable std::size_t numberedUpTo_ = 0;         // first so many declarations are as it saw them
    TzSoapInlineVector<char, 128> styles_;         // texts of the styles of elements that state one
    TzSoapInlineVector<std::size_t, 4> styleEnds_; // where each ends
    Mark around_;                                  // the innermost element
    std::size_t depth_ = 0;                        // of open_
    std::size_t depthLimit_;
    const TzSoapTypeImp* landmark_ = nullptr; // one of the open values
    std::size_t landmarkDepth_ = 0;
    std::size_t nextLandmark_ = 1; // the depth where another value becomes it
    // The elements around it, innermost last, and where nothing was open.
    TzSoapInlineVector<Mark, 16> open_;
    std::uint64_t declarationChanges_ = 1;
    std::uint64_t styleChanges_ = 1;
    bool exactNames_ = false;
    const TzSoapVersion* soap_;
    TzCString envelopePrefix_;
    TzCString encodingPrefix_;
};

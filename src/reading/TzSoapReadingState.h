// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapDroppedText.h>
#include <soap/TzSoapStyle.h>
#include <soap/TzSoapVersion.h>
#include <tz/mime/TzMimeMultipart.h>
#include <tz/pointer/TzBlocks.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlName.h>

#include "reading/TzSoapReadBudget.h"
#include "reading/TzSoapReferenceTable.h"
#include "reading/TzSoapStylesInForce.h"
#include "reading/TzSoapTypeHandlers.h"
#include "reading/TzSoapTypeNames.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <vector>

class TzSoapMessageImp;
class TzXmlSAXParser;

/// What a parse context holds: the things that all participants of one reading share.
class TzSoapReadingState {
public:
    TzSoapReadingState();
    TzSoapReadingState(const TzSoapReadingState&) = delete;
    TzSoapReadingState& operator=(const TzSoapReadingState&) = delete;
    ~TzSoapReadingState();

    TzXmlSAXParser* parser = nullptr;    ///< The parser in use; not owned.
    TzSoapMessageImp* message = nullptr; ///< The message being filled; not owned.
    TzMimeMultipart package;             ///< The package that references to parts look into.
    TzSoapTypeNames names;               ///< The open elements and the names under them.
    TzSoapStylesInForce styles;          ///< The encoding styles in force.
    TzSoapReferenceTable references;     ///< Ids and references.
    TzSoapReadBudget budget;             ///< What the limits still allow.
    TzSoapStyle messageStyle = TzSoapStyle::Encoded; ///< How the text is read.
    std::vector<TzXmlName> markupNames;              ///< Elements that are kept as markup.
    TzSoapDroppedText droppedText;                   ///< Text that was left out so far.
    TzBlocks::Plan valueMemory;                      ///< What is expected to be made in these:
    TzBlocks bodies{valueMemory};                    ///< Where the bodies of values are made.
    TzBlocks links{valueMemory};                     ///< Where lists hold them.

    /// The version being read: that of the message, the latest without one.
    TzSoapVersion::Version version() const;
    /// Whether the text is read literally.
    bool isLiteral() const noexcept { return messageStyle == TzSoapStyle::Literal; }
    /// Whether an element named `name` is kept as markup. O(names asked for).
    bool takesMarkup(const TzXmlName& name) const noexcept {
        return !markupNames.empty() &&
               std::find(markupNames.begin(), markupNames.end(), name) != markupNames.end();
    }
    /// An envelope of the version of `table`, which outlives this object, begins.
    void setVersion(const TzSoapVersionTable& table) noexcept;
    /// The name that `text` spells under the open elements. Valid until the next call.
    const TzXmlName& resolveName(std::string_view text) { return names.resolve(text, parser); }
    /// Opens the scope of an encoding style; `TzXmlParseError` when it is longer than the limits
    /// allow.
    void pushStyle(const TzCString& style);
    /// Ends the innermost scope of an encoding style; there must be one.
    void popStyle() { styles.pop(); }
    /// Takes note of `text` that nothing is made of, unless it is white space.
    void noteDroppedText(std::string_view text) {
        // The parser lets no other control character pass.
        const auto isBlank = [](char byte) { return static_cast<unsigned char>(byte) <= ' '; };
        if (!std::all_of(text.begin(), text.end(), isBlank)) {
            countDroppedText();
        }
    }
    /// The handlers of child elements. One set serves the whole reading: a handler has given the
    /// events back before the value that it made starts to read its children.
    TzSoapTypeHandlers& handlers() { return handlers_ ? *handlers_ : handlers_.emplace(); }
    /// Forgets all that was read, but for names that are likely to come again; parser, package,
    /// message and limits stay.
    void clear() noexcept;
    /// Forgets everything else, too, so that another message can be read; false when an application
    /// has got hold of what it would have to share then.
    bool release() noexcept;

private:
    void countDroppedText() noexcept;

    std::optional<TzSoapTypeHandlers> handlers_; // made by the first child element
};

// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapGenericTypeHandler.h>
#include <soap/TzSoapMessageImp.h>
#include <soap/TzSoapType.h>
#include <tz/tools/TzCString.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

/// A message that keeps no body entries: it hands over the elements at a path below Body, one after
/// the other, and forgets them.
///
/// Belongs to one reading on one thread; a text that failed or was stopped cannot go on.
class TzSoapEntryReading final : public TzSoapMessageImp {
public:
    /// A record, the path above it and its number there; returns whether the reading goes on.
    using Take = std::function<bool(
        TzSoapType&& record, const std::shared_ptr<const TzCString>& above, std::size_t number)>;

    /// A reading of records at the path of `steps`, which is not empty, none of them longer than
    /// `recordLimit` bytes.
    TzSoapEntryReading(std::vector<TzCString> steps, std::size_t recordLimit, Take take);
    ~TzSoapEntryReading() override;

    /// The text begins.
    void begin();
    /// Reads on; false when the reading was stopped.
    bool feed(std::string_view chunk);
    /// The text ends.
    bool finish();
    /// Nothing is read any more, however far that came: the message is one like any other.
    void end() noexcept;

    /// The Envelope or a child of it starts.
    void startElement(const TzXmlName& name, const TzXmlAttributeSet& attributes) override;

private:
    class Level;
    class Skipper;
    struct Stopped {};

    template <typename Work> bool run(Work work);
    void requireShort();
    void noteProgress() noexcept { mark_ = fed_; }
    void forgetReferences();

    std::vector<TzCString> steps_;
    std::size_t recordLimit_;
    bool isReading_ = false;
    Take take_;
    std::vector<std::unique_ptr<Level>> levels_; // of Body and the elements on the path
    std::unique_ptr<Skipper> skipper_;
    std::size_t fed_ = 0;  // bytes before the piece under way
    std::size_t mark_ = 0; // bytes before the one with the last progress
};

// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <soap/TzSoapFields.h>
#include <soap/TzSoapReadLimits.h>
#include <soap/TzSoapStyle.h>
#include <soap/TzSoapView.h>

#include <concepts>
#include <cstddef>
#include <functional>
#include <iosfwd>
#include <memory>
#include <string_view>
#include <type_traits>
#include <utility>

class TzSoapMessage;

/// Reads a message that does not fit into memory: hands one record after the other to a callback
/// and frees it.
///
///     TzSoapEntryReader reader = TzSoapEntryReader::of<Order>(
///         "GetOrdersResponse/order", [&](Order&& order) { book(order); });
///     reader.read(stream);
///
/// Records are the elements at a path of local names below Body, "*" for any name: "*/*", the
/// children of all body entries, unless said otherwise. What is not at the path is passed over,
/// whatever its size. Header and fault are read as a message reads them (`getMessage`); all else
/// that is kept is the record under way, so memory follows the longest record and the number of
/// different element and attribute names, not the number of records.
///
/// Ids are not kept: references in records stay unresolved, and what asks for their values gets an
/// error that says so. Markup elements, packages and text before the envelope are not read. Errors
/// of the text are those of `TzSoapMessage::extract`, with line and column; errors about a record
/// have the place where it begins, and paths such as `GetOrdersResponse/order[3]/total`; elements
/// of a 17th name and later ones below one element have no number there.
///
/// An object reads one text at a time, on one thread; the callback must not use it for reading.
class TZSOAP_API TzSoapEntryReader {
public:
    /// Gets each record and returns whether the reading goes on.
    using Visit = std::function<bool(const TzSoapView& record)>;

    /// Longest record, in bytes, unless set.
    static constexpr std::size_t DefaultRecordLimit = std::size_t{16} << 20;

    /// Hands the records at `path` to `visit`. `TzXmlBadArgError` for a path that is empty or has
    /// an empty step.
    explicit TzSoapEntryReader(Visit visit, std::string_view path = "*/*");
    TzSoapEntryReader(TzSoapEntryReader&&) noexcept;
    TzSoapEntryReader& operator=(TzSoapEntryReader&&) noexcept;
    ~TzSoapEntryReader();

    /// A reader that hands each record to `callback` as a `Record`: any type that `TzSoapView::as`
    /// returns, a `TzSoapView` itself included. The callback returns nothing, or whether the
    /// reading goes on.
    template <typename Record, std::invocable<Record&&> Callback>
    static TzSoapEntryReader of(std::string_view path, Callback callback) {
        return TzSoapEntryReader(
            [callback = std::move(callback)](const TzSoapView& record) mutable {
                if constexpr (std::is_void_v<std::invoke_result_t<Callback&, Record&&>>) {
                    callback(taken<Record>(record));
                    return true;
                } else {
                    return static_cast<bool>(callback(taken<Record>(record)));
                }
            },
            path);
    }

    /// The style that texts are read in from the next one on; `TzSoapStyle::Literal` unless set.
    void setStyle(TzSoapStyle style) noexcept;
    /// What is accepted from the next text on; `unfilledArrayPositions` holds for all records of a
    /// text together, as in a message. The limit of attributes is kept after a tag was read, which
    /// the record limit bounds.
    void setReadLimits(const TzSoapReadLimits& limits) noexcept;
    /// Refuses records, header entries and tags, comments or texts between records of more than
    /// `bytes` bytes from the next text on; looked at every 64 KiB. More is a `TzXmlParseError`.
    void setRecordLimit(std::size_t bytes) noexcept;

    /// Reads a whole text. Errors as for the class, and whatever the callback throws. O(text).
    void read(std::string_view text);
    /// Reads a stream to its end, in pieces. `TzXmlError` when the stream breaks. O(text).
    void read(std::istream& stream);
    /// Reads on in a text that comes in chunks, which may end anywhere; the first chunk after an
    /// end or an error begins another text. Does nothing after the callback stopped the reading. A
    /// record is handed over when what follows it is read.
    void feed(std::string_view chunk);
    /// Ends the text that `feed` began. `TzXmlParseError` when it is not complete, unless the
    /// callback stopped the reading.
    void finish();

    /// Whether the callback stopped the reading of the last text.
    bool isStopped() const noexcept;
    /// Records handed over of the last text.
    std::size_t getRecordCount() const noexcept;
    /// The message as far as it was read, without the records: version, header, fault. Valid until
    /// the next text begins.
    const TzSoapMessage& getMessage() const noexcept;

private:
    struct State;

    template <typename Record> static Record taken(const TzSoapView& record) {
        if constexpr (std::same_as<Record, TzSoapView>) {
            return record;
        } else {
            return record.as<Record>();
        }
    }
    void begin();

    std::unique_ptr<State> state_;
};

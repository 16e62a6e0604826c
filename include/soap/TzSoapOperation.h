// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapCast.h>
#include <soap/TzSoapExport.h>
#include <soap/TzSoapFaultError.h>
#include <soap/TzSoapMaking.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapType.h>
#include <soap/TzSoapView.h>
#include <tz/tools/Tzxmsg.h>
#include <tz/xml/TzXmlName.h>

#include <concepts>
#include <functional>
#include <optional>
#include <type_traits>
#include <utility>

/// An operation of a service, made from a function of the program.
///
/// The function takes one of
///
/// - the request, a `TzSoapMessage`,
/// - the operation in it, a `TzSoapType` or a handle derived from that, such as
///   `TzSoapCompositeType`, whose members are the parameters,
/// - a struct with `TzSoapFields` or whatever else `TzSoapView::as` returns, read from the
///   operation.
///
/// It returns one of
///
/// - the answer, a `TzSoapMessage`,
/// - the one value in it, a `TzSoapType` or a derived handle, which the answer holds as it is
///   named,
/// - a struct or whatever else `tzSoapValue` takes: the answer's one element, named like the
///   operation with "Response" after it unless another name is stated,
/// - nothing: then it is a one-way operation, which is not answered.
///
/// A function may take the request by reference, change it and return it as the answer. It runs on
/// the thread that the request is handled on, so on several at once. What it returns or throws is
/// written there, which is a change: two answers do not share a value.
class TZSOAP_API TzSoapOperation {
public:
    /// An operation that runs `function`, any callable but an overloaded or a generic one.
    template <typename Callable>
    requires(!std::same_as<std::remove_cvref_t<Callable>, TzSoapOperation>) TzSoapOperation(
        Callable function) // NOLINT(*-explicit-*): an operation is what its function is
        : run_(adapted(std::function(std::move(function)), TzXmlName())) {}
    /// An operation that runs `function`, whose result, if it is a struct, is answered in an
    /// element named `answer`.
    template <typename Callable>
    TzSoapOperation(Callable function, const TzXmlName& answer)
        : run_(adapted(std::function(std::move(function)), answer)) {}

    /// Runs the function: the answer, nothing for a one-way operation. What the function throws is
    /// passed on. `TzSoapFaultError` Client (Sender), without running it, for a request without
    /// operation or with one of another kind than the function takes.
    std::optional<TzSoapMessage> operator()(TzSoapMessage& request) const { return run_(request); }

    /// The operation in a request: the first body entry that is more than the target of references,
    /// shared. `TzSoapFaultError` Client (Sender) for a request with a fault or without operation,
    /// and with the subcode ProcedureNotPresent where a reference or an array stands in its place.
    /// O(entries).
    static TzSoapType in(const TzSoapMessage& request);

private:
    using Run = std::function<std::optional<TzSoapMessage>(TzSoapMessage&)>;

    /// A message that answers `request` with `value`.
    static TzSoapMessage answerWith(const TzSoapMessage& request, const TzSoapType& value);
    /// `stated`, or the name for the answer to the operation in `request`.
    static TzXmlName answerName(const TzSoapMessage& request, const TzXmlName& stated);

    /// What a function that takes an `Argument` is given.
    template <typename Argument> static decltype(auto) argumentOf(TzSoapMessage& request) {
        if constexpr (std::same_as<Argument, TzSoapMessage>) {
            return (request);
        } else if constexpr (std::same_as<Argument, TzSoapType>) {
            return in(request);
        } else {
            return read<Argument>(in(request));
        }
    }
    template <typename Argument> static Argument read(const TzSoapType& value) {
        try {
            if constexpr (std::derived_from<Argument, TzSoapType>) {
                return tzSoapAs<Argument>(value);
            } else {
                return TzSoapView(value).template as<Argument>();
            }
        } catch (const Tzxmsg& error) {
            throw TzSoapFaultError::badArguments(error);
        }
    }

    template <typename Result, typename Argument>
    static Run adapted(std::function<Result(Argument)> function, const TzXmlName& answer) {
        using Taken = std::remove_cvref_t<Argument>;
        using Given = std::remove_cvref_t<Result>;
        return [function = std::move(function),
                answer](TzSoapMessage& request) -> std::optional<TzSoapMessage> {
            auto&& argument = argumentOf<Taken>(request);
            if constexpr (std::is_void_v<Result>) {
                function(argument);
                return std::nullopt;
            } else if constexpr (std::same_as<Given, TzSoapMessage>) {
                return function(argument);
            } else if constexpr (std::derived_from<Given, TzSoapType>) {
                return answerWith(request, function(argument));
            } else {
                const TzXmlName name = answerName(request, answer);
                return answerWith(request,
                                  tzSoapValue(function(argument), name, request.getStyle()));
            }
        };
    }

    Run run_;
};

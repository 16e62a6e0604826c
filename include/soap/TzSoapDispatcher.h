// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <soap/TzSoapHttpAnswer.h>
#include <soap/TzSoapHttpRequest.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapNode.h>
#include <soap/TzSoapOperation.h>
#include <soap/TzSoapReadLimits.h>
#include <soap/TzSoapStyle.h>
#include <soap/TzSoapVersion.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlName.h>

#include <cstddef>
#include <exception>
#include <functional>
#include <map>
#include <optional>
#include <vector>

/// A service: the operations of a program by name or by SOAP action, and everything around them
/// that SOAP demands.
///
/// Takes what any HTTP server received and gives what it is to send; which requests a server lets
/// through, POST alone, up to a size, within a time, is the server's. An operation that was added
/// for the SOAP action of a request goes first, then the one that was added under the name of its
/// first body entry, then the default one. A request is answered in its version; an answer that an
/// operation makes in another one is converted.
///
/// A value; set it up first, then any number of threads may call its constant members. They run
/// operations at the same time.
class TZSOAP_API TzSoapDispatcher {
public:
    /// Is given the exception of an operation or an interceptor that was answered with "The
    /// operation failed", on the thread that the request was handled on. What it throws leaves
    /// `answer`.
    using FailureHook = std::function<void(std::exception_ptr)>;
    /// The rest of the way of a request: its answer, which may be a fault, nothing for a one-way
    /// operation.
    using Next = std::function<std::optional<TzSoapMessage>(TzSoapMessage& request)>;
    /// Stands between the dispatcher and its operations: looks at a request that was read, and at
    /// the SOAP action it came with, has it answered by `next` unless it answers itself, and may
    /// change the answer. A `TzSoapFaultError` becomes the answer, as that of an operation does.
    using Interceptor = std::function<std::optional<TzSoapMessage>(
        TzSoapMessage& request, const TzCString& action, const Next& next)>;

    /// A service without operations whose messages are in `style`.
    explicit TzSoapDispatcher(TzSoapStyle style = TzSoapStyle::Encoded);

    /// Adds an operation, or replaces the one of that name. The prefix does not matter.
    void add(const TzXmlName& name, TzSoapOperation operation);
    /// Adds an operation whose messages are in `style`. A service of both styles reads the
    /// requests to its encoded operations twice.
    void add(const TzXmlName& name, TzSoapOperation operation, TzSoapStyle style);
    /// Adds an operation for requests with this SOAP action, whatever their bodies hold, or
    /// replaces the one for it. The sender chooses the action, and what checks it on the way does
    /// not check the body.
    void addForAction(const TzCString& action, TzSoapOperation operation);
    /// Adds such an operation whose messages are in `style`; see the `add` with a style.
    void addForAction(const TzCString& action, TzSoapOperation operation, TzSoapStyle style);
    /// The operation for requests that no other takes; without it they are a fault of the sender
    /// with the subcode ProcedureNotPresent.
    void setDefault(TzSoapOperation operation);

    /// The header entries that the service understands and the roles it acts in; to be filled.
    TzSoapNode& getNode() noexcept { return node_; }
    /// The header entries that the service understands and the roles it acts in.
    const TzSoapNode& getNode() const noexcept { return node_; }
    /// Sets the versions that are served, the most wanted first: a VersionMismatch fault of
    /// `V1_2Rec` lists them. All three, `V1_2Rec` first, in a new dispatcher.
    void setVersions(const std::vector<TzSoapVersion::Version>& versions);
    /// Sets what requests may hold. Elements may nest 100 deep in a new dispatcher.
    void setReadLimits(const TzSoapReadLimits& limits);
    /// Sets whether encoded requests may hold values in encodings that are not known here, which
    /// are kept as markup. They are a DataEncodingUnknown fault in a new dispatcher, because an
    /// answer that such markup gets into holds whatever the sender wants.
    void setForeignEncodings(bool accepted) noexcept { foreignEncodings_ = accepted; }
    /// Adds an interceptor; those added before stand around it. It sees every fault that is
    /// answered to a request that was read: those that refuse header entries and missing
    /// operations, too, and "The operation failed", unless an answer could not be written.
    void addInterceptor(Interceptor interceptor);
    /// Sets the hook that gets the exceptions of operations.
    void setFailureHook(FailureHook hook);

    /// The answer to a request. Throws nothing but what the failure hook throws and
    /// `std::bad_alloc`; everything that is wrong with the request, and every exception of an
    /// operation, is an answer:
    ///
    /// - 200, or 202 without a body after a one-way operation;
    /// - the fault of a `TzSoapFaultError` that the program made;
    /// - Server (Receiver) "The operation failed" for any other exception and for an answer that
    ///   cannot be written. A `TzSoapFaultError` with an HTTP status is one of these: another
    ///   service's fault blames whoever called that, and says what is meant for him. An operation
    ///   passes it on by `throw TzSoapFaultError(error.getMessage())`;
    /// - 415 without a body for a content type that no message has;
    /// - VersionMismatch for an envelope that is not served: in `V1_2Rec`, with an Upgrade entry,
    ///   to application/soap+xml, in SOAP 1.1 otherwise;
    /// - MustUnderstand for header entries that are meant for the service, must be understood and
    ///   are not; it names the first 16;
    /// - Client (Sender) for anything else that cannot be read, with line and column.
    ///
    /// Faults have the status 500, those of the sender 400 in `V1_2Rec`. O(request + answer).
    TzSoapHttpAnswer answer(const TzSoapHttpRequest& http) const;

private:
    struct Entry {
        TzSoapOperation operation;
        TzSoapStyle style;
    };
    struct Passage;
    using Answer = std::optional<TzSoapMessage>;

    const Entry& find(const TzCString& action, const TzSoapMessage& request) const;
    TzSoapStyle styleOf(const TzCString& action, const TzSoapMessage& request) const;
    void read(const TzSoapHttpTransportContext& context, const TzCString& body,
              TzSoapMessage& request) const;
    bool serves(TzSoapVersion::Version version) const;
    TzSoapMessage versionMismatch(TzSoapVersion::Version asked, const TzCString& reason) const;
    TzSoapHttpAnswer refusal(const Tzxmsg& error, TzSoapVersion::Version asked,
                             TzSoapVersion::Version met) const;
    Answer respond(const TzCString& action, TzSoapMessage& request) const;
    Answer pass(std::size_t interceptor, Passage& passage, TzSoapMessage& request) const;
    Answer guarded(Passage& passage, const std::function<Answer()>& work) const;
    Answer failed(Passage& passage) const;

    TzSoapStyle style_;
    bool mixesStyles_ = false;
    bool foreignEncodings_ = false;
    std::map<TzXmlName, Entry> byName_;
    std::map<TzCString, Entry> byAction_;
    std::optional<Entry> default_;
    TzSoapNode node_;
    std::vector<TzSoapVersion::Version> versions_;
    TzSoapReadLimits limits_;
    std::vector<Interceptor> interceptors_;
    FailureHook hook_;
};

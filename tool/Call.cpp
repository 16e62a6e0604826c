// SPDX-License-Identifier: MIT
#include "Call.h"

#include "Attachment.h"
#include "HttpPost.h"
#include "Input.h"
#include "MessageWalk.h"
#include "Package.h"
#include "Report.h"
#include "TreePrinter.h"

#include <soap/TzSoapHttpBinding.h>
#include <soap/TzSoapHttpTransportContext.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapUtils.h>

#include <CLI/CLI.hpp>

#include <iostream>
#include <memory>
#include <string>
#include <vector>

namespace {

struct Options {
    std::string url;
    Input input;
    std::string action;
    std::vector<std::string> attachments;
};

/// A request as it goes out.
struct Request {
    TzSoapHttpTransportContext headers;
    std::string body;
};

Request packed(const TzMimeMultipart& package, const Options& options) {
    Request request;
    request.headers.setSoapAction(options.action);
    request.body = TzSoapHttpBinding::pack(package, request.headers);
    return request;
}

/// The envelope as it stands in its file.
Request bare(std::string envelope, const Options& options) {
    TzSoapMessage message;
    message.setReadLimits({.soap12Recommendation = true});
    message.extract(envelope);
    Request request;
    request.headers.setSoapAction(options.action);
    TzSoapHttpBinding::describe(message.getVersion(), packages::encodingOf(envelope),
                                request.headers);
    request.body = std::move(envelope);
    return request;
}

Request prepare(std::string text, const Options& options) {
    TzMimeMultipart package;
    if (TzSoapUtils::isMimeMultipart(text)) {
        package.fromString(std::move(text));
    } else if (options.attachments.empty()) {
        return bare(std::move(text), options);
    } else {
        package = packages::around(std::move(text));
    }
    for (const std::string& attachment : options.attachments) {
        packages::insert(package, attachment);
    }
    packages::check(package, options.input.shownName());
    return packed(package, options);
}

/// Prints the answer; whether it was a fault, be it one without a code.
bool print(const TzSoapHttpAnswer& http, const std::string& url) {
    if (http.body.empty() && http.status / 100 == 2) {
        std::cout << "(status " << http.status << ", no message)\n";
        return false;
    }
    TzSoapMessage answer;
    readAnswer(http, answer);
    reportLosses(url, "", answer);
    TreePrinter printer(std::cout);
    MessageWalk walk(printer);
    answer.acceptVisitor(walk);
    return answer.getSoapBody().hasFaultElement();
}

int call(const Options& options) {
    Request request;
    ExitStatus status = reportFailures(options.input.shownName(),
                                       [&] { request = prepare(options.input.read(), options); });
    if (status == Failed) {
        return status;
    }
    bool isFault = false;
    status = reportFailures(options.url, [&] {
        isFault = print(httpPost(options.url, request.headers, request.body), options.url);
    });
    return isFault ? Faulted : status;
}

} // namespace

void addCall(CLI::App& app, int& status) {
    CLI::App* const command = app.add_subcommand(
        "call", "Posts a message over HTTP and prints the answer; exit status 2 for a fault");
    const auto options = std::make_shared<Options>();
    command->add_option("URL", options->url, "Where to post it, http or https")->required();
    addInput(*command, options->input);
    command->add_option("--action", options->action, "The SOAP action; none unless given");
    command->add_option("--attach", options->attachments, AttachmentHelp)->allow_extra_args(false);
    command->callback([options, &status] { status = call(*options); });
}

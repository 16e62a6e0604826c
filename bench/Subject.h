// SPDX-License-Identifier: MIT
#pragma once

#include "Peers.h"
#include "Workloads.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>

/// A message that is measured: made when its first benchmark runs, kept for the others.
class Subject {
public:
    /// The message that `make` makes.
    explicit Subject(std::function<TzSoapMessage()> make) : make_(std::move(make)) {}

    TzSoapMessage& message() {
        if (message_ == nullptr) {
            message_ = std::make_unique<TzSoapMessage>(make_());
            text_ = workloads::textOf(*message_);
        }
        return *message_;
    }
    const std::string& text() {
        message();
        return text_;
    }
    const peers::LibxmlDocument& libxmlDocument() {
        if (libxml_ == nullptr) {
            libxml_ = peers::libxmlRead(text());
        }
        return libxml_;
    }
    const peers::PugixmlDocument& pugixmlDocument() {
        if (pugixml_ == nullptr) {
            pugixml_ = peers::pugixmlDocument(text());
        }
        return pugixml_;
    }

private:
    std::function<TzSoapMessage()> make_;
    std::unique_ptr<TzSoapMessage> message_;
    std::string text_;
    peers::LibxmlDocument libxml_;
    peers::PugixmlDocument pugixml_;
};

using SharedSubject = std::shared_ptr<Subject>;

/// The messages that one letter stands for, in docs/performance.md too.
namespace subjects {

SharedSubject request();          ///< S
SharedSubject structs(int count); ///< T, when there are 10,000
SharedSubject numbers();          ///< U
SharedSubject orders();           ///< V
SharedSubject references();       ///< Y
SharedSubject escapes();          ///< Z

} // namespace subjects

// SPDX-License-Identifier: MIT
// Any bytes, as a request to services of both styles: whatever they are, there is an answer, and
// one with a body is a message.
#include "FuzzTarget.h"

#include <soap/TzSoapDispatcher.h>
#include <soap/TzSoapFields.h>
#include <soap/TzSoapHttpBinding.h>

#include <optional>
#include <vector>

namespace {

struct Item {
    std::optional<int> number;
    std::optional<std::string> text;
    std::vector<Item> items;
};

} // namespace

template <> struct TzSoapFields<Item> {
    static constexpr auto fields =
        tzFields(tzAttribute("number", &Item::number), tzField("text", &Item::text),
                 tzField("item", &Item::items));
};

namespace {

/// Answers what it is sent, as a struct where that is possible.
TzSoapDispatcher serviceOf(TzSoapStyle style) {
    TzSoapDispatcher service(style);
    service.setDefault([](const Item& item) { return item; });
    service.addForAction("echo", [](TzSoapMessage& request) { return request; });
    service.add(TzXmlName("list"), [](const std::vector<TzSoapType>& list) { return list; });
    return service;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = textOf(data, size);
    for (const TzSoapStyle style : Styles) {
        const TzSoapDispatcher service = serviceOf(style);
        for (const char* action : {"", "echo"}) {
            const TzSoapHttpAnswer answer = service.answer({"text/xml", action, text});
            TzSoapMessage read = readerOf(style);
            if (!answer.body.empty() &&
                !accepted([&] { TzSoapHttpBinding::unpack(answer.headers, answer.body, read); })) {
                report("an answer cannot be read", answer.body);
            }
        }
    }
    return 0;
}

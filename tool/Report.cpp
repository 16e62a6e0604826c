// SPDX-License-Identifier: MIT
#include "Report.h"

#include "Files.h"

#include <soap/TzSoapMessage.h>
#include <tz/xml/TzXmlParseError.h>

#include <exception>
#include <iostream>

ExitStatus reportFailures(const std::string& file, const std::function<void()>& work) {
    try {
        work();
        return Done;
    } catch (const TzXmlParseError& error) {
        std::cerr << files::shownName(file) << ':' << error.getLine() << ':' << error.getColumn()
                  << ": " << error.what() << '\n';
    } catch (const std::exception& error) {
        std::cerr << files::shownName(file) << ": " << error.what() << '\n';
    }
    return Failed;
}

ExitStatus withMessage(const std::string& file,
                       const std::function<void(const TzSoapMessage&)>& work) {
    return reportFailures(file, [&] {
        TzSoapMessage message;
        message.extract(files::read(file));
        work(message);
    });
}

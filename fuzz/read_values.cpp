// SPDX-License-Identifier: MIT
// Any bytes, as the text of a simple value: every typed reading gives a value or an error of the
// library.
#include "FuzzTarget.h"

#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapValueReader.h>
#include <tz/tools/TzDate.h>
#include <tz/tools/TzDateTime.h>
#include <tz/tools/TzDecimalPortable.h>
#include <tz/xml/TzXmlDuration.h>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    TzSoapSimpleType value("value", textOf(data, size), TzSoapContentBase::xsdString, false);
    const TzSoapValueReader reader(value);
    accepted([&] { static_cast<void>(reader.getBool()); });
    accepted([&] { static_cast<void>(reader.getInt()); });
    accepted([&] { static_cast<void>(reader.getUnsignedInt()); });
    accepted([&] { static_cast<void>(reader.getShort()); });
    accepted([&] { static_cast<void>(reader.getUnsignedShort()); });
    accepted([&] { static_cast<void>(reader.getLong()); });
    accepted([&] { static_cast<void>(reader.getUnsignedLong()); });
    accepted([&] { static_cast<void>(reader.getFloat()); });
    accepted([&] { static_cast<void>(reader.getDouble()); });
    accepted([&] { static_cast<void>(reader.getDecimal()); });
    accepted([&] { static_cast<void>(reader.getDate()); });
    accepted([&] { static_cast<void>(reader.getDateTime()); });
    accepted([&] { static_cast<void>(reader.getDuration()); });
    accepted([&] { static_cast<void>(reader.getBytes()); });
    return 0;
}

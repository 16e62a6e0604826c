// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapVersion.h>

#include <string>

// What tests of versions compare with, spelt out.
inline const std::string EnvUri11 = "http://schemas.xmlsoap.org/soap/envelope/";
inline const std::string EncUri11 = "http://schemas.xmlsoap.org/soap/encoding/";
inline const std::string EnvUri12 = "http://www.w3.org/2002/06/soap-envelope";
inline const std::string EncUri12 = "http://www.w3.org/2002/06/soap-encoding";
inline const std::string FaultsUri12 = "http://www.w3.org/2002/06/soap-faults";
inline const std::string RpcUri12 = "http://www.w3.org/2002/06/soap-rpc";
inline const std::string UpgradeUri12 = "http://www.w3.org/2002/06/soap-upgrade";

inline constexpr TzSoapVersion::Version BothVersions[] = {TzSoapVersion::V1_1, TzSoapVersion::V1_2};

inline const TzSoapVersion& soap11() { return TzSoapVersion::getSoapVersion(TzSoapVersion::V1_1); }
inline const TzSoapVersion& soap12() { return TzSoapVersion::getSoapVersion(TzSoapVersion::V1_2); }

/// The text of the error about a fault code that `versions` do not have.
inline std::string invalidCode(const std::string& versions) {
    return "[INVALID_FAULT_CODE] The specified fault code is not valid for \"" + versions +
           "\" version of SOAP";
}

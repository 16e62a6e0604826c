// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapArrayTypeHandler.h>
#include <soap/TzSoapUnknownTypeHandler.h>
#include <soap/TzSoapUserDefinedTypeHandler.h>

#include "reading/TzSoapMarkupHandler.h"

#include <memory>

/// The handlers that an element needs to read its children, one child at a time.
///
/// An element has a set from its first child to its end; sets then serve other elements.
class TzSoapTypeHandlers {
public:
    /// Those that few messages need.
    struct Rare {
        TzSoapMarkupHandler markup;               ///< Values the application asked for as markup.
        TzSoapUserDefinedTypeHandler userDefined; ///< Values the application decodes.
    };

    TzSoapUnknownTypeHandler unknown; ///< Simple and composite values.
    TzSoapArrayTypeHandler array;     ///< Arrays.

    /// The others, which the first call makes.
    Rare& rare() {
        if (rare_ == nullptr) {
            rare_ = std::make_unique<Rare>();
        }
        return *rare_;
    }

private:
    std::unique_ptr<Rare> rare_;
};

// SPDX-License-Identifier: MIT
#include <soap/TzSoapCatalog.h>

#define TZSOAP_CATALOG_DEFINE(ID, NAME, TEXT)                                                      \
    const TzCatMsg* tzsoap_##NAME() noexcept {                                                     \
        static constexpr TzCatMsg record{"soap_", ID, "[" #NAME "]" TEXT};                         \
        return &record;                                                                            \
    }
TZSOAP_CATALOG(TZSOAP_CATALOG_DEFINE)
#undef TZSOAP_CATALOG_DEFINE

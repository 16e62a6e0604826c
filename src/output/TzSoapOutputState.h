// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapType.h>
#include <soap/TzSoapVersion.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlNamespaceStack.h>

#include "output/TzSoapStyleStack.h"
#include "output/TzSoapTagAttributes.h"

#include <cstdint>
#include <map>
#include <set>
#include <utility>
#include <vector>

/// What a top-level writer and the writers within it share: the scopes of the open elements, the
/// start tag being prepared, and what was written and referred to.
struct TzSoapOutputState {
    TzXmlNamespaceStack namespaces;
    TzSoapStyleStack styles;
    TzSoapTagAttributes attributes;
    unsigned int depth = 0;
    bool wroteAll = true;                    // nothing that a value holds was left out
    bool writesTargets = false;              // what is written stands behind the entries
    bool attached = false;                   // an entry, or what it holds, led to a MIME part
    std::uint64_t scopeChanges = 1;          // what was found out about prefixes holds as long
    std::uint64_t schemaInstanceBoundAt = 0; // where the usual prefix stood for that namespace

    const TzSoapVersion* soap = nullptr; // of the top-level writer
    TzCString envelopePrefix;            // of the message, "" for the version's default
    TzCString encodingPrefix;            // of the message, "" for the version's default

    std::map<TzCString, TzSoapType> writtenIds;
    std::vector<std::pair<TzCString, TzSoapType>> pendingReferences;
    std::set<const void*> writtenWithoutId; // bodies of referenced values that lost their id
};

// SPDX-License-Identifier: MIT
#pragma once

class TzSoapElementImp;
class TzSoapReadingState;
class TzXmlAttributeSet;

/// Gives `element` all `attributes` of its start tag as they are. Those that header entries are
/// processed by, and the type, become properties as well.
///
/// The declarations of `element` must be in force in `reading`, which resolves the type's prefix.
void tzSoapReadVerbatim(const TzXmlAttributeSet& attributes, TzSoapElementImp& element,
                        TzSoapReadingState& reading);

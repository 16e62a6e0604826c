// SPDX-License-Identifier: MIT
#pragma once

/// How XML text is laid out.
enum class TzSoapLayout {
    Indented, ///< A line for each simple value and for each tag of other elements, indented.
    Compact,  ///< No line ends and no indentation; an element that holds nothing is empty.
};

// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

class TzSoapMessage;
struct Input;

/// Exit statuses of the tool. Wrong arguments have statuses above 100.
enum ExitStatus {
    Done = 0,
    Failed = 1,
    Faulted = 2 ///< The service answered with a fault.
};

/// Does `work`, which is about `file`. Reports what it throws on standard error, with the file, and
/// with line and column if they are known; the exit status says whether all went well.
ExitStatus reportFailures(const std::string& file, const std::function<void()>& work);

/// Reads the message in `input` and hands it to `work`; reports failures on standard error. Lines
/// of a package are counted in its envelope; "(envelope)" or the like follows the file name then.
ExitStatus withMessage(const Input& input, const std::function<void(const TzSoapMessage&)>& work);
/// Reports on standard error what of `message`, which was read from `name`, has no place in the
/// model: text beside elements, a Fault without a code. `place` stands before line and column.
void reportLosses(const std::string& name, const char* place, const TzSoapMessage& message);

// SPDX-License-Identifier: MIT
#pragma once

#include "output/TzSoapTagOutput.h"

/// Sets a flag of an output for as long as this object lives, if it is to be set at all.
class TzSoapOutputFlag {
public:
    using Setter = void (TzSoapTagOutput::*)(bool) noexcept;

    TzSoapOutputFlag(TzSoapTagOutput& output, Setter setter, bool set = true) noexcept
        : output_(set ? &output : nullptr), setter_(setter) {
        if (output_ != nullptr) {
            (output_->*setter_)(true);
        }
    }
    ~TzSoapOutputFlag() {
        if (output_ != nullptr) {
            (output_->*setter_)(false);
        }
    }
    TzSoapOutputFlag(const TzSoapOutputFlag&) = delete;
    TzSoapOutputFlag& operator=(const TzSoapOutputFlag&) = delete;

private:
    TzSoapTagOutput* output_;
    Setter setter_;
};

// SPDX-License-Identifier: MIT
#include "Subject.h"

SharedSubject subjects::request() { return std::make_shared<Subject>(workloads::request); }

SharedSubject subjects::structs(int count) {
    return std::make_shared<Subject>([count] { return workloads::structs(count); });
}

SharedSubject subjects::numbers() {
    return std::make_shared<Subject>([] { return workloads::intArray(1000000); });
}

SharedSubject subjects::orders() {
    return std::make_shared<Subject>([] { return workloads::structArray(10000); });
}

SharedSubject subjects::references() { return std::make_shared<Subject>(workloads::referenceText); }

SharedSubject subjects::escapes() { return std::make_shared<Subject>(workloads::escapedText); }

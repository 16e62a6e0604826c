<?php
// SPDX-License-Identifier: MIT
//
// What the clients made with PHP have in common.

/** Runs the cases, functions by name, and prints a line for each: its name and its result, or the fault it met. */
function runCases(array $cases): void
{
    foreach ($cases as $name => $case) {
        try {
            $result = $case();
        } catch (SoapFault $fault) {
            $result = "fault $fault->faultcode: $fault->faultstring";
        }
        echo $name, "\t", strtr($result, "\t\n", '  '), "\n";
    }
}

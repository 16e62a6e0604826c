<?php
// SPDX-License-Identifier: MIT
//
// Calls an echo service with PHP's SoapClient: php client.php URL 1.1|1.2. A line for each case: its
// name, "ok" or what came back instead.

require __DIR__ . '/cases.php';

ini_set('precision', '17');
ini_set('memory_limit', '1G');
const URI = 'urn:example:echo';

$url = $argv[1];
$isFirst = $argv[2] === '1.1';
$client = new SoapClient(null, ['location' => $url, 'uri' => URI, 'trace' => true,
                                'soap_version' => $isFirst ? SOAP_1_1 : SOAP_1_2]);

/** The answer of an operation to one value. */
function call($operation, $value)
{
    global $client;
    return $client->__soapCall($operation, [new SoapParam($value, 'value')]);
}

function text($value)
{
    $text = json_encode($value, JSON_UNESCAPED_UNICODE | JSON_PARTIAL_OUTPUT_ON_ERROR);
    return strlen($text) > 100 ? substr($text, 0, 100) . '...' : $text;
}

/** Same type and value; objects by their members. */
function same($left, $right)
{
    if (is_object($left) || is_array($left)) {
        return gettype($left) === gettype($right)
            && array_keys((array) $left) === array_keys((array) $right)
            && !array_filter(array_map(null, array_values((array) $left), array_values((array) $right)),
                             fn($pair) => !same($pair[0], $pair[1]));
    }
    return $left === $right || (is_float($left) && is_float($right) && is_nan($left) && is_nan($right));
}

/** Sends each value (as it goes into a call => as it has to come back); the first difference. */
function echoes($pairs)
{
    foreach ($pairs as [$sent, $wanted]) {
        $back = call('echoValue', $sent);
        if (!same($wanted, $back)) {
            return 'sent ' . text($wanted) . ', came back ' . text($back);
        }
    }
    return 'ok';
}

/** Values that go as they are. */
function plain(...$values)
{
    return echoes(array_map(fn($value) => [$value, $value], $values));
}

function isCharacter($code)
{
    return ($code & 0xFFFE) !== 0xFFFE && ($code < 0xFDD0 || $code > 0xFDEF);
}

/** The text of these code points. */
function textOf($codes)
{
    return implode('', array_map(fn($part) => iconv('UCS-4BE', 'UTF-8', pack('N*', ...$part)),
                                 array_chunk($codes, 10000)));
}

/** Every character that XML can carry, but the carriage return, which has a case of its own. */
function allOfUnicode()
{
    $codes = array_merge([0x9, 0xA], range(0x20, 0xD7FF), range(0xE000, 0x10FFFF));
    return textOf(array_filter($codes, 'isCharacter'));
}

/** The code points without character that XML can carry nevertheless. */
function noncharacters()
{
    $codes = array_merge(range(0xE000, 0xFFFD), range(0x10000, 0x10FFFF));
    return textOf(array_filter($codes, fn($code) => !isCharacter($code)));
}

function person($name, $age)
{
    return (object) ['name' => $name, 'age' => $age];
}

function shared()
{
    global $client;
    $person = person('Ann', 42);
    $back = $client->__soapCall('echoPair', [new SoapParam($person, 'first'),
                                             new SoapParam($person, 'second')]);
    if (!same(person('Ann', 42), $back['first']) || !same(person('Ann', 42), $back['second'])) {
        return 'came back ' . text($back);
    }
    return $back['first'] === $back['second'] ? 'ok' : 'came back as two objects';
}

function answeredHeader($mandatory)
{
    global $client;
    $entries = [];
    $client->__soapCall('echoValue', [1], null, new SoapHeader(URI, 'echo', 'ticket 7', $mandatory),
                        $entries);
    return $entries === ['echo' => 'ticket 7'] ? 'ok' : 'came back ' . text($entries);
}

/** Whether the call ends with a fault of that code. */
function faults($code, $work)
{
    try {
        $back = $work();
    } catch (SoapFault $fault) {
        $local = preg_replace('/^.*:/', '', $fault->faultcode);
        return $local === $code ? 'ok' : "fault $fault->faultcode: $fault->faultstring";
    }
    return 'no fault, came back ' . text($back);
}

function unknownVersion()
{
    global $url;
    // This peer writes no such envelope itself.
    $later = new class (null, ['location' => $url, 'uri' => URI]) extends SoapClient {
        public function __doRequest($request, $location, $action, $version, $oneWay = false): ?string
        {
            $request = str_replace('http://schemas.xmlsoap.org/soap/envelope/', 'urn:later', $request);
            return parent::__doRequest($request, $location, $action, $version, $oneWay);
        }
    };
    return faults('VersionMismatch', fn() => $later->__soapCall('echoValue', [1]));
}

$bytes = implode('', array_map('chr', range(0, 255)));
$date = '2026-12-31T23:59:59.25+01:00';
$cases = [
    'string' => fn() => plain('Hello, world', ''),
    'string: entities' => fn() => plain('<tag attr="v">Tom & \'Jerry\' &amp; &#65; ]]></tag>'),
    'string: blanks' => fn() => plain('  two leading, two trailing  ', "\t", '   '),
    'string: line breaks' => fn() => plain("a\nb\r\nc\rd\n"),
    'string: all of Unicode' => fn() => plain(allOfUnicode()),
    'string: noncharacters' => fn() => plain(noncharacters()),
    'int' => fn() => plain(0, 1, -1, 2147483647, -2147483648),
    'int beyond 32 bits' => fn() => plain(2147483648, PHP_INT_MAX),
    'double' => fn() => plain(0.5, -17.25, 0.1, 0.1 + 0.2, 1.5e300, 5e-324),
    'double: INF and NaN' => fn() => plain(INF, -INF, NAN),
    'boolean' => fn() => plain(true, false),
    'dateTime' => fn() => echoes([[new SoapVar($date, XSD_DATETIME), $date]]),
    'base64' => fn() => echoes([[new SoapVar($bytes, XSD_BASE64BINARY), $bytes]]),
    'nil' => fn() => plain(null),
    'struct' => fn() => plain(person('Ann', 42)),
    'nested structs' => fn() => plain((object) ['a' => (object) ['b' => person('Bob', null)],
                                                'c' => person('', 7)]),
    'array of simple values' => fn() => plain([1, 2, 3], ['a', '', 'c'], [1, 'two', 3.5, null]),
    'array of structs' => fn() => plain([person('Ann', 1), person('Bob', 2)]),
    'empty array' => fn() => plain([]),
    'two references to one object' => fn() => shared(),
    'header entry' => fn() => answeredHeader(false),
    'mandatory header entry' => fn() => answeredHeader(true),
    'mandatory header entry, unknown' => fn() => faults('MustUnderstand', fn() => $client->__soapCall(
        'echoValue', [1], null, new SoapHeader('urn:unknown', 'ticket', 'x', true))),
    'fault' => fn() => faults($isFirst ? 'Client' : 'Sender', fn() => call('unknownOperation', 1)),
    'unknown version' => fn() => unknownVersion(),
];

runCases($cases);

<?php
// SPDX-License-Identifier: MIT
//
// Calls the service of orders.wsdl with PHP's SoapClient: php php_client.php WSDL URL 1.1|1.2. A line for
// each case: its name and "ok" or what came back instead.

require __DIR__ . '/../php/cases.php';

ini_set('precision', '17');
ini_set('memory_limit', '1G');
ini_set('soap.wsdl_cache_enabled', '0');
const NAMES = ['text', 'count', 'number', 'decimal', 'flag', 'moment', 'bytes'];

[, $wsdl, $url, $version] = $argv;
$isFirst = $version === '1.1';
$client = new SoapClient($wsdl, ['location' => $url, 'features' => SOAP_SINGLE_ELEMENT_ARRAYS,
                                 'soap_version' => $isFirst ? SOAP_1_1 : SOAP_1_2]);

function text($value)
{
    $text = json_encode($value, JSON_UNESCAPED_UNICODE | JSON_PARTIAL_OUTPUT_ON_ERROR);
    return strlen($text) > 100 ? substr($text, 0, 100) . '...' : $text;
}

/** "ok" for the same types and values, NaN the same as itself; or the first that differs. */
function compare($wanted, $found, $path = '')
{
    if (is_object($wanted) && is_object($found)
        && array_keys((array) $wanted) === array_keys((array) $found)) {
        $wanted = (array) $wanted;
        $found = (array) $found;
    }
    if (is_array($wanted) && is_array($found) && array_keys($wanted) === array_keys($found)) {
        foreach ($wanted as $name => $member) {
            $result = compare($member, $found[$name], is_int($name) ? $path : "$path$name ");
            if ($result !== 'ok') {
                return $result;
            }
        }
        return 'ok';
    }
    $bothNan = is_float($wanted) && is_float($found) && is_nan($wanted) && is_nan($found);
    return $wanted === $found || $bothNan ? 'ok'
        : "{$path}wanted " . text($wanted) . ', came back ' . text($found);
}

function line($article, $amount, $price, $tags, $currency)
{
    return (object) (['article' => $article, 'amount' => $amount, 'price' => $price]
        + ($tags ? ['tag' => $tags] : []) + ($currency === null ? [] : ['currency' => $currency]));
}

function order($lines, $changes = [])
{
    $members = array_merge(['customer' => 'Jürgen & Zoë <Ltd> 漢字 😀',
                            'placed' => '2026-12-31T23:59:59+01:00', 'express' => true,
                            'remark' => 'soon', 'line' => $lines, 'number' => 'A-<1> & "2"'], $changes);
    return (object) array_filter($members, fn($member) => $member !== [] && $member !== 'absent');
}

/** Sends an order and expects it back with its sums. */
function places($order)
{
    global $client;
    $lines = $order->line ?? [];
    $cost = array_sum(array_map(fn($line) => $line->amount * (float) $line->price, $lines));
    return compare((object) ['order' => $order, 'amount' => array_sum(array_column($lines, 'amount')),
                             'cost' => (float) $cost], $client->placeOrder(['order' => $order]));
}

function echoes($name, $sent)
{
    global $client;
    $values = (object) ($name ? [$name => $sent] : []);
    return compare((object) ['values' => $values], $client->echoValues(['values' => $values]));
}

function isCharacter($code)
{
    return ($code & 0xFFFE) !== 0xFFFE && ($code < 0xFDD0 || $code > 0xFDEF);
}

/** Every character that XML can carry, but the carriage return, which has a case of its own. */
function allOfUnicode()
{
    $codes = array_filter(array_merge([0x9, 0xA], range(0x20, 0xD7FF), range(0xE000, 0x10FFFF)),
                          'isCharacter');
    return implode('', array_map(fn($part) => iconv('UCS-4BE', 'UTF-8', pack('N*', ...$part)),
                                 array_chunk($codes, 10000)));
}

/** Whether the call ends with a fault of that code and reason, and with that detail. */
function refuses($code, $reason, $work, $detail = null)
{
    try {
        $back = $work();
    } catch (SoapFault $fault) {
        return compare([$code, $reason, $detail],
                       [preg_replace('/^.*:/', '', $fault->faultcode), $fault->faultstring,
                        $fault->detail->unknownOrder ?? $fault->detail ?? null]);
    }
    return 'no fault, came back ' . text($back);
}

/** This peer calls what the WSDL has: the text of such a call is changed. */
function unknownOperation()
{
    global $wsdl, $url, $isFirst;
    $burning = new class ($wsdl, ['location' => $url,
                                  'soap_version' => $isFirst ? SOAP_1_1 : SOAP_1_2]) extends SoapClient {
        public function __doRequest($request, $location, $action, $version, $oneWay = false): ?string
        {
            $request = str_replace('cancelOrder', 'burnOrder', $request);
            return parent::__doRequest($request, $location, $action, $version, $oneWay);
        }
    };
    return $burning->cancelOrder(['number' => 'A']);
}

$clientCode = $isFirst ? 'Client' : 'Sender';
$serverCode = $isFirst ? 'Server' : 'Receiver';
$lines = [line('nut', 3, '17.25', ['small', 'steel'], 'EUR'), line('bolt', 40, '0.50', [], null)];
$cases = [
    'order' => fn() => places(order($lines)),
    'order without lines' => fn() => places(order([])),
    'order of 1000 lines' => fn() => places(order(array_map(
        fn($i) => line("article $i", $i, '0.5', ['a', 'b'], 'EUR'), range(1, 1000)))),
    'optional element absent' => fn() => places(order([], ['express' => 'absent'])),
    'nil element' => fn() => places(order([], ['remark' => null])),
    'empty element that may be nil' => fn() => places(order([], ['remark' => ''])),
    'no values' => fn() => echoes(null, []),
    'string' => fn() => echoes('text', ['Hello, world']),
    'string: empty' => fn() => echoes('text', ['a', '', 'b']),
    'string: nil' => fn() => echoes('text', ['a', null, 'b']),
    'string: entities' => fn() => echoes('text', ['<tag attr="v">Tom & \'Jerry\' &amp; &#65; ]]></tag>']),
    'string: blanks' => fn() => echoes('text', ['  two leading, two trailing  ', "\t", '   ']),
    'string: line breaks' => fn() => echoes('text', ["a\nb\r\nc\rd\n"]),
    'string: all of Unicode' => fn() => echoes('text', [allOfUnicode()]),
    'long' => fn() => echoes('count', [0, -1, 2147483648, PHP_INT_MAX, PHP_INT_MIN]),
    'double' => fn() => echoes('number', [0.5, -17.25, 0.1, 0.1 + 0.2, 1.5e300, 5e-324]),
    'double: INF and NaN' => fn() => echoes('number', [INF, -INF, NAN]),
    'decimal' => fn() => echoes('decimal', ['17.25', '-123456789012.125']),
    'decimal of 33 digits' => fn() => echoes('decimal', ['-123456789012345678901234567890.125']),
    'boolean' => fn() => echoes('flag', [true, false, true]),
    'dateTime' => fn() => echoes('moment', ['2026-12-31T23:59:59+01:00', '1999-02-28T00:00:00Z']),
    'dateTime: fraction' => fn() => echoes('moment', ['2026-12-31T23:59:59.25+01:00']),
    'base64' => fn() => echoes('bytes', [implode('', array_map('chr', range(0, 255))), 'a']),
    'fault' => fn() => refuses($serverCode, 'Nothing of <nut> & co.', fn() => $client->placeOrder(
        ['order' => order([line('nut', 0, '1', [], null)])])),
    'fault with typed detail' => fn() => refuses($clientCode, 'No order <B & <é>> & co.',
        fn() => $client->cancelOrder(['number' => 'B & <é>']),
        (object) ['number' => 'B & <é>', 'orders' => '42']), // details are read without their types
    'unknown operation' => fn() => refuses($clientCode, 'There is no operation burnOrder',
                                           fn() => unknownOperation()),
];

runCases($cases);

<?php
// SPDX-License-Identifier: MIT
//
// The service of orders.wsdl with PHP's SoapServer, for PHP's own web server: php -S 127.0.0.1:0
// php_server.php, which answers SOAP 1.2 with SOAP 1.2.

class Orders
{
    public function placeOrder($request)
    {
        $lines = $request->order->line ?? [];
        foreach ($lines as $line) {
            if ($line->amount === 0) {
                throw new SoapFault('Server', "Nothing of <$line->article> & co.");
            }
        }
        $cost = array_sum(array_map(fn($line) => $line->amount * (float) $line->price, $lines));
        return ['order' => $request->order, 'amount' => array_sum(array_column($lines, 'amount')),
                'cost' => (float) $cost];
    }

    public function echoValues($request)
    {
        return ['values' => $request->values];
    }

    public function cancelOrder($request)
    {
        throw new SoapFault('Client', "No order <$request->number> & co.", null,
                            ['number' => $request->number, 'orders' => 42], 'unknownOrder');
    }
}

ini_set('precision', '17');
ini_set('memory_limit', '1G');
ini_set('soap.wsdl_cache_enabled', '0');
$server = new SoapServer(__DIR__ . '/orders.wsdl', ['features' => SOAP_SINGLE_ELEMENT_ARRAYS]);
$server->setObject(new Orders());
$server->handle();

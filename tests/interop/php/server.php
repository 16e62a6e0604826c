<?php
// SPDX-License-Identifier: MIT
//
// The echo service of PHP's SoapServer, for PHP's own web server: php -S 127.0.0.1:0 server.php, which
// answers SOAP 1.2 with SOAP 1.2

class EchoService
{
    /** Header entries "echo" come here before the operation. */
    public function echo($value)
    {
        global $server;
        $server->addSoapHeader(new SoapHeader('urn:example:echo', 'echo', $value));
    }

    public function echoValue($value)
    {
        return $value;
    }

    /** Bytes are strings in PHP: their type has to be told. */
    public function echoBase64($bytes)
    {
        return new SoapVar($bytes, XSD_BASE64BINARY);
    }

    public function echoPair($first, $second)
    {
        return (object) ['first' => $first, 'second' => $second, 'same' => $first === $second];
    }

    public function echoFault($text)
    {
        throw new SoapFault('Server', $text, 'urn:example:actor', (object) ['why' => $text]);
    }
}

// As many digits as a double needs.
ini_set('precision', '17');
$server = new SoapServer(null, ['uri' => 'urn:example:echo']);
$server->setObject(new EchoService());
$server->handle();

#!/usr/bin/perl
# SPDX-License-Identifier: MIT
#
# The echo service of SOAP::Lite, on a port of its own choice, which it prints.
use strict;
use warnings;
use utf8;
use SOAP::Lite;
use SOAP::Transport::HTTP;

package EchoService;

# What a method is given last holds the whole request.
our @ISA = ('SOAP::Server::Parameters');

sub echoValue {
    my (undef, $value) = @_;
    pop;
    return SOAP::Data->name(value => $value);
}

# The types that Perl's own values do not have must be told.
sub echoTyped {
    my $som = pop;
    my $data = $som->dataof('/Envelope/Body/[1]/[1]');
    my $type = $data->type // '';
    $type =~ s/.*://;
    return SOAP::Data->name(value => $data->value)->type($type);
}

sub echoPair {
    my $som = pop;
    my (undef, $first, $second) = @_;
    return (SOAP::Data->name(first => $first), SOAP::Data->name(second => $second),
            SOAP::Data->name(same => ref $first && $first == $second ? 1 : 0)->type('boolean'));
}

sub echoHeaders {
    my $som = pop;
    my @entries = map { SOAP::Header->name($_->name)->uri($_->uri)->value($_->value) }
        $som->headerof('//Header/[1]');
    return (SOAP::Data->name(value => 1), @entries);
}

sub echoFault {
    my (undef, $text) = @_;
    die SOAP::Fault->faultcode('Server')->faultstring($text)->faultactor('urn:example:actor')
        ->faultdetail({ why => $text });
}

package main;

$| = 1;
my $daemon = SOAP::Transport::HTTP::Daemon->new(LocalAddr => '127.0.0.1', LocalPort => 0)
    ->dispatch_with({ 'urn:example:echo' => 'EchoService' });
print 'listening on ', $daemon->url, "\n";
$daemon->handle;

#!/usr/bin/perl
# SPDX-License-Identifier: MIT
#
# Calls an echo service with SOAP::Lite: client.pl URL 1.1|1.2. A line for each case: its name, "ok" or
# what came back instead.
use strict;
use warnings;
use utf8;
use MIME::Base64 ();
use SOAP::Lite;

binmode STDOUT, ':encoding(UTF-8)';
use constant URI => 'urn:example:echo';

my ($url, $version) = @ARGV;
# Only what is made afterwards has the version.
SOAP::Lite->soapversion($version);
my $soap = service();

sub service {
    my $service = SOAP::Lite->proxy($url)->uri(URI);
    $service->on_fault(sub {
        my ($called, $answer) = @_;
        die ref $answer ? $answer : 'transport: ' . $called->transport->status . "\n";
    });
    return $service;
}

sub text {
    my ($value) = @_;
    return 'undef' unless defined $value;
    return '[' . join(', ', map { text($_) } @$value) . ']' if ref $value eq 'ARRAY';
    return '{' . join(', ', map { "$_: " . text($value->{$_}) } sort keys %$value) . '}'
        if ref $value;
    return length $value > 100 ? substr($value, 0, 100) . '...' : "'$value'";
}

# Where two long texts begin to differ.
sub difference {
    my ($left, $right) = @_;
    my $at = 0;
    ++$at while $at < length $left && substr($left, $at, 1) eq substr($right, $at, 1);
    return sprintf 'sent %s characters, came back %s; the first to differ is %s',
        length $left, length $right, sprintf 'U+%04X, which is %s', ord substr($left, $at, 1),
        $at < length $right ? sprintf 'U+%04X', ord substr($right, $at, 1) : 'missing';
}

# Structure and texts, compared as Perl compares texts.
sub same {
    my ($left, $right) = @_;
    return !defined $left && !defined $right unless defined $left && defined $right;
    return $left eq $right unless ref $left || ref $right;
    if (ref $left eq 'ARRAY') {
        return 0 unless ref $right eq 'ARRAY' && @$left == @$right;
        return !grep { !same($left->[$_], $right->[$_]) } 0 .. $#$left;
    }
    return 0 unless ref $left && ref $right && ref $right ne 'ARRAY';
    return join("\0", sort keys %$left) eq join("\0", sort keys %$right)
        && !grep { !same($left->{$_}, $right->{$_}) } keys %$left;
}

sub call {
    my ($operation, @parameters) = @_;
    return $soap->call($operation => @parameters);
}

# Sends each value, of that type if there is one, and expects it back as it was or as the hash says;
# tells the first that comes back different.
sub echoes {
    my ($type, $wanted, @values) = @_;
    for my $value (@values) {
        my $parameter = SOAP::Data->name(value => $value);
        $parameter->type($type) if $type;
        my $back = call(echoValue => $parameter)->result;
        next if same(defined $value && exists $wanted->{$value} ? $wanted->{$value} : $value, $back);
        return difference($value, $back) if defined $value && length $value > 50;
        return 'sent ' . text($value) . ', came back ' . text($back);
    }
    return 'ok';
}

sub is_character {
    my ($code) = @_;
    return ($code & 0xFFFE) != 0xFFFE && ($code < 0xFDD0 || $code > 0xFDEF);
}

# Every character that XML can carry, but the carriage return, which has a case of its own.
sub all_of_unicode {
    return join '', "\t\n", map { chr } grep { is_character($_) } 0x20 .. 0xD7FF,
        0xE000 .. 0x10FFFF;
}

# The code points without character that XML can carry nevertheless.
sub noncharacters {
    no warnings 'utf8';
    return join '', map { chr } grep { !is_character($_) } 0xE000 .. 0xFFFD, 0x10000 .. 0x10FFFF;
}

sub person { return { name => $_[0], age => $_[1] } }

sub shared {
    my $person = person('Ann', 42);
    my $answer = call(echoPair => SOAP::Data->name(first => $person),
                      SOAP::Data->name(second => $person));
    my ($first, $second) = ($answer->valueof('//first'), $answer->valueof('//second'));
    return 'came back ' . text($first) . ' and ' . text($second)
        unless same($person, $first) && same($person, $second);
    return $first == $second ? 'ok' : 'came back as two objects';
}

sub header {
    my ($space, $name, $mandatory) = @_;
    return SOAP::Header->name($name)->uri($space)->value('ticket 7')->mustUnderstand($mandatory);
}

sub answered_header {
    my ($mandatory) = @_;
    my $entry = call(echoValue => 1, header(URI, 'echo', $mandatory))->headerof('//Header/echo');
    return $entry && $entry->value eq 'ticket 7' ? 'ok' : 'came back ' . text($entry && $entry->value);
}

# Code and reason of a fault. The peer's own operations know the elements of SOAP 1.1 only.
sub parts_of {
    my ($fault) = @_;
    return ($fault->faultcode, $fault->faultstring) if $version eq '1.1';
    return map { $fault->valueof("//Fault/$_") // '' } 'Code/Value', 'Reason/Text';
}

# Whether the call ends with a fault of that code and, if one is given, of that reason.
sub faults {
    my ($code, $work, $wanted) = @_;
    return 'no fault' if eval { $work->(); 1 };
    return $@ unless ref $@;
    my ($found, $reason) = parts_of($@);
    my $local = $found =~ s/.*://r;
    my $same = $local eq $code && $reason eq ($wanted // $reason);
    return $same ? 'ok' : "fault $found: $reason";
}

# This peer writes no other envelope itself.
sub unknown_version {
    my $text = $soap->serializer->envelope(method => 'echoValue', 1);
    my $known = $version eq '1.1' ? 'http://schemas.xmlsoap.org/soap/envelope/'
        : 'http://www.w3.org/2003/05/soap-envelope';
    $text =~ s/\Q$known\E/urn:later/g or return "no envelope of SOAP $version in $text";
    my $answer = $soap->transport->send_receive(context => $soap, endpoint => $url,
        action => '', envelope => $text, encoding => 'utf-8');
    my $som = $soap->deserializer->deserialize($answer);
    return 'no fault' unless $som->fault;
    my ($code, $reason) = parts_of($som);
    return $code =~ /(^|:)VersionMismatch$/ ? 'ok' : "fault $code: $reason";
}

my $bytes = join '', map { chr } 0 .. 255;
my @cases = (
    'string' => sub { echoes('string', {}, 'Hello, world', '') },
    'string: entities' =>
        sub { echoes('string', {}, q{<tag attr="v">Tom & 'Jerry' &amp; &#65; ]]></tag>}) },
    'string: blanks' => sub { echoes('string', {}, '  two leading, two trailing  ', "\t", '   ') },
    'string: line breaks' => sub { echoes('string', {}, "a\nb\r\nc\rd\n") },
    'string: all of Unicode' => sub { echoes('string', {}, all_of_unicode()) },
    'string: noncharacters' => sub { echoes('string', {}, noncharacters()) },
    'int' => sub { echoes(undef, {}, 0, 1, -1, 2147483647, -2147483648) },
    'int beyond 32 bits' => sub { echoes(undef, {}, '2147483648', '9223372036854775807') },
    'double' => sub { echoes(undef, {}, 0.5, -17.25, 0.1, '0.30000000000000004', 1.5e300) },
    'double: INF and NaN' => sub { echoes('double', {}, 'INF', '-INF', 'NaN') },
    'boolean' => sub { echoes('boolean', { true => 1, false => 0 }, 'true', 'false') },
    'dateTime' => sub { echoes('dateTime', {}, '2026-12-31T23:59:59.25+01:00') },
    'base64' => sub { echoes('base64Binary', {}, $bytes) },
    'nil' => sub { echoes(undef, {}, undef) },
    'struct' => sub { echoes(undef, {}, person('Ann', 42)) },
    'nested structs' =>
        sub { echoes(undef, {}, { a => { b => person('Bob', undef) }, c => person('', 7) }) },
    'array of simple values' =>
        sub { echoes(undef, {}, [1, 2, 3], ['a', '', 'c'], [1, 'two', 3.5, undef]) },
    'array of structs' => sub { echoes(undef, {}, [person('Ann', 1), person('Bob', 2)]) },
    'empty array' => sub { echoes(undef, {}, []) },
    'two references to one object' => \&shared,
    'header entry' => sub { answered_header(0) },
    'mandatory header entry' => sub { answered_header(1) },
    'mandatory header entry, unknown' => sub {
        faults('MustUnderstand', sub { call(echoValue => 1, header('urn:unknown', 'ticket', 1)) });
    },
    'fault' => sub {
        faults($version eq '1.1' ? 'Client' : 'Sender', sub { call(unknownOperation => 1) },
               'There is no operation unknownOperation');
    },
    'unknown version' => \&unknown_version,
);

while (my ($name, $case) = splice @cases, 0, 2) {
    my $result = eval { $case->() };
    if (!defined $result) {
        $result = ref $@ ? 'fault ' . join ': ', parts_of($@) : $@;
    }
    print $name, "\t", $result =~ s/[\t\n]+/ /gr, "\n";
}

#!/usr/bin/perl
# SPDX-License-Identifier: MIT
#
# Makes a table of interoperability for messages of one style: table.pl LOSSES STYLE COLUMN=FILE... A file
# has a line for each case: name, result and perhaps a remark, with tabs between them. Exit status 1 when
# a result is neither "ok" nor one of the known losses of the peers nor "n/a: " and why the peer has no way
# to try.
use strict;
use warnings;

my ($losses, $style, @columns) = @ARGV;

sub lines {
    my ($file) = @_;
    open my $in, '<', $file or die "$file: $!\n";
    my @lines = grep { !/^#/ } <$in>;
    chomp @lines;
    return map { [split /\t/, $_, -1] } @lines;
}

my %known;
for my $loss (lines($losses)) {
    my ($of, $column, $case, $result, $why) = @$loss;
    next if $of ne $style;
    $known{$column}{$case} = { result => $result, why => $why };
}

my (@cases, %cells, @notes, $failed, @names);

# A cell of the table, with the number of its note; the same note has the same number.
sub shown {
    my ($cell) = @_;
    return 'MISSING' unless $cell;
    my ($text, $note) = @$cell;
    return $text unless $note;
    my ($found) = grep { $notes[$_] eq $note } 0 .. $#notes;
    $found //= push(@notes, $note) - 1;
    return "$text (" . ($found + 1) . ')';
}

for my $column (@columns) {
    my ($name, $file) = split /=/, $column, 2;
    push @names, $name;
    for my $line (lines($file)) {
        my ($case, $result, $remark) = @$line;
        push @cases, $case unless grep { $_ eq $case } @cases;
        my $loss = $known{$name}{$case};
        if ($loss && $loss->{result} eq $result) {
            $cells{$case}{$name} = ['lost by the peer', $loss->{why}];
            $loss->{seen} = 1;
        }
        elsif ($result =~ m{^n/a: (.*)}) {
            $cells{$case}{$name} = ['not possible there', $1];
        }
        elsif ($result eq 'ok') {
            $cells{$case}{$name} = ['passes', $remark ? "In \"$name\", $remark." : undef];
        }
        else {
            $failed = 1;
            $cells{$case}{$name} = ["FAILS: $result", undef];
            print STDERR "interop: $name: $case: $result\n";
        }
    }
}

print '| | ', join(' | ', @names), " |\n|---", '|---' x @names, "|\n";
for my $case (@cases) {
    print "| $case | ", join(' | ', map { shown($cells{$case}{$_}) } @names), " |\n";
    for my $name (grep { !$cells{$case}{$_} } @names) {
        $failed = 1;
        print STDERR "interop: $name: $case: did not run\n";
    }
}
print "\n";
print $_ + 1, ". $notes[$_]\n" for 0 .. $#notes;

# A loss that does not happen any more is no known loss.
for my $name (sort keys %known) {
    for my $case (grep { !$known{$name}{$_}{seen} } sort keys %{ $known{$name} }) {
        $failed = 1;
        print STDERR "interop: $name: $case: the known loss did not happen\n";
    }
}
exit($failed ? 1 : 0);

# Takes the time at which a type library was made out of it, so that the same source gives the same file.
#   perl without_time.pl FILE
use strict;
use warnings;

my ($path) = @ARGV;
open(my $in, '<:raw', $path) or die "$path: $!\n";
my $bytes = do { local $/; <$in> };
close($in);

# As a text of 24 characters, and as a number behind it.
my $count = $bytes =~ s/(Created by WIDL version [0-9.]+ at )[^\n]{24}(\n.{0,3}\x13\x00).{4}/$1Thu Jan  1 00:00:00 1970$2\0\0\0\0/sg;
die "$path: no time where it was looked for\n" unless $count == 1;

open(my $out, '>:raw', $path) or die "$path: $!\n";
print $out $bytes;
close($out) or die "$path: $!\n";

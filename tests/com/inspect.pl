# What can be told of the control's file without running it: which programs can load it, what it exports and asks of the system, and for
# which platform its type library is.
#   perl inspect.pl OBJDUMP FILE 4|8         the last is the bytes of an address
use strict;
use warnings;

my ($objdump, $path, $width) = @ARGV;
my %expected = (4 => ['pei-i386', 1], 8 => ['pei-x86-64', 3]);
my ($format, $system) = @{$expected{$width}};
my $failures = 0;

sub expect {
  my ($what, $seen, $wanted) = @_;
  return if $seen eq $wanted;
  print "$path: $what is\n  $seen\nand not\n  $wanted\n";
  ++$failures;
}

my $headers = `$objdump -f -p '$path'`;
die "$objdump tells nothing of $path\n" if $? != 0;
$headers =~ /file format (\S+)/;
expect('the format', $1, $format);

my ($exports) = $headers =~ /\[Ordinal\/Name Pointer\] Table\n(.*?)\n\n/s;
expect('the list of exports', join(' ', sort($exports =~ /\] (\S+)/g)),
       'DllCanUnloadNow DllGetClassObject DllRegisterServer DllUnregisterServer');

# Libraries of the compiler, which no Windows has.
my @foreign = grep { /^lib|pthread|stdc/i } $headers =~ /DLL Name: (\S+)/g;
expect('the list of libraries to bring along', "@foreign", '');

# The system asks no handler of exceptions in a file with this mark, and the control has one on 32 bits.
my ($marks) = $headers =~ /DllCharacteristics\s+([0-9a-f]+)/;
expect('the mark against handlers', hex($marks) & 0x400, 0);

open(my $in, '<:raw', $path) or die "$path: $!\n";
my $bytes = do { local $/; <$in> };
close($in);
# The lowest digit of the sixth number of a type library is the platform.
my @libraries = $bytes =~ /MSFT\x02\x00\x01\x00.{12}(....)/sg;
expect('the count of type libraries', scalar(@libraries), 1);
expect('the platform of the type library', @libraries ? unpack('V', $libraries[0]) & 0xF : 'none', $system);
exit($failures > 0);

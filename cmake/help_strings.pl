# Writes what a type library says of each member and event, by the list of the contract and the comments of the headers.
#   perl help_strings.pl CONTRACT CONTROL HOST >FILE
use strict;
use warnings;

sub lines_of {
  my ($path) = @_;
  open(my $in, '<', $path) or die "$path: $!\n";
  my @lines = <$in>;
  close($in);
  chomp @lines;
  return \@lines;
}

# The comment before a declaration. One that stands before several belongs to all of them.
sub comment_before {
  my ($lines, $declaration) = @_;
  my ($at) = grep { $lines->[$_] =~ /$declaration/ } 0 .. $#$lines;
  die "no declaration $declaration\n" unless defined $at;
  --$at while $at > 0 && $lines->[$at - 1] =~ /^\s+[^\s\/]/;
  my @comment;
  for (--$at; $at >= 0 && $lines->[$at] =~ /^\s+\/\/\/ (.*)/; --$at) {
    unshift @comment, $1;
  }
  die "no comment before $declaration\n" unless @comment;
  return join ' ', @comment;
}

my ($contract, $control, $host) = map { lines_of($_) } @ARGV;
for (@$contract) {
  next unless /^ZOLT20_(\w+)\(\d+, (?:(?:String|Integer|Boolean), )?(\w+)/;
  my ($kind, $name) = ($1, $2);
  my $text;
  if ($kind eq 'EVENT') {
    $text = comment_before($host, "void $name\\(");
  } elsif ($kind =~ /^METHOD/) {
    $text = comment_before($control, "^  Variant $name\\(");
  } else {
    my $read = $kind =~ /GET/ ? comment_before($control, "^  \\w+ $name\\(\\)") : '';
    my $written = $kind =~ /LET/ ? comment_before($control, "^  void $name\\(\\w+ \\w+\\);") : '';
    # A type library has one text for both.
    $text = $read eq $written || $written eq '' ? $read : $read eq '' ? $written : "Read: $read Written: $written";
  }
  $text =~ tr/`"/''/;
  print "#define ZOLT20_HELP_$name \"$text\"\n";
}

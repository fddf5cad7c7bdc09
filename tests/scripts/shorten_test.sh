#!/usr/bin/env bash
# ./shorten over sessions and programs made up here, each with a fault of which is known which lines it takes. Prints a line for each
# case that fails.
#   shorten_test.sh SOURCES
set -u
sources=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit
failed=0

# leaves NAME STATUS LINES ARGUMENT...: ./shorten on session.jsonl must end so and leave just these lines.
leaves() {
  local name=$1 expected=$2 lines=$3 status left=""
  shift 3
  rm -f session.jsonl.short
  "$sources/shorten" session.jsonl "$@" >said 2>&1
  status=$?
  [ ! -f session.jsonl.short ] || left=$(tr '\n' ' ' <session.jsonl.short)
  if [ $status -ne "$expected" ] || [ "$left" != "$lines" ]; then
    echo "$name: ended with $status, not $expected, and left \"$left\", not \"$lines\""
    cat said
    failed=1
  fi
}

# program NAME: what comes in becomes a program that gets a session.
program() {
  { echo '#!/usr/bin/env bash' && cat; } >"$1"
  chmod +x "$1"
}

# Fails when 3 comes before 17 somewhere and 20 is there.
program order <<'END'
awk '$1 == 3 { three = 1 } $1 == 17 && three { both = 1 } $1 == 20 { last = 1 } END { exit both && last }' "$1"
END
{ echo '# a comment' && seq 40 && echo; } >session.jsonl
leaves 'three lines far apart' 0 '3 17 20 ' -- ./order
seq 40 -1 1 >session.jsonl
leaves 'a session that does not fail' 2 '' -- ./order

# Two failures, of which the first hides the second.
program two <<'END'
grep -q '^5$' "$1" && { echo 'the form differs'; exit 1; }
grep -q '^9$' "$1" && grep -q '^30$' "$1" && { echo 'the log differs'; exit 1; }
exit 0
END
seq 6 40 >session.jsonl
leaves 'a failure by its words' 0 '9 30 ' --says 'the log differs' -- ./two
leaves 'a failure with other words' 2 '' --says 'the form differs' -- ./two

# Two programs, of which one forgets a 7 behind a 2.
program right <<'END'
cat "$1"
END
program wrong <<'END'
awk '$1 == 2 { two = 1 } !($1 == 7 && two)' "$1"
END
seq 20 >session.jsonl
leaves 'two programs' 0 '2 7 ' --against ./right -- ./wrong

# A reply tells how many lines came before; the fault counts one too many behind a 4.
program counts <<'END'
awk '{ print "{\"sum\":" sum "}"; sum += 0 } $1 == 4 { sum = 1 }' "$1" | sed 's/:}/:0}/'
END
seq 10 >session.jsonl
yes '{"sum":0}' | head -10 >replies.jsonl
leaves 'a reply that is not the expected one' 0 '4 5 ' --replies replies.jsonl -- ./counts

# A program that hangs fails too.
program hangs <<'END'
grep -q '^8$' "$1" && sleep 5
exit 0
END
seq 6 9 >session.jsonl
leaves 'a program that hangs' 0 '8 ' --seconds 0.4 -- ./hangs

exit $failed

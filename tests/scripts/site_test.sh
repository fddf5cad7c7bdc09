#!/usr/bin/env bash
# What makes the site of pages, over files made up here: which comments a header gets, which links are refused. Prints a line for each
# case that fails.
#   site_test.sh SOURCES
set -u
sources=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit
failed=0

# expect NAME WANTED SEEN
expect() {
  if [ "$2" != "$3" ]; then
    printf '%s: not\n%s\nbut\n%s\n' "$1" "$2" "$3"
    failed=1
  fi
}

mkdir -p scripts/site shell surface
cp "$sources/shell/contract.def" shell/
echo 'surface/form.h Form.plain: A line of its own.' >scripts/site/members.txt
cat >surface/form.h <<'END'
// A form.
//
// It holds controls.
#pragma once

class Form {
 public:
  /// Both are rows, from 0.
  int First() const;
  int Last() const;

  int plain = 0;
  int told = 0;  // once

  int Width() const { return 1; }
  /// In twips.
  void Width(int width);

  int bare = 0;

 private:
  int hidden_ = 0;
};
END
expect 'the comments of a header' '/// \file
/// A form.
///
/// It holds controls.
#pragma once

/// A form.
///
/// It holds controls.
class Form {
 public:
  /// Both are rows, from 0.
  int First() const;
  /// Both are rows, from 0.
  int Last() const;

  /// A line of its own.
  int plain = 0;
  int told = 0;  ///< once

  /// In twips.
  int Width() const { return 1; }
  /// In twips.
  void Width(int width);

  int bare = 0;

 private:
/// \cond
  int hidden_ = 0;
/// \endcond
};' "$(python3 "$sources/scripts/site/comments.py" surface/form.h 2>&1)"
echo 'surface/form.h Form.gone: A line of nothing.' >>scripts/site/members.txt
expect 'a line of no member' \
  'scripts/site/members.txt: warning: Form.gone has a comment of its own, or is not there, and needs no line' \
  "$(python3 "$sources/scripts/site/comments.py" surface/form.h 2>&1 >/dev/null)"

mkdir -p html
echo '<a href="two.html#here">a</a><img src="picture.png"><a href="https://example.org/">b</a>' >html/one.html
echo '<p id="here"><a href="one.html">a</a><a href="#here">b</a></p>' >html/two.html
: >html/picture.png
expect 'links that lead somewhere' '2 pages, 4 links within the site' "$(python3 "$sources/scripts/site/links.py" html)"
echo '<a href="two.html#there">a</a><img src="gone.png"><a href="three.html">b</a>' >html/one.html
expect 'links that lead nowhere' 'one.html: gone.png is not there
one.html: three.html is not there
one.html: two.html#there is not there, but its page is
2 pages, 5 links within the site' "$(python3 "$sources/scripts/site/links.py" html)"
python3 "$sources/scripts/site/links.py" html >/dev/null && expect 'the status of links that lead nowhere' 1 0

exit $failed

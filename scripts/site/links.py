#!/usr/bin/env python3
"""Checks that every link within a site leads somewhere: each file that is linked or shown is there, with the place in it.

Links to other sites are not followed. Exit status 1 when one leads nowhere.
  links.py FOLDER
"""
import html.parser
import pathlib
import sys
import urllib.parse


class Reader(html.parser.HTMLParser):
    """The links of a page, and the places in it that links can lead to."""

    def __init__(self):
        super().__init__()
        self.links = []
        self.places = set()

    def handle_starttag(self, tag, attrs):
        for name, value in attrs:
            if name in ('href', 'src') and value and not (tag == 'a' and value.startswith('javascript:')):
                self.links.append(value)
            elif name == 'id' or (name == 'name' and tag == 'a'):
                self.places.add(value)


def main():
    folder = pathlib.Path(sys.argv[1])
    pages = {}
    for path in sorted(folder.rglob('*.html')):
        if path.parent.name != 'search':
            pages[path] = Reader()
            pages[path].feed(path.read_text('utf-8'))
    broken = set()
    count = 0
    for path, page in pages.items():
        for link in page.links:
            parts = urllib.parse.urlsplit(link)
            if parts.scheme or parts.netloc:
                continue
            count += 1
            target = path.parent / urllib.parse.unquote(parts.path) if parts.path else path
            if not target.is_file():
                broken.add('%s: %s is not there' % (path.name, link))
            elif parts.fragment and target in pages and urllib.parse.unquote(parts.fragment) not in pages[target].places:
                broken.add('%s: %s is not there, but its page is' % (path.name, link))
    for complaint in sorted(broken):
        print(complaint)
    if not pages:
        print('There is no page in %s' % folder)
        return 1
    print('%d pages, %d links within the site' % (len(pages), count))
    return 1 if broken else 0


if __name__ == '__main__':
    sys.exit(main())

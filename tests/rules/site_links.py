"""Checks that every link of a site leads to a file of it, and to a place that the page has. Usage: site_links.py SITE

Links to other machines are left alone.
"""

import html.parser
import pathlib
import sys
import urllib.parse


class Page(html.parser.HTMLParser):
    """The links of a page and the places in it."""

    def __init__(self, text):
        super().__init__()
        self.links, self.places = [], set()
        self.feed(text)

    def handle_starttag(self, tag, attrs):
        for name, value in attrs:
            if name in ("href", "src") and value is not None:
                self.links.append(value)
            elif name in ("id", "name") and value:
                self.places.add(value)


def dead_links(site):
    pages = {path.resolve(): Page(path.read_text(encoding="utf-8")) for path in sorted(site.rglob("*.html"))}
    for path, page in pages.items():
        for link in page.links:
            address = urllib.parse.urlsplit(link)
            if address.scheme or address.netloc:
                continue
            target = (path.parent / urllib.parse.unquote(address.path)).resolve() if address.path else path
            place = urllib.parse.unquote(address.fragment)
            if not target.is_file() or site.resolve() not in target.parents:
                yield f"{path.name}: {link} is not there"
            elif place and target in pages and place not in pages[target].places:
                yield f"{path.name}: {link} names a place that its page has not"


def main(site):
    found = list(dead_links(pathlib.Path(site)))
    print("\n".join(found) or "every link of the site leads somewhere")
    return 1 if found else 0


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    sys.exit(main(sys.argv[1]))

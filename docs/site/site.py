"""Puts the documents together into a site. Usage: site.py OUTPUT

The pages are those of PAGES, the manual pages of the programs, the tables made from the headers, and the reference that
Doxygen makes of the headers. A warning of any of the tools is a failure.
"""

import html
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

import markdown

import tables

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
HERE = pathlib.Path(__file__).resolve().parent

# Of each part of the site: its title, and title and document of each page.
PAGES = (
    ("Start", (("Overview", "README.md"), ("First steps", "docs/first-steps.md"),
               ("Guide for applications", "docs/guide.md"))),
    ("The host platform", (("Links: network.json", "docs/network-json.md"),
                           ("Settings, features, log", "docs/settings-json.md"),
                           ("The phone's toolkit", "docs/toolkit.md"),
                           ("Connections of a Linux phone", "docs/linux-phone.md"),
                           ("Formats, byte by byte", "docs/formats.md"))),
    ("The project", (("Design", "docs/design.md"), ("Build for the phone", "docs/phone-build.md"),
                     ("Adding a language", "docs/translating.md"),
                     ("Dependencies", "docs/dependencies.md"), ("Working on it", "CONTRIBUTING.md"),
                     ("Changes", "CHANGELOG.md"))),
)
REFERENCE = (("Classes", "api/annotated.html"), ("Headers", "api/files.html"), ("Functions", "api/globals_func.html"))
EXTENSIONS = ["tables", "fenced_code", "toc", "sane_lists", "attr_list"]
LINK = re.compile(r'(href|src)="([^"#:]+)(#[^"]*)?"')


def page_name(document):
    """The name of a document's page; the page that is opened first is that of the whole tree."""
    return "index.html" if document == "README.md" else pathlib.Path(document).stem.lower() + ".html"


def run(*command, **options):
    done = subprocess.run(command, capture_output=True, text=True, check=False, cwd=ROOT, **options)
    if done.returncode != 0 or done.stderr.strip():
        sys.exit(f"{command[0]}: {done.stderr or done.stdout}")
    return done.stdout


class Site:
    def __init__(self, output):
        self.output = output
        self.manuals = sorted(ROOT.glob("apps/**/*.1"))
        self.parts = [(title, list(pages)) for title, pages in PAGES]
        documents = [document for _, pages in self.parts for _, document in pages]
        # A document that has no place above comes to the last part, under its own title.
        for path in sorted(ROOT.glob("docs/*.md")):
            document = str(path.relative_to(ROOT))
            if document not in (*documents, "docs/README.md"):
                self.parts[-1][1].append((path.read_text(encoding="utf-8").split("\n", 1)[0].lstrip("# "), document))
                documents.append(document)
        self.pages = {document: page_name(document) for document in documents}

    def navigation(self, current, up=""):
        """The list of all pages; `up` leads from the page to the site's folder."""
        parts = [(title, [(name, self.pages[document]) for name, document in pages]) for title, pages in self.parts]
        parts.insert(2, ("Programs", [(path.stem, f"{path.stem}.1.html") for path in self.manuals]))
        parts.insert(3, ("Reference", list(REFERENCE)))
        lines = []
        for title, pages in parts:
            links = "".join(self.link(name, up, target, current) for name, target in pages)
            lines.append(f"<h2>{title}</h2><ul>{links}</ul>")
        return "".join(lines)

    def link(self, name, up, target, current):
        here = ' aria-current="page"' if target == current else ""
        return f'<li><a href="{up}{target}"{here}>{html.escape(name)}</a></li>'

    def frame(self, title, content, current, up=""):
        text = (HERE / "page.html").read_text(encoding="utf-8")
        for name, value in (("UP", up), ("TITLE", title), ("NAVIGATION", self.navigation(current, up)),
                            ("CONTENT", content)):
            text = text.replace(f"@{name}@", value)
        return text

    def target(self, document, path):
        """Where a link of a document leads on the site, or None."""
        named = (ROOT / document).parent.joinpath(path).resolve()
        if not named.exists():
            sys.exit(f"{document}: {path} is not there")
        relative = str(named.relative_to(ROOT))
        if relative in self.pages:
            return self.pages[relative]
        if relative in ("include", "platform/include"):
            return "api/files.html"
        if relative == "docs":
            return "index.html"
        if named.is_dir():
            sys.exit(f"{document}: the site has no page for the folder {path}")
        # Sources are shown as they are; a name of their own keeps two of the same name apart.
        copy = named.name if named.suffix in (".png", ".svg") else relative.replace("/", "-") + ".txt"
        shutil.copyfile(named, self.output / copy)
        return copy

    def page(self, document):
        text = (ROOT / document).read_text(encoding="utf-8")
        text = re.sub(r"<!-- table: (\w+) -->.*?<!-- end -->", lambda match: tables.of(ROOT, match.group(1)), text, flags=re.DOTALL)
        text = re.sub(r"^(```\w+) [^\n]*$", r"\1", text, flags=re.MULTILINE)
        body = markdown.markdown(text, extensions=EXTENSIONS)
        body = LINK.sub(lambda match: f'{match.group(1)}="{self.target(document, match.group(2))}{match.group(3) or ""}"', body)
        body = re.sub(r"(<table>.*?</table>)", r'<div class="wide">\1</div>', body, flags=re.DOTALL)
        body = re.sub(r'<img alt="([^"]*)" src="(\w+)\.svg" />', self.diagram, body)
        title = html.unescape(re.sub("<.*?>", "", re.search(r"<h1.*?>(.*?)</h1>", body).group(1)))
        name = self.pages[document]
        (self.output / name).write_text(self.frame(html.escape(title), body, name), encoding="utf-8")

    def diagram(self, match):
        """A drawing within the page, whose lines and letters have the page's colours."""
        text = run("dot", "-Tsvg", f"docs/{match.group(2)}.dot")
        text = text[text.index("<svg"):].replace('"black"', '"currentColor"')
        text = re.sub(r'width="\d+pt" height="\d+pt"', f'role="img" aria-label="{match.group(1)}"', text, count=1)
        return f'<span class="diagram">{re.sub("<title>.*?</title>|<!--.*?-->", "", text, flags=re.DOTALL)}</span>'

    def manual(self, path):
        run("mandoc", "-T", "lint", "-W", "warning", path)
        body = run("mandoc", "-T", "html", "-O", "fragment", path)
        name = f"{path.stem}.1.html"
        body = f'<article class="manual">{body}</article>'
        (self.output / name).write_text(self.frame(f"{path.stem}(1)", body, name), encoding="utf-8")

    def reference(self):
        with tempfile.TemporaryDirectory() as folder:
            # Doxygen closes one block that its own head would have opened.
            head, foot = self.frame("$title", "<div>@SPLIT@", "", "$relpath^../").split("@SPLIT@")
            (pathlib.Path(folder) / "head.html").write_text(head, encoding="utf-8")
            (pathlib.Path(folder) / "foot.html").write_text(foot, encoding="utf-8")
            settings = (HERE / "Doxyfile").read_text(encoding="utf-8") + f"""
OUTPUT_DIRECTORY = {self.output}
HTML_OUTPUT = api
HTML_HEADER = {folder}/head.html
HTML_FOOTER = {folder}/foot.html
HTML_STYLESHEET = docs/site/style.css
"""
            run("doxygen", "-", input=settings)
        api = self.output / "api"
        # Nothing of the site needs a script; what would fold the inherited members up is one.
        for path in api.glob("*.html"):
            text = path.read_text(encoding="utf-8")
            path.write_text(re.sub(r'<img src="closed.png"[^>]*>', "", text), encoding="utf-8")
        for unused in (*api.glob("*.js"), *api.glob("*.png"), *api.glob("*.svg"), *api.glob("tabs.css"), api / "style.css"):
            unused.unlink(missing_ok=True)

    def make(self):
        shutil.rmtree(self.output, ignore_errors=True)
        self.output.mkdir(parents=True)
        shutil.copyfile(HERE / "style.css", self.output / "style.css")
        for document in self.pages:
            self.page(document)
        for path in self.manuals:
            self.manual(path)
        self.reference()


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    Site(pathlib.Path(sys.argv[1]).resolve()).make()

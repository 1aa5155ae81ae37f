"""Each rule refuses a tree that breaks it, and leaves a tree that keeps it."""

import pathlib
import tempfile
import unittest

import include_rules

GOOD = {
    "include/api.h": "#include <qstring.h>\n",
    "support/text.h": "#if QT_VERSION < 0x060000\n#endif\n#include <QPointer>\n",
    "session/manager.cpp": '#include "api.h"\n#include "support/text.h"\n#include <napi.h>\n'
                           '#include <qwssocket_qws.h>\n',
    "profiles/list.cpp": '#include "wizard/page.h"\n#include "widgets/field.h"\n',
    "profiles/readdmint.h": "",
    "wizard/page.h": '#include "widgets/field.h"\n#include "profiles/readdmint.h"\n',
    "widgets/field.h": "",
    "platform/include/napi.h": "#include <stdint.h>\n",
    "platform/include/ypopup.h": "#include <qwidget.h>\n",
    "platform/host/network/store.h": "#include <string>\n",
    "platform/host/network/store.cpp": '#include "network/store.h"\n#include "napi.h"\n',
    "platform/host/toolkit/ypopup.cpp": "#include <QWidget>\n",
    "platform/host/toolkit/qt2/qwssocket_qws.h": "#include <qobject.h>\n",
    "apps/ctl/main.cpp": '#include "network/store.h"\n',
    "support/files.h": "",
    "apps/ctl/files.h": "",
    "apps/ctl/commands/list.cpp": '#include "files.h"\n',
    "examples/session/main.cpp": "#include <api.h>\n",
}

BAD = {
    "session names profiles": ("session/manager.cpp", '#include "profiles/list.h"\n'),
    "profiles names session": ("profiles/list.cpp", '#include "session/manager.h"\n'),
    "widgets names wizard": ("widgets/field.h", '#include "wizard/page.h"\n'),
    "wizard names profiles": ("wizard/page.h", '#include "profiles/list.h"\n'),
    "others name the header that the wizard may name":
        ("session/manager.cpp", '#include "profiles/readdmint.h"\n'),
    "an exported header names a private one": ("include/api.h", '#include "support/text.h"\n'),
    "the library names the host by folder": ("session/manager.cpp", '#include "network/store.h"\n'),
    "the library names the host by path":
        ("session/manager.cpp", '#include "platform/host/network/store.h"\n'),
    "the library asks for the Qt version": ("wizard/page.h", "#if QT_VERSION < 3\n#endif\n"),
    "the library uses a Qt 6 header name": ("wizard/page.h", "#include <QPointer>\n"),
    "the network knows Qt": ("platform/host/network/store.h", "#include <QString>\n"),
    "the network knows Qt by its old names": ("platform/host/network/store.h", "#include <qstring.h>\n"),
    "the network knows Qt by module": ("platform/host/network/store.h", "#include <QtCore/QString>\n"),
    "the network knows the toolkit": ("platform/host/network/store.h", "#include <ypopup.h>\n"),
    "the store looks into the links":
        ("platform/host/network/store/folder.h", '#include "network/links/engine.h"\n'),
    "the links look into the store":
        ("platform/host/network/links/engine.h", '#include "network/store/folder.h"\n'),
    "a room looks into the one that stands on it":
        ("platform/host/network/links/networkmanager/bus/wire.h",
         '#include "network/links/networkmanager/services/names.h"\n'),
    "the base of the host looks above itself":
        ("platform/host/base/root.h", '#include "settings/files.h"\n'),
    "the host knows the library": ("platform/host/toolkit/ypopup.cpp", '#include "support/text.h"\n'),
    "the host knows the exported headers": ("platform/host/toolkit/ypopup.cpp", "#include <api.h>\n"),
    "platform headers know the host":
        ("platform/include/ypopup.h", '#include "network/store.h"\n'),
    "an app looks into the library": ("apps/ctl/main.cpp", '#include "support/text.h"\n'),
    "the example looks into the host": ("examples/session/main.cpp", '#include "network/store.h"\n'),
}


class IncludeRules(unittest.TestCase):
    def violations(self, files):
        with tempfile.TemporaryDirectory() as folder:
            for name, text in files.items():
                path = pathlib.Path(folder, name)
                path.parent.mkdir(parents=True, exist_ok=True)
                path.write_text(text, encoding="utf-8")
            return include_rules.check(folder)

    def test_a_tree_that_keeps_the_rules_passes(self):
        self.assertEqual(self.violations(GOOD), [])

    def test_each_broken_rule_is_refused_with_the_file_named(self):
        for what, (name, text) in BAD.items():
            with self.subTest(what):
                found = self.violations({**GOOD, name: text})
                self.assertEqual(len(found), 1, found)
                self.assertTrue(found[0].startswith(name), found[0])


if __name__ == "__main__":
    unittest.main()

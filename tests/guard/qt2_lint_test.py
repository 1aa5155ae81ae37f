"""Tests of the lint for Qt 2.3 and of the reader that it stands on."""

import pathlib
import tempfile
import unittest

import class_reader
import qt2_lint


def header(slots="", before="", head="class Page : public QObject", inside="", behind=""):
    """A header as it should be, with something in one place of it."""
    return f"""#ifndef PAGE_H
#define PAGE_H

#include <qobject.h>
{before}
{head}
{{
    Q_OBJECT

public:
    Page();
{inside}

signals:
    void changed(int index, const QString& text);

public slots:
    void save();
    {slots}

private:
    int count = 0;
}};
{behind}
#endif
"""


ACCEPTED = {
    "a plain header": header(),
    "slots with parameters": header("void move(int x, unsigned short, const QString& text);"),
    "a slot of a class type by reference": header("void take(YLinkInfo& info);"),
    "a slot with a body": header("void act() { count = 1; }"),
    "a pure virtual slot": header("virtual void act() = 0;"),
    "a constant slot": header("int answer() const;"),
    "an export macro": header(head="class PAGE_EXPORT Page : public QObject"),
    "a second class": header(behind="class Other : public QObject\n{\n    Q_OBJECT\n};"),
    "further bases": header(head="class Page : public QObject, private Base<int>"),
    "override outside of slots": header(inside="    void show() override;\n    ~Page() override;"),
    "noexcept, default, delete and attributes outside of slots": header(
        inside="    Page(const Page&) = delete;\n    [[nodiscard]] int size() const noexcept;"),
    "a macro outside of slots": header(inside="    PAGE_MACRO(int)\n    int size() const;"),
    "a lambda and a digit separator": header(inside="    int large = [] { return 1'000'000; }();"),
    "an enum class and a nested struct": header(
        inside="    enum class State { Idle, Busy };\n    struct Row { int a; };"),
    "nested namespaces one by one": header(before="namespace a { namespace b {", behind="} }"),
    "a template without parentheses": header(before="template <class T> class List;"),
    "what moc cannot read, in a comment": header("// override, #if and R\"( are only named\n"),
    "anything, where no moc reads": "#if 1\nnamespace a::b { struct S { int f() noexcept; }; }\n#endif\n",
}

REFUSED = {
    "override": ("void show() override;", "override is a syntax error"),
    "final": ("virtual void act() final;", "final is a syntax error"),
    "noexcept": ("void act() noexcept;", "noexcept is a syntax error"),
    "an attribute": ("[[nodiscard]] int act();", "an attribute is a syntax error"),
    "an attribute of the compiler": ("void act() __attribute__((cold));", "an attribute is a syntax error"),
    "a template": ("template <class T> void act(T);", "a template is a syntax error"),
    "a template type": ("void take(QValueList<int> list);", "a template type"),
    "a function pointer": ("void take(void (*call)(int));", "function pointer"),
    "a default argument": ("void act(int a = 1);", "default argument"),
    "two default arguments": ("void act(int a = 1, int b = 2);", "default argument"),
    "a macro": ("void act(); PAGE_MACRO", "PAGE_MACRO is a macro"),
    "a macro as a type": ("void act(UINT_TYPE value);", "UINT_TYPE is a macro"),
    "a friend": ("friend class Other;", "a friend"),
    "a typedef": ("typedef int Number;", "a type cannot be declared"),
    "an enumeration": ("enum State { Idle };", "an enumeration"),
    "a variable": ("int value;", "a variable"),
    "a constructor": ("Page(int);", "a constructor"),
    "a destructor": ("~Page();", "a constructor or destructor"),
    "a static function": ("static void act();", "static"),
    "a trailing result": ("auto act() -> int;", "trailing result"),
    "a reference to a temporary": ("void take(QString&& text);", "temporary"),
    "a slot that is deleted": ("void act() = delete;", "nothing but const"),
}

REFUSED_ELSEWHERE = {
    "a condition around a slot": (header("\n#if 1\n    void act();\n#endif\n"), "a condition of the preprocessor"),
    "a condition around a class": (header(before="#ifdef X\nclass Y;\n#endif"), "a condition of the preprocessor"),
    "an else": (header(inside="#ifndef X\n#else\n#endif"), "a condition of the preprocessor"),
    "a raw string": (header(inside='    const char* text = R"(a)";'), "a raw string"),
    "a raw string with a delimiter": (header(inside='    const char* text = R"x(a)x";'), "a raw string"),
    "a nested namespace in one word": (header(before="namespace a::b { class C; }"), "a nested namespace"),
    "parentheses in a template": (header(before="template <bool b = (1 > 0)> class C;"), "parentheses"),
    "a final class": (header(head="class Page final : public QObject"), "Page is final"),
    "a struct": (header(head="struct Page : public QObject"), "Page is a struct"),
    "a class template": (header(head="template <class T> class Page : public QObject"), "Page is a template"),
    "a private base": (header(head="class Page : QObject"), "the first base of Page"),
    "a template as a base": (header(head="class Page : public Base<int>"), "the first base of Page"),
    "no base": (header(head="class Page"), "the first base of Page"),
    "a nested class": (header(inside="    class Inner : public QObject\n    {\n        Q_OBJECT\n    };"), "Inner lies inside"),
    "a word of Qt 6": (header(inside="    Q_INVOKABLE void act();"), "Q_INVOKABLE is unknown"),
    "sections in the words of Qt 6": (header(inside="public Q_SLOTS:\n    void act();"), "Q_SLOTS is unknown"),
    "a macro around Q_OBJECT": ("#define PAGE_OBJECT Q_OBJECT\nQ_OBJECT\n", "outside of a class"),
}

CONNECTIONS = {
    "connect(a, SIGNAL(changed(int,const QString&)), b, SLOT(save()));": None,
    "connect(a, SIGNAL(changed(int,const QString&)), b, SLOT(save(void)));": None,
    "connect(a, SIGNAL(changed ( int , const QString & )), b, SLOT(choose( int )));": None,
    "connect(a, SIGNAL(activated ( int )), b, SLOT(choose(int)));": None,
    "key->setClickedSlot(1, b, SLOT(save()));": None,
    'key->setClickedSlot(1, b, "1save( void )");': None,
    "// connect(a, SIGNAL(nowhere()), b, SLOT(save()));": None,
    "connect(a, SIGNAL(changed()), b, SLOT(save()));": "SIGNAL(changed()) is not declared",
    "connect(a, SIGNAL(changed(int,QString)), b, SLOT(save()));": "is not declared",
    "connect(a, SIGNAL(clicked()), b, SLOT(savee()));": "SLOT(savee()) is not declared",
    "connect(a, SIGNAL(clicked()), b, SLOT(choose(int)));": "choose(int) does not take what clicked() gives",
    "connect(a, SIGNAL(textChanged(const QString&)), b, SLOT(choose(int)));": "does not take what",
    'key->setClickedSlot(1, b, "1 save()");': "has to follow the digit at once",
    'key->setClickedSlot(1, b, "1savee()");': "is not declared",
    "connect(a, SIGNAL( clicked()), b, SLOT(save()));": "has to follow the digit at once",
}

WHICH_QT = {
    "#if QT_VERSION < 0x060000\n#endif": "QT_VERSION",
    "#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)\n#endif": "QT_VERSION",
    "#ifdef QWS\n#endif": "QWS",
    "#ifdef Q_WS_QWS\n#endif": "Q_WS_QWS",
    "#if __has_include(<qpointer.h>)\n#endif": "__has_include",
    "const char* v = QT_VERSION_STR;": "QT_VERSION_STR",
    "bool old = qVersion()[0] == '2';": "qVersion",
    "// QT_VERSION is asked elsewhere\n#include <qobject.h>": None,
    'const char* text = "QT_VERSION";': None,
}

CALLS = {
    "int n = text.toInt(&ok);": "toInt: which blanks",
    "int n = field->text().toUInt(&ok, 10);": "toUInt: which blanks",
    "QString t = QString::fromUtf8(bytes);": "fromUtf8: what it makes",
    "if (QString::compare(a, b) == 0) {}": "QString::compare: where a null text",
    "if (a.compare(b) == 0) {}": "compare: where a null text",
    "QHostAddress address;": "QHostAddress: which texts",
    "QDir().rename(a, b);": "QDir: what may be replaced",
    "qApp->processEvents();": "processEvents: how long",
    "qApp->enter_loop();": "enter_loop: levels",
    "qApp->exit_loop();": "exit_loop: levels",
    "if (dialog.exec() == 1) {}": "exec: on Qt 2 a level",
    "popup->exec();": "exec: on Qt 2 a level",
    'QString t = QObject::tr("text");': "QObject::tr: without an application",
    "return QIntValidator::validate(text, position);": "QIntValidator::validate: what it takes",
    "connect(qApp, SIGNAL(aboutToQuit()), this, SLOT(end()));": "when it is emitted",
    'QString t("caf\u00e9");': "bytes above 7f",
    'QString t = support::fromUtf8(bytes); // not QString::fromUtf8("\u00e9")': None,
    "int n = support::toInt32(text, &ok);": None,
    "support::runDialog(dialog); // and not dialog.exec()": None,
    "if (support::compare(a, b) == 0) {}": None,
    'QString t = tr("text");': None,
    "State validate(QString& text, int& position) const;": None,
}


class Lint(unittest.TestCase):
    def expect(self, findings, expected):
        found = "\n".join(f"{line}: {reason}" for line, reason in findings)
        if expected is None:
            self.assertEqual("", found)
        else:
            self.assertIn(expected, found)

    def test_accepts_what_both_mocs_read(self):
        for name, text in ACCEPTED.items():
            with self.subTest(name):
                self.expect(qt2_lint.lint_header(text), None)

    def test_refuses_among_slots_what_moc_2_cannot_read(self):
        for name, (slot, expected) in REFUSED.items():
            with self.subTest(name):
                self.expect(qt2_lint.lint_header(header(slot)), expected)

    def test_refuses_among_signals_what_moc_2_cannot_read(self):
        text = header().replace("const QString& text);", "const QString& text = QString());")
        self.expect(qt2_lint.lint_header(text), "among the signals: a default argument")

    def test_refuses_elsewhere_what_moc_2_cannot_read(self):
        for name, (text, expected) in REFUSED_ELSEWHERE.items():
            with self.subTest(name):
                self.expect(qt2_lint.lint_header(text), expected)

    def test_tells_the_line(self):
        text = "#ifndef A\n#define A\nclass A : public QObject\n{\n    Q_OBJECT\nprivate slots:\n    void a() noexcept;\n};\n#endif\n"
        self.assertEqual([7], [line for line, _ in qt2_lint.lint_header(text)])

    def test_judges_the_texts_of_connections(self):
        declared = header("void choose(int index);")
        signals, slots = qt2_lint.declared_names([declared])
        for text, expected in CONNECTIONS.items():
            with self.subTest(text):
                self.expect(qt2_lint.lint_connections(text, signals, slots), expected)

    def test_finds_calls_that_both_qts_answer_differently(self):
        for text, expected in CALLS.items():
            with self.subTest(text):
                self.expect(qt2_lint.lint_calls(text), expected)

    def test_finds_who_asks_which_qt_this_is(self):
        for text, expected in WHICH_QT.items():
            with self.subTest(text):
                self.expect(qt2_lint.lint_which_qt(text), expected)

    def test_walks_the_tree(self):
        with tempfile.TemporaryDirectory() as folder:
            root = pathlib.Path(folder)
            for name in ("session", "support", "platform/include"):
                (root / name).mkdir(parents=True)
            question = "#if QT_VERSION < 0x060000\n#endif\n"
            (root / "support/qt.h").write_text(question)
            self.assertEqual([], qt2_lint.lint(root))
            (root / "support/text.cpp").write_text(question)
            (root / "session/page.h").write_text(header("void act() noexcept;"))
            (root / "session/page.cpp").write_text(
                'class A : public QObject { Q_OBJECT };\nvoid f() { connect(a, SIGNAL(b()), c, SLOT(d())); }\n')
            (root / "platform/include/ypage.h").write_text(question)
            (root / "session/call.cpp").write_text("int n = text.toInt();\n")
            (root / "support/call.cpp").write_text("int n = text.toInt();\n")
            findings = "\n".join(qt2_lint.lint(root))
            for expected in ("support/text.cpp:1: QT_VERSION", "platform/include/ypage.h:1: QT_VERSION",
                             "session/page.h:19: among the public slots: noexcept",
                             "session/page.cpp:1: a class with a Q_OBJECT",
                             "session/page.cpp:2: SIGNAL(b())", "session/call.cpp:1: toInt", "session/page.cpp:2: SLOT(d())"):
                self.assertIn(expected, findings)
            self.assertNotIn("support/call.cpp", findings)


class Reader(unittest.TestCase):
    def test_finds_classes_with_their_scopes_bases_and_members(self):
        text = """
            namespace outer { namespace inner {
            template <class T> class Forward;
            enum class Kind { A, B };
            class Page EXPORT_NOT : public YKbMainWidget, private Other
            {
                Q_OBJECT
            public:
                Page() : a(1), b{2} { if (a) { b = 3; } }
                struct Row { int x; } row;
            protected slots:
                virtual void act(const QString& text, unsigned long int number, T::U u);
            };
            } }
        """
        page = class_reader.classes_of(text)[0]
        self.assertEqual("YKbMainWidget", page.bases[0][1].text)
        self.assertEqual(["outer", "inner"], page.scope)
        self.assertTrue(page.q_object)
        self.assertEqual(["act(const QString&,unsigned long int,T::U)"],
                         [class_reader.signature(m) for m in page.members if m.section == "protected slots"])

    def test_spells_signatures_as_a_moc_does(self):
        for declaration, expected in {
            "void f();": "f()",
            "void f(void);": "f()",
            "void f(int);": "f(int)",
            "void f(int index);": "f(int)",
            "void f(int, YLinkInfo &info);": "f(int,YLinkInfo&)",
            "void f(const char* const* names);": "f(const char*const*)",
            "void f(unsigned short, unsigned short b);": "f(unsigned short,unsigned short)",
            "void f(const QString & text = QString());": "f(const QString&)",
            "virtual int f(long long) const = 0;": "f(long long)",
        }.items():
            with self.subTest(declaration):
                found = class_reader.classes_of("class A\n{\nsignals:\n" + declaration + "\n};")
                self.assertEqual(expected, class_reader.signature(found[0].members[0]))


if __name__ == "__main__":
    unittest.main()

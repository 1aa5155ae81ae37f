// A GuiTest with a root folder of its own, in which there is what the test writes.
#ifndef ROOTED_GUI_TEST_H
#define ROOTED_GUI_TEST_H

#include <fstream>

#include <QDir>
#include <QTemporaryDir>

#include "common/gui_test.h"

class RootedGuiTest : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        ASSERT_TRUE(root.isValid());
        qputenv("VORN_ROOT", root.path().toUtf8());
        ASSERT_TRUE(QDir(root.path()).mkpath("etc"));
    }

    // A file of the root, "etc/settings.json" for instance.
    void write(const char* file, const char* text) const
    {
        std::ofstream(root.filePath(file).toStdString()) << text;
    }

    QTemporaryDir root;
};

#endif

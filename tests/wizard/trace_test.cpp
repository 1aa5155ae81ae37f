// What the wizard logs, with the level of each message: the traces too, which are never written.

#include <cstdarg>
#include <cstdio>
#include <string>

#include <profilefunctions.h>
#include <ycombobox.h>
#include <ykbmainwidget.h>
#include <ylineedit.h>

#include "common/interposed.h"
#include "support/log.h"
#include "wizard/world/record_bytes.h"
#include "wizard/world/wizard_fixture.h"

namespace {

std::string trace;

} // namespace

// In the place of the library's own.
void support::logPrint(int level, const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const std::string text = interposed::formatted(format, arguments);
    va_end(arguments);
    trace += '<' + std::to_string(level) + ' ' + text + '>';
}

namespace {

class Trace : public Wizard
{
protected:
    void SetUp() override
    {
        Wizard::SetUp();
        setDefaultPreference("2");
        napi.profiles["Old"] = RecordBytes().byte(1, 1).word(4, 0x400).text(8, "a").record();
        trace.clear();
    }

    static Steps typing(const char* label, const char* text)
    {
        return Steps([label, text] {
            walkTo(wizardPage(1), label);
            retype(text);
        });
    }

    std::string edited(const Steps& steps)
    {
        edit("Old", steps);
        return trace;
    }
};

const std::string opened =
    "<8 read profile ok, create instance of DataConnection_NewWiz\n>"
    "<8 set WiFi preference dialog ok><8 Load Profile: Old successfully\n><8 Load Profile Ok!\n>";
const std::string closed = "<8 Destory an object...\n >";

TEST_F(Trace, OfANewProfile)
{
    create(cancel);
    EXPECT_EQ("<8 set WiFi preference dialog ok><8 Load Profile Ok!\n>" + closed, trace);
}

TEST_F(Trace, OfANewProfileWithoutTheWifiFeature)
{
    setWifi(false);
    create(cancel);
    EXPECT_EQ("<8 Load Profile Ok!\n>" + closed, trace);
}

TEST_F(Trace, OfANewProfileWithoutADefaultPreference)
{
    setDefaultPreference("\"text\"");
    create(cancel);
    EXPECT_EQ("<4 Data Type is not correct><4 Get default connection preference faild\n>"
              "<8 set WiFi preference dialog ok><8 Load Profile Ok!\n>" +
                  closed,
              trace);
}

TEST_F(Trace, OfACopy)
{
    copy("Old", cancel);
    EXPECT_EQ("<8 read profile ok, create instance of DataConnection_NewWiz, begin copy Old\n>"
              "<8 set WiFi preference dialog ok><8 Load Profile: Old successfully\n>"
              "<8 Load Profile Ok!\n>" +
                  closed,
              trace);
}

TEST_F(Trace, OfAnEditedProfile)
{
    EXPECT_EQ(opened + closed, edited(cancel));
}

TEST_F(Trace, OfWhatIsNoProfile)
{
    name = "No such";
    EXPECT_EQ(editProfilebyUser(name), 0);
    EXPECT_EQ(copyProfilebyUser(name), 0);
    EXPECT_EQ(trace, "<4 This profile is invalid.\n><4 This profile is invalid.\n>");
}

TEST_F(Trace, OfAProfileThatCannotBeRead)
{
    napi.readResult = NAPI_ERR_DAMAGED;
    EXPECT_EQ("<8 read profile ok, create instance of DataConnection_NewWiz\n>"
              "<8 set WiFi preference dialog ok><4 Read profile error.\n>"
              "<4 Load profile content failed\n>" +
                  closed,
              edited(cancel));
}

TEST_F(Trace, OfARefusedChange)
{
    napi.modifyResult = -7;
    EXPECT_EQ(opened + "<4 NAPI_ModifyProfile return -7\n><4 Network: Save profile data error!\n>" +
                  closed,
              edited({typing("Proxy 1:", "p"), save}));
}

TEST_F(Trace, OfARefusedNewProfile)
{
    napi.createResult = 7;
    create({typing("GPRS APN:", "a"), save});
    EXPECT_EQ("<8 set WiFi preference dialog ok><8 Load Profile Ok!\n>"
              "<4 NAPI_CreateProfile return 7\n><4 Network: Save profile data error!\n>" +
                  closed,
              trace);
}

TEST_F(Trace, OfAFolderThatCannotBeMoved)
{
    const std::string folder =
        root.path().toStdString() + "/vornlocal/download/appwrite/NetProfile/";
    EXPECT_EQ(opened + "<4 rename profile name from " + folder + "Old to " + folder +
                  "New failed!\n><4 Network: Save profile data error!\n>" + closed,
              edited({typing("Profile Name:*", "New"), save}));
}

TEST_F(Trace, OfPageTwoWithAnUnknownSpeed)
{
    napi.profiles["Old"] = RecordBytes().byte(1, 1).word(4, 0x400).byte(571, 5).record();
    EXPECT_EQ(opened +
                  "<4 click the exibition button\n>"
                  "<4 unknown csd speed value for +CBST command\n>" +
                  closed,
              edited({openPage2, [] { wizardPage(1)->hide(); }}));
}

TEST_F(Trace, OfAWrongAddressThatNobodyLooksAt)
{
    napi.profiles["Old"] = RecordBytes().byte(1, 1).word(4, 0x100).text(8, "a").record();
    EXPECT_EQ(opened + "<4 Wrong IP address\n>" + closed,
              edited({[] { editOf(wizardPage(1), "GPRS DNS 1:")->setText("x"); }, opening(save),
                      dismiss}));
}

} // namespace

// A password is for the modem: it is found nowhere else.
#include "network/lab/lab_world.h"

using namespace linktest;
using namespace labtest;

namespace {

class Secret : public ModemTest
{
protected:
    void SetUp() override
    {
        ModemTest::SetUp();
        NetworkProfile record = fullProfile();
        // Put together here, so that this program's own file does not have it.
        std::string canary = std::string("canary") + "-of-the-" + "password";
        strcpy(record.gprsPassword, canary.c_str());
        store("Canary", record);
    }

    // Files and logs of the services, of the machine and of the bus, what the machine's other
    // folders have got since the laboratory is there, and what /proc tells everybody about each
    // process; the modem's own record and the stored profile do not count. While a connection is up
    // NetworkManager keeps it in a file of its own in memory.
    static std::string places()
    {
        return output("{ grep -rlsa 'canary-of-the-[p]assword' /run /var/lib/NetworkManager "
                      "/etc/NetworkManager /proc/[0-9]*/cmdline /proc/[0-9]*/environ "
                      "/proc/[0-9]*/maps /proc/[0-9]*/comm /proc/[0-9]*/task/[0-9]*/comm; "
                      "find /tmp /var/tmp /var/log /var/spool /dev/shm -type f -newer "
                      "/run/lab/dnsmasq.log -print0 2>/dev/null "
                      "| xargs -0r grep -lsa 'canary-of-the-[p]assword'; } "
                      "| grep -v -e '^/run/lab/modem.log$' -e '/NetProfile/Canary/profile$' "
                      "-e '^/proc/self/'");
    }
};

TEST_F(Secret, StaysInTheProfileAndTheModem)
{
    Receiver receiver;
    Message message = up(receiver, "Canary");
    EXPECT_EQ(places(), "/run/NetworkManager/system-connections/Canary.nmconnection");
    NAPI_CloseLink(message.link);
    EXPECT_TRUE(until([] { return stateOf("ttyHS0") == 30; }));
    EXPECT_EQ(places(), "");
}

TEST_F(Secret, IsNotToldWhenTheDiallingFails)
{
    modem("AT_OWANCALL=1,1 => +CME ERROR: 149");
    Receiver receiver;
    NAPI_OpenLink("Canary");
    EXPECT_EQ(receiver.next().cause, NAPI_CAUSE_AUTHENTICATION);
    EXPECT_EQ(places(), "");
}

TEST_F(Secret, IsNotLeftByAProgramThatIsKilled)
{
    OtherProgram program("Canary");
    EXPECT_EQ(program.outcome(), NAPI_IND_CONNECTED);
    program.kill();
    EXPECT_TRUE(until([] { return stateOf("ttyHS0") == 30; }));
    EXPECT_EQ(places(), "");
}

} // namespace

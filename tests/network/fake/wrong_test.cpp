// Replies and properties that no sane service gives: the opening fails or connects, and no more.
#include "network/fake/fake_test.h"

using namespace linktest;
using namespace fakebus;

namespace {

const char* const deviceInterface = "org.freedesktop.NetworkManager.Device";

const Value everyType[] = {
    text(""),      text("x"),  number(7),        flag(true),
    paths({"/a"}), path("/a"), addresses({"x"}), dictionary({{"x", number(1)}}),
    two(1, 2)};

class Wrong : public FakeTest
{
protected:
    // Whatever comes of it, it is one outcome, and the next opening is as good as ever.
    void expectOneOutcome()
    {
        Receiver receiver;
        NAPI_OpenLink("Home");
        Message message = next(receiver);
        EXPECT_TRUE(message.type == NAPI_IND_OPEN_FAILED || message.type == NAPI_IND_CONNECTED);
        rest(Milliseconds(5));
        if (auto more = receiver.ready()) {
            EXPECT_EQ(more->type, NAPI_IND_BROKEN);
        }
        NAPI_CloseLink(0);
        EXPECT_TRUE(until([this] { return nm->living() == 0; }));
    }
};

TEST_F(Wrong, TypeOfAPropertyOfTheDeviceHurtsNobody)
{
    for (const char* property : {"DeviceType", "IpInterface", "Udi", "Managed", "State",
                                 "ActiveConnection", "Ip4Config", "StateReason"}) {
        for (const Value& value : everyType) {
            SCOPED_TRACE(std::string(property) + " is " + value.type);
            Dictionary& properties = nm->service.objects[modemDevice][deviceInterface];
            Value right = properties[property];
            properties[property] = value;
            expectOneOutcome();
            nm->service.objects[modemDevice][deviceInterface][property] = right;
        }
    }
}

// What stands for an address comes and goes while the opening waits for a right one.
TEST_F(Wrong, TypeOfTheAddressFailsTheOpening)
{
    nm->addressData = everyType[0];
    Receiver receiver;
    NAPI_OpenLink("Home");
    for (const Value& value : everyType) {
        nm->service.objects["/org/freedesktop/NetworkManager/IP4Config/1"]
                           ["org.freedesktop.NetworkManager.IP4Config"]["AddressData"] = value;
        rest(Milliseconds(60));
    }
    EXPECT_EQ(next(receiver).cause, NAPI_CAUSE_NO_ADDRESS);
}

TEST_F(Wrong, AddressesFailTheOpening)
{
    nm->addressData = addresses({"", "0.0.0.0", "255.255.255.255", "10.99.0.2.5", "127.0.0.1",
                                 "224.0.0.1", "10.99.0.2 ", "10.99.0", "300.1.2.3", "::1", "\n"});
    Receiver receiver;
    NAPI_OpenLink("Home");
    EXPECT_EQ(next(receiver).cause, NAPI_CAUSE_NO_ADDRESS);
}

TEST_F(Wrong, InterfaceNameFailsTheOpening)
{
    nm->interface = "";
    Receiver receiver;
    NAPI_OpenLink("Home");
    for (const std::string& name : {std::string(16, 'w'), std::string(200, 'w'),
                                    std::string("hso0\n"), std::string("../hso0")}) {
        nm->service.objects[modemDevice][deviceInterface]["IpInterface"] = text(name);
        rest(Milliseconds(60));
    }
    EXPECT_EQ(next(receiver).type, NAPI_IND_OPEN_FAILED);
}

TEST_F(Wrong, InterfaceThatTheMachineDoesNotHaveIsNoLink)
{
    nm->interface = "no-such";
    Receiver receiver;
    NAPI_OpenLink("Home");
    if (next(receiver).type == NAPI_IND_CONNECTED) {
        EXPECT_EQ(next(receiver).type, NAPI_IND_BROKEN);
    }
}

TEST_F(Wrong, ReplyToTheActivationFailsTheOpening)
{
    const std::function<int(sd_bus_message*)> replies[] = {
        [](sd_bus_message* call) { return sd_bus_reply_method_return(call, ""); },
        [](sd_bus_message* call) { return sd_bus_reply_method_return(call, "s", "connection"); },
        [](sd_bus_message* call) { return sd_bus_reply_method_return(call, "o", "/"); },
        [](sd_bus_message* call) { return sd_bus_reply_method_return(call, "uu", 1, 2); },
        [](sd_bus_message* call) { return sd_bus_reply_method_return(call, "oos", "/", "/", ""); }};
    for (const auto& reply : replies) {
        nm->service.on("AddAndActivateConnection2", reply);
        Receiver receiver;
        NAPI_OpenLink("Home");
        EXPECT_EQ(next(receiver).type, NAPI_IND_OPEN_FAILED);
        rest(Milliseconds(5));
        EXPECT_FALSE(receiver.ready());
    }
}

TEST_F(Wrong, ListOfObjectsFailsTheOpening)
{
    for (const char* member :
         {"GetManagedObjects", "GetAll", "Get", "GetDevices", "GetAllDevices"}) {
        SCOPED_TRACE(member);
        nm->service.on(member, [](sd_bus_message* call) {
            return sd_bus_reply_method_return(call, "as", 2, "not", "this");
        });
    }
    Receiver receiver;
    NAPI_OpenLink("Home");
    EXPECT_EQ(next(receiver).type, NAPI_IND_OPEN_FAILED);
}

TEST_F(Wrong, SignalsOfTheRightNameHurtNobody)
{
    Receiver receiver;
    up(receiver);
    for (const char* member : {"StateChanged", "PropertiesChanged"}) {
        for (const Value& value : everyType)
            nm->service.emit(modemDevice, deviceInterface, member, value.append);
        nm->service.emit(modemDevice, deviceInterface, member, [](sd_bus_message*) { return 0; });
    }
    rest();
    EXPECT_FALSE(receiver.ready());
}

} // namespace

// Memory that runs out while an address is read, at each allocation in turn, whoever makes it.

#include <memory>

#include "common/failing_memory.h"
#include "common/gui_test.h"
#include "ipaddressedit.h"

namespace {

using failingmemory::forEachAllocation;
using failingmemory::Of;

class AddressMemory : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        field = std::make_unique<IPAddressEdit>();
        field->setIPAddress(0xC0A80001UL);
    }

    void TearDown() override
    {
        field.reset();
        GuiTest::TearDown();
    }

    // Reads with one failing allocation. Result: whether one has failed.
    template <class Read> static bool readWithout(int number, Read read)
    {
        failingmemory::failAt(number, Of::Everybody);
        EXPECT_NO_THROW(read()) << number;
        return failingmemory::stop();
    }

    std::unique_ptr<IPAddressEdit> field;
};

TEST_F(AddressMemory, ThatRunsOutMakesTheNumberZero)
{
    const int allocations = forEachAllocation([this](int number) {
        unsigned long address = 7;
        const bool hasFailed =
            readWithout(number, [this, &address] { field->getIPAddress(address); });
        EXPECT_EQ(address, hasFailed ? 0 : 0xC0A80001UL) << number;
        return hasFailed;
    });
    EXPECT_GE(allocations, 1);
}

TEST_F(AddressMemory, ThatRunsOutLeavesTheText)
{
    const int allocations = forEachAllocation([this](int number) {
        QString text("kept");
        const bool hasFailed = readWithout(number, [this, &text] { field->getIPAddress(text); });
        EXPECT_EQ(text.toStdString(), hasFailed ? "kept" : "192.168.0.1") << number;
        return hasFailed;
    });
    EXPECT_GE(allocations, 1);
}

TEST_F(AddressMemory, ThatRunsOutMakesTheBytesThoseOfNoAddress)
{
    const int allocations = forEachAllocation([this](int number) {
        unsigned char bytes[16] = "kept";
        const bool hasFailed = readWithout(number, [this, &bytes] { field->getIPAddress(bytes); });
        EXPECT_STREQ(reinterpret_cast<char*>(bytes), hasFailed ? "0.0.0.0" : "192.168.0.1")
            << number;
        return hasFailed;
    });
    EXPECT_GE(allocations, 1);
}

TEST_F(AddressMemory, ThatRunsOutMakesTheFieldNeitherValidNorEmpty)
{
    const int allocations = forEachAllocation([this](int number) {
        bool isValid = false;
        bool isEmpty = true;
        const bool hasFailed =
            readWithout(number, [this, &isValid] { isValid = field->isIPValid(); });
        EXPECT_EQ(isValid, !hasFailed) << number;
        const bool hasFailedToo =
            readWithout(number, [this, &isEmpty] { isEmpty = field->isEmpty(); });
        EXPECT_FALSE(isEmpty) << number;
        return hasFailed || hasFailedToo;
    });
    EXPECT_GE(allocations, 1);
}

} // namespace

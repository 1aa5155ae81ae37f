// Memory that runs out in the input widgets, at each allocation in turn: whoever makes it while an
// address is read; in the libraries while one is shown, since Qt's own lines end the program where
// malloc gives them nothing.

#include <memory>
#include <new>

#include <QApplication>

#include "common/failing_memory.h"
#include "common/gui_test.h"
#include "ipaddressedit.h"
#include "profileedit.h"
#include "ystatedialog.h"

extern "C" {
void __lsan_disable() __attribute__((weak));
void __lsan_enable() __attribute__((weak));
}

namespace {

// What Qt loses when an allocation of its own fails is not ours to keep.
class QtsOwnLeaks
{
public:
    QtsOwnLeaks()
    {
        if (__lsan_disable)
            __lsan_disable();
    }
    QtsOwnLeaks(const QtsOwnLeaks&) = delete;
    QtsOwnLeaks& operator=(const QtsOwnLeaks&) = delete;
    ~QtsOwnLeaks()
    {
        if (__lsan_enable)
            __lsan_enable();
    }
};

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

// One way to show an address.
struct Setter
{
    const char* name;
    void (*set)(IPAddressEdit& field);
};

const Setter setters[] = {
    {"Text",
     [](IPAddressEdit& edit) {
         QString text("10.200.30.254");
         edit.setIPAddress(text);
     }},
    {"Number", [](IPAddressEdit& edit) { edit.setIPAddress(0x0AC81EFEUL); }},
    {"Bytes",
     [](IPAddressEdit& edit) {
         unsigned char bytes[] = "10.200.30.254";
         edit.setIPAddress(bytes);
     }},
};

class AddressSetting : public AddressMemory, public testing::WithParamInterface<Setter>
{};

TEST_P(AddressSetting, WithoutMemoryLeavesNoMixtureOfTwoAddresses)
{
    const int allocations = forEachAllocation([this](int number) {
        const QtsOwnLeaks ignored;
        field->setIPAddress(0xC0A80001UL);
        failingmemory::failAt(number, Of::Libraries);
        EXPECT_NO_THROW(GetParam().set(*field)) << number;
        const bool hasFailed = failingmemory::stop();
        unsigned long address = 7;
        field->getIPAddress(address);
        EXPECT_TRUE(address == 0x0AC81EFEUL || (hasFailed && field->isEmpty())) << number;
        return hasFailed;
    });
    EXPECT_GE(allocations, 0);
    GetParam().set(*field);
    unsigned long address = 0;
    field->getIPAddress(address);
    EXPECT_EQ(address, 0x0AC81EFEUL);
}

INSTANTIATE_TEST_SUITE_P(Forms, AddressSetting, testing::ValuesIn(setters),
                         [](const auto& test) { return std::string(test.param.name); });

// Qt's own constructors leave a widget that is no more in its list of all; so the library's
// allocations fail, and the toolkit's.
template <class Widget> int makeWithEachFailure(Of whose)
{
    Widget().ensurePolished(); // so that what the toolkit keeps is there
    GuiTest::settle();
    const qsizetype before = QApplication::allWidgets().size();
    return forEachAllocation([before, whose](int number) {
        bool isMade = true;
        bool hasFailed = false;
        failingmemory::failAt(number, whose);
        try {
            const Widget widget;
            hasFailed = failingmemory::stop();
        } catch (const std::bad_alloc&) {
            hasFailed = failingmemory::stop();
            isMade = false;
        }
        EXPECT_TRUE(isMade || hasFailed) << number;
        GuiTest::settle();
        EXPECT_EQ(QApplication::allWidgets().size(), before) << number;
        return hasFailed;
    });
}

class WidgetMemory : public GuiTest
{};

TEST_F(WidgetMemory, ThatRunsOutLeavesNothingOfAnAddressField)
{
    EXPECT_GE(makeWithEachFailure<IPAddressEdit>(Of::Library), 4);
    EXPECT_GE(makeWithEachFailure<IPAddressEdit>(Of::Toolkit), 4);
}

TEST_F(WidgetMemory, ThatRunsOutLeavesNothingOfANameField)
{
    EXPECT_EQ(makeWithEachFailure<ProfileEdit>(Of::Library), 0);
    EXPECT_GE(makeWithEachFailure<ProfileEdit>(Of::Toolkit), 2);
}

TEST_F(WidgetMemory, ThatRunsOutLeavesNothingOfAStatePopup)
{
    EXPECT_GE(makeWithEachFailure<YStateDialog>(Of::Library), 2);
    EXPECT_GE(makeWithEachFailure<YStateDialog>(Of::Toolkit), 4);
}

TEST_F(WidgetMemory, ThatRunsOutIsNoExceptionOfADefaultName)
{
    ProfileEdit edit;
    const int allocations = forEachAllocation([&edit](int number) {
        failingmemory::failAt(number, Of::Libraries);
        EXPECT_NO_THROW(edit.setDefaultProfileName("A name that no text holds by itself"))
            << number;
        return failingmemory::stop();
    });
    EXPECT_EQ(allocations, 0);
}

TEST_F(WidgetMemory, ThatRunsOutIsNoExceptionOfAStateText)
{
    YStateDialog popup;
    // Qt's label throws while it holds a lock of its own.
    const int allocations = forEachAllocation([&popup](int number) {
        const QtsOwnLeaks ignored;
        failingmemory::failAt(number, Of::Libraries);
        EXPECT_NO_THROW(popup.setStateString("Signing in " + QString::number(number))) << number;
        return failingmemory::stop();
    });
    EXPECT_GE(allocations, 0);
}

} // namespace

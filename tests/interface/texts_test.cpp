// Every code of the network API and of the library has its name and a text of its own.
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "napi.h"
#include "vornqtnapi_texts.h"

namespace {

// What the constant itself is called. The compiler tells when a constant is added and is not here.
#define VORN_CASE(code)                                                                            \
    case code:                                                                                     \
        return #code;
std::string nameOf(NapiResult code)
{
    switch (code) {
        VORN_CASE(NAPI_OK)
        VORN_CASE(NAPI_ERR_MEMORY_FULL)
        VORN_CASE(NAPI_ERR_NOT_INITIALISED)
        VORN_CASE(NAPI_ERR_ARGUMENT)
        VORN_CASE(NAPI_ERR_NAME)
        VORN_CASE(NAPI_ERR_NO_PROFILE)
        VORN_CASE(NAPI_ERR_EXISTS)
        VORN_CASE(NAPI_ERR_DAMAGED)
        VORN_CASE(NAPI_ERR_ACCESS)
        VORN_CASE(NAPI_ERR_IO)
        VORN_CASE(NAPI_ERR_ROOT)
        VORN_CASE(NAPI_ERR_NO_LINK)
        VORN_CASE(NAPI_ERR_LINK_NOT_UP)
        VORN_CASE(NAPI_ERR_TOO_MANY_LINKS)
        VORN_CASE(NAPI_ERR_SOCKET)
        VORN_CASE(NAPI_ERR_NOT_PERMITTED)
        VORN_CASE(NAPI_ERR_RESOURCES)
        VORN_CASE(NAPI_ERR_BUSY)
        VORN_CASE(NAPI_ERR_NOT_SYNCED)
    }
    return "";
}

std::string nameOf(VornResult code)
{
    switch (code) {
        VORN_CASE(VORN_ERR_NO_DIALOG)
        VORN_CASE(VORN_ERR_NONE_CHOSEN)
        VORN_CASE(VORN_ERR_NOT_INITIALISED)
        VORN_CASE(VORN_ERR_INITIALISED_ALREADY)
        VORN_CASE(VORN_ERR_NEGATIVE_LINK)
    }
    return "";
}

std::string nameOf(NapiCause code)
{
    switch (code) {
        VORN_CASE(NAPI_CAUSE_NONE)
        VORN_CASE(NAPI_CAUSE_NO_BEARER)
        VORN_CASE(NAPI_CAUSE_NO_SERVICE)
        VORN_CASE(NAPI_CAUSE_SIM)
        VORN_CASE(NAPI_CAUSE_SUBSCRIPTION)
        VORN_CASE(NAPI_CAUSE_AUTHENTICATION)
        VORN_CASE(NAPI_CAUSE_NO_ADDRESS)
        VORN_CASE(NAPI_CAUSE_MODEM)
        VORN_CASE(NAPI_CAUSE_NO_CARRIER)
        VORN_CASE(NAPI_CAUSE_DEVICE_GONE)
        VORN_CASE(NAPI_CAUSE_NO_SERVICE_DAEMON)
        VORN_CASE(NAPI_CAUSE_NOT_PERMITTED)
        VORN_CASE(NAPI_CAUSE_TIMEOUT)
        VORN_CASE(NAPI_CAUSE_CANCELLED)
        VORN_CASE(NAPI_CAUSE_NOT_SUPPORTED)
        VORN_CASE(NAPI_CAUSE_WIFI)
        VORN_CASE(NAPI_CAUSE_BUSY)
        VORN_CASE(NAPI_CAUSE_UNKNOWN)
    }
    return "";
}
#undef VORN_CASE

std::string nameOfResult(int code)
{
    const std::string own = nameOf(static_cast<VornResult>(code));
    return own.empty() ? nameOf(static_cast<NapiResult>(code)) : own;
}

TEST(Texts, EveryResultHasTheNameOfItsConstant)
{
    for (int code = -256; code <= 0; ++code)
        EXPECT_EQ(vornResultName(code), nameOfResult(code)) << code;
}

TEST(Texts, EveryCauseHasTheNameOfItsConstant)
{
    for (int code = 0; code <= 65535; ++code)
        EXPECT_EQ(vornCauseName(code), nameOf(static_cast<NapiCause>(code))) << code;
}

TEST(Texts, NoTwoCodesHaveTheSameText)
{
    std::set<std::string> texts{vornResultText(-9999), vornCauseText(-9999)};
    for (int code = -256; code <= 0; ++code) {
        if (*vornResultName(code) != 0) {
            EXPECT_TRUE(texts.insert(vornResultText(code)).second) << code;
        }
    }
    for (int code = 0; code <= 65535; ++code) {
        if (*vornCauseName(code) != 0) {
            EXPECT_TRUE(texts.insert(vornCauseText(code)).second) << code;
        }
    }
}

TEST(Texts, AreForPeople)
{
    EXPECT_STREQ(vornResultText(-204), "no such profile");
    EXPECT_STREQ(vornResultText(-216),
                 "another program is writing and has not ended for 10 seconds");
    EXPECT_STREQ(vornResultText(-100), "no profile was chosen");
    EXPECT_STREQ(vornCauseText(5), "user name or password refused");
}

TEST(Texts, EveryPositiveResultIsSuccess)
{
    for (int code : {0, 1, 255, 2147483647}) {
        EXPECT_STREQ(vornResultName(code), "NAPI_OK");
        EXPECT_STREQ(vornResultText(code), "done");
    }
}

TEST(Texts, WhatIsNoCodeIsSaidToBeUnknown)
{
    EXPECT_STREQ(vornResultText(-999), "a result that is not known here");
    EXPECT_STREQ(vornResultText(-2147483647 - 1), "a result that is not known here");
    EXPECT_STREQ(vornCauseText(17), "a cause that is not known here");
    EXPECT_STREQ(vornCauseText(-1), "a cause that is not known here");
}

TEST(Texts, TheWizardsResultsAreToldApart)
{
    EXPECT_STREQ(vornWizardText(0), "stored");
    EXPECT_STREQ(vornWizardText(1), "cancelled by the user");
    EXPECT_STREQ(vornWizardText(2), "closed, and nothing was stored");
    EXPECT_STREQ(vornWizardText(-204), "no such profile");
}

} // namespace

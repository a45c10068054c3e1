// Attacks errors: copies that are cut down to the base class, errors behind errors, messages without arguments.
#include "OdError.h"

#include <gtest/gtest.h>

#include <regex>
#include <set>
#include <thread>

#include "OdaCommon.h"
#include "RxDictionary.h"
#include "RxObjectImpl.h"
#include "RxSystemServices.h"
#include "support/ErrorCode.h"

namespace
{

class ArgumentContext : public OdErrorContext
{
public:
    explicit ArgumentContext(const OdString& name) : m_name(name) {}
    OdResult code() const override { return eNullPtr; }
    OdString description() const override { return L"argument " + m_name; }
    OdString errorClassName() const override { return L"ArgumentError"; }

private:
    OdString m_name;
};

class ArgumentError : public OdError
{
public:
    explicit ArgumentError(const OdString& name)
        : OdError(OdRxObjectImpl<ArgumentContext, OdErrorContext>::createObject(name).get())
    {
    }
};

TEST(Error, KeepsItsClassWhenCopiedAsTheBase)
{
    OdError kept;
    EXPECT_EQ(kept.code(), eOk);
    try
    {
        throw ArgumentError(L"pDb");
    }
    catch (const OdError& error)
    {
        kept = error;
    }
    EXPECT_EQ(kept.code(), eNullPtr);
    EXPECT_TRUE(kept.className() == L"ArgumentError");
    EXPECT_TRUE(kept.description() == L"argument pDb");
    EXPECT_NE(dynamic_cast<ArgumentContext*>(kept.context()), nullptr);
    EXPECT_TRUE(OdError(eNoDatabase).className() == L"OdError");
    EXPECT_EQ(OdError(static_cast<OdErrorContext*>(nullptr)).code(), eGeneralException);
}

TEST(Error, RowsOfErrorsEndAndNeverRunInACircle)
{
    const OdError first(L"first");
    const OdError second(L"second", first);
    OdError third(eInvalidInput, second);
    third.attachPreviousError(OdError(L"zeroth"));
    EXPECT_TRUE(third.context()->completeDescription() == L"The input is not valid\nsecond\nfirst\nzeroth");
    OdError cause(first);
    cause.setPreviousError(third);
    cause.attachPreviousError(third);
    cause.attachPreviousError(cause);
    EXPECT_TRUE(third.context()->completeDescription() == L"The input is not valid\nsecond\nfirst\nzeroth");
}

TEST(Messages, TablesRegisteredLaterCountAndMayBeWithdrawn)
{
    static const OdMessageEntry kFirst[] = {{904, L"Unknown command \"%ls\""}, {926, L"%d: %ls, 100%%"}};
    static const OdMessageEntry kSecond[] = {{904, L"No such command: %ls"}};
    OdRxSystemServices* services = odSystemServices();
    services->registerMessages(kFirst);
    EXPECT_TRUE(services->formatMessage(904, L"QUIT") == L"Unknown command \"QUIT\"");
    EXPECT_TRUE(services->formatMessage(926, 12, L"bad") == L"12: bad, 100%");
    services->registerMessages(kSecond);
    EXPECT_TRUE(services->formatMessage(904, L"QUIT") == L"No such command: QUIT");
    EXPECT_TRUE(OdError(OdResult(904)).description() == L"Unknown command") << "no arguments are at hand";
    EXPECT_TRUE(OdError(OdResult(926)).description() == L"...: ..., 100%");
    services->unregisterMessages(kSecond);
    EXPECT_TRUE(services->messageText(904) == kFirst[0].text);
    services->unregisterMessages(kFirst);
    services->unregisterMessages(kFirst);
    EXPECT_TRUE(services->formatMessage(926) == L"Message 926");
    EXPECT_TRUE(OdError(OdResult(926)).description() == L"Error 926");
}

TEST(Messages, BrokenTextsDoNoHarm)
{
    static const OdMessageEntry kBroken[] = {
        {950, L"%"}, {951, L"a%-12.3l"}, {952, L"%%%"}, {953, L""}, {954, L"%ls%"}};
    odSystemServices()->registerMessages(kBroken);
    for (const OdMessageEntry& entry : kBroken)
        EXPECT_LE(OdError(OdResult(entry.number)).description().getLength(), 8) << entry.number;
    odSystemServices()->unregisterMessages(kBroken);
}

TEST(Guid, IsUniqueAndOfItsExactForm)
{
    std::set<std::wstring> seen;
    std::vector<std::vector<OdString>> made(2);
    std::vector<std::thread> threads;
    for (auto& list : made)
        threads.emplace_back(
            [&list]
            {
                for (int i = 0; i < 5000; ++i)
                    list.push_back(odSystemServices()->createGuid());
            });
    for (std::thread& thread : threads)
        thread.join();
    for (const auto& list : made)
        for (const OdString& guid : list)
        {
            ASSERT_TRUE(seen.insert(guid.c_str()).second);
            ASSERT_EQ(guid.getLength(), 38);
        }
    const std::string last = odStringToUtf8(made[0].back());
    const std::regex version4(R"(\{[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}\})");
    EXPECT_TRUE(std::regex_match(last, version4)) << last;
}

} // namespace

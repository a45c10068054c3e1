// Numbers survive printing and reading bit by bit.
#include "dxf/Numbers.h"
#include "dxf/Handles.h"

#include <bit>
#include <cfloat>
#include <random>
#include <string>

#include <gtest/gtest.h>

namespace
{

std::string printed(double value)
{
    char digits[dxf::kLongestNumber];
    return {digits, dxf::printReal(value, digits)};
}

void expectSurvives(double value)
{
    double read = -1;
    EXPECT_EQ(dxf::parseReal(printed(value), read), dxf::NumberText::Exact) << printed(value);
    EXPECT_EQ(std::bit_cast<std::uint64_t>(read), std::bit_cast<std::uint64_t>(value)) << printed(value);
}

TEST(Numbers, SurviveBitByBit)
{
    for (const double value : {0.0, -0.0, 1.0, 0.1, 1.0 / 3.0, 123456.789, 1e15, 9007199254740993.0, 1e22, 1e23,
                               DBL_MIN, DBL_TRUE_MIN, DBL_MAX, -DBL_MAX, 4.35, 2.675, 1e-7})
        expectSurvives(value);
    std::mt19937_64 random(11);
    for (int i = 0; i < 200000; ++i)
    {
        const double anything = std::bit_cast<double>(random());
        if (std::isfinite(anything))
            expectSurvives(anything);
        expectSurvives(static_cast<double>(random() % 2000000000) / 1e6 - 1000.0);
    }
}

TEST(Numbers, ReadDecimalsLikeTheLibrary)
{
    std::mt19937_64 random(5);
    for (int i = 0; i < 200000; ++i)
    {
        std::string text = std::to_string(random() >> random() % 64);
        text.insert(random() % (text.size() + 1), ".");
        double read = 0;
        dxf::parseReal(text, read);
        EXPECT_EQ(read, std::stod(text)) << text;
    }
}

TEST(Numbers, PrintShort)
{
    const std::pair<double, const char*> cases[] = {{0.0, "0.0"},
                                                    {-0.0, "-0.0"},
                                                    {5.0, "5.0"},
                                                    {0.1, "0.1"},
                                                    {1e20, "1e+20"},
                                                    {-2.5, "-2.5"},
                                                    {1e-9, "1e-09"},
                                                    {INFINITY, "0.0"},
                                                    {NAN, "0.0"},
                                                    {100000.0, "100000.0"},
                                                    {999999.9999999999, "999999.9999999999"},
                                                    {1e6, "1000000.0"},
                                                    {-1e9, "-1000000000.0"},
                                                    {999999999999.125, "999999999999.125"},
                                                    {1e14, "100000000000000.0"},
                                                    {0.0001, "0.0001"},
                                                    {123456789.000001, "123456789.000001"},
                                                    {0.30000000000000004, "0.30000000000000004"},
                                                    {999999999999999, "999999999999999.0"}};
    for (const auto& [value, text] : cases)
        EXPECT_EQ(printed(value), text);
}

// What people type comes back as they typed it.
TEST(Numbers, PrintDecimalsAsTheyAreWritten)
{
    std::mt19937_64 random(17);
    for (int i = 0; i < 200000; ++i)
    {
        const std::size_t decimals = 1 + random() % 9;
        std::string fraction = std::to_string(random() % 1000000000).substr(0, decimals);
        while (fraction.size() > 1 && fraction.back() == '0')
            fraction.pop_back();
        const std::string whole = std::to_string(random() % 1000000 >> random() % 20);
        const std::string text = (random() % 2 == 0 ? "-" : "") + whole + "." + fraction;
        const double value = std::stod(text);
        if (std::fabs(value) >= 1e-4)
        {
            EXPECT_EQ(printed(value), text);
        }
    }
}

TEST(Handles, PrintWithoutLeadingZeros)
{
    EXPECT_EQ(dxf::handleText(0), "0");
    EXPECT_EQ(dxf::handleText(0x1F), "1F");
    EXPECT_EQ(dxf::handleText(0x100000000), "100000000");
    EXPECT_EQ(dxf::handleText(~0ull), "FFFFFFFFFFFFFFFF");
}

} // namespace

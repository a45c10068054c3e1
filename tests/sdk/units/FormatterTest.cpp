// Attacks lengths, angles and colours as texts: every form in every form of drawing, and texts that are none of them.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <optional>
#include <random>
#include <string>

#include "DbBaseDatabase.h"
#include "DbDatabase.h"
#include "OdError.h"
#include "ResBuf.h"
#include "UnitsFormatter.h"
#include "support/SdkProgram.h"

namespace
{

using Units = OdUnitsFormatter;
constexpr double kPi = 3.14159265358979323846;
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kEndless = std::numeric_limits<double>::infinity();

class FormatterTest : public ::testing::Test
{
protected:
    FormatterTest() : db(OdDbDatabase::createObject())
    {
        db->initialize();
        set(L"DIMZIN", 0);
    }

    void set(const OdChar* name, int value) { db->setSysVar(name, OdResBuf::newRb(70, OdInt16(value))); }
    Units& formatter() { return db->formatter(); }

    OdDbDatabasePtr db;
};

/// What work gives, nothing for a refusal with eInvalidInput.
template<class Work>
auto given(Work work) -> std::optional<decltype(work())>
{
    try
    {
        return work();
    }
    catch (const OdError& error)
    {
        EXPECT_EQ(error.code(), eInvalidInput);
        return std::nullopt;
    }
}

std::string utf8(const std::optional<OdString>& text)
{
    return text ? odStringToUtf8(*text) : "refused";
}

TEST_F(FormatterTest, WritesLengths)
{
    const struct
    {
        double value;
        Units::LUnits units;
        int precision, zeros, mode;
        const char* text;
    } rows[] = {
        {1.5, Units::kDecimal, 4, 0, 0, "1.5000"},
        {-1.5, Units::kDecimal, 4, 8, 0, "-1.5"},
        {0.25, Units::kDecimal, 4, 12, 0, ".25"},
        {-0.25, Units::kDecimal, 1, 4, 0, "-.2"},
        {2.0, Units::kDecimal, 4, 8, 0, "2"},
        {100.0, Units::kDecimal, 0, 8, 0, "100"},
        {0.0, Units::kDecimal, 4, 12, 0, "0"},
        {-0.00001, Units::kDecimal, 4, 0, 0, "0.0000"},
        {1.0, Units::kDecimal, 99, 0, 0, "1.00000000"},
        {1.6, Units::kDecimal, -3, 0, 0, "2"},
        {15.5, Units::kScientific, 4, 0, 0, "1.5500E+01"},
        {-15.5, Units::kScientific, 4, 8, 0, "-1.55E+01"},
        {0.0, Units::kScientific, 2, 0, 0, "0.00E+00"},
        {1e300, Units::kScientific, 2, 0, 0, "1.00E+300"},
        {15.5, Units::kEngineering, 2, 0, 0, "1'-3.50\""},
        {-15.5, Units::kEngineering, 2, 0, 1, "-1'3.50\""},
        {11.999, Units::kEngineering, 2, 0, 0, "1'"},
        {11.999, Units::kEngineering, 2, 1, 0, "1'-0.00\""},
        {0.0, Units::kEngineering, 2, 0, 0, "0.00\""},
        {0.0, Units::kEngineering, 2, 1, 0, "0'-0.00\""},
        {0.0, Units::kEngineering, 2, 2, 0, "0'"},
        {0.0, Units::kEngineering, 2, 3, 0, "0.00\""},
        {12.0, Units::kEngineering, 2, 3, 0, "1'-0.00\""},
        {3.0, Units::kEngineering, 2, 2, 0, "0'-3.00\""},
        {15.5, Units::kArchitectural, 4, 0, 0, "1'-3 1/2\""},
        {15.5, Units::kArchitectural, 4, 0, 1, "1'3-1/2\""},
        {12.5, Units::kArchitectural, 4, 0, 0, "1'-0 1/2\""},
        {0.5, Units::kArchitectural, 4, 0, 0, "1/2\""},
        {0.5, Units::kArchitectural, 4, 3, 0, "0 1/2\""},
        {0.5, Units::kArchitectural, 4, 1, 0, "0'-0 1/2\""},
        {11.99, Units::kArchitectural, 2, 0, 0, "1'"},
        {24.0, Units::kArchitectural, 2, 0, 0, "2'"},
        {-3.0, Units::kArchitectural, 2, 0, 0, "-3\""},
        {15.4375, Units::kFractional, 4, 0, 0, "15 7/16"},
        {15.4375, Units::kFractional, 4, 0, 1, "15-7/16"},
        {15.4375, Units::kFractional, 2, 0, 0, "15 1/2"},
        {15.4375, Units::kFractional, 0, 0, 0, "15"},
        {0.004, Units::kFractional, 8, 0, 0, "1/256"},
        {-0.001, Units::kFractional, 8, 0, 0, "0"},
        {1e20, Units::kFractional, 8, 0, 0, "100000000000000000000"},
        {kNan, Units::kDecimal, 4, 0, 0, "refused"},
        {-kEndless, Units::kArchitectural, 4, 0, 0, "refused"},
    };
    for (const auto& row : rows)
    {
        set(L"UNITMODE", row.mode);
        const auto write = [&] { return formatter().formatLinear(row.value, row.units, row.precision, row.zeros); };
        EXPECT_EQ(utf8(given(write)), row.text) << row.value << " in form " << row.units;
    }
}

TEST_F(FormatterTest, ReadsLengths)
{
    const struct
    {
        const OdChar* text;
        double value;
    } rows[] = {
        {L"12.5", 12.5},   {L" \t12.5 ", 12.5},  {L"+5", 5.0},           {L"-.5", -0.5},        {L"5.", 5.0},
        {L"1e3", 1000.0},  {L"1.25E-2", 0.0125}, {L"1'", 12.0},          {L"1.5'", 18.0},       {L"1'6", 18.0},
        {L"1'-6\"", 18.0}, {L"1' - 6\"", 18.0},  {L"-1'6.25\"", -18.25}, {L"1'-6 1/2\"", 18.5}, {L"1'6-1/2", 18.5},
        {L"1/2", 0.5},     {L"3/8\"", 0.375},    {L"3 3/8", 3.375},      {L"3-3/8", 3.375},     {L"0", 0.0},
    };
    for (const auto& row : rows)
        for (const int units : {2, 4})
        {
            set(L"LUNITS", units);
            EXPECT_EQ(given([&] { return formatter().unformatLinear(row.text); }), row.value)
                << odStringToUtf8(row.text);
        }
    for (const OdChar* refused :
         {L"",    L"  ",    L"-",      L".",    L"'",      L"\"",         L"abc",    L"12abc", L"nan",
          L"inf", L"1e999", L"1e308'", L"1e",   L"e5",     L"0x10",       L"1,5",    L"1.2.3", L"1 2",
          L"1-2", L"+-5",   L"- 5",    L"1/0",  L"1/",     L"/2",         L"1/2/3",  L"1.5/2", L"1'-",
          L"1''", L"6\"1'", L"1'6\"x", L"1 mm", L"\u0661", L"\U0001D7D9", L"\u22125"})
    {
        EXPECT_FALSE(given([&] { return formatter().unformatLinear(refused); })) << odStringToUtf8(refused);
    }
    const OdString thousandDigits(std::wstring(300, L'1') + L"." + std::wstring(700, L'1'));
    EXPECT_NEAR(formatter().unformatLinear(thousandDigits) / 1.1111111111e299, 1.0, 1e-9);
    EXPECT_FALSE(given([&] { return formatter().unformatLinear(OdString(std::wstring(400, L'9'))); }));
}

TEST_F(FormatterTest, WritesAngles)
{
    const struct
    {
        double degrees;
        Units::AUnits units;
        int precision, zeros, mode;
        const char* text;
    } rows[] = {
        {45.0, Units::kDecimalDegrees, 2, 0, 0, "45.00"},
        {45.0, Units::kDecimalDegrees, 2, 8, 0, "45"},
        {-45.0, Units::kDecimalDegrees, 0, 0, 0, "315"},
        {765.0, Units::kDecimalDegrees, 0, 0, 0, "45"},
        {359.9999, Units::kDecimalDegrees, 2, 0, 0, "0.00"},
        {-1e-14, Units::kDecimalDegrees, 2, 0, 0, "0.00"},
        {45.0, Units::kGradians, 1, 0, 0, "50.0g"},
        {359.9999, Units::kGradians, 1, 0, 0, "0.0g"},
        {180.0, Units::kRadians, 4, 0, 0, "3.1416r"},
        {-180.0, Units::kRadians, 4, 0, 0, "3.1416r"},
        {45.5, Units::kDegMinSec, 0, 0, 0, "46d"},
        {45.5, Units::kDegMinSec, 1, 0, 0, "45d30'"},
        {45.5, Units::kDegMinSec, 4, 0, 0, "45d30'0\""},
        {45.504, Units::kDegMinSec, 6, 0, 0, "45d30'14.40\""},
        {45.504, Units::kDegMinSec, 6, 8, 0, "45d30'14.4\""},
        {44.99999, Units::kDegMinSec, 4, 0, 0, "45d0'0\""},
        {359.99999, Units::kDegMinSec, 4, 0, 0, "0d0'0\""},
        {29.0 + 59.999 / 60.0, Units::kDegMinSec, 2, 0, 0, "30d0'"},
        {45.0, Units::kSurveyor, 0, 0, 0, "N 45d E"},
        {45.0, Units::kSurveyor, 0, 0, 1, "N45dE"},
        {135.0, Units::kSurveyor, 4, 0, 0, "N 45d0'0\" W"},
        {200.0, Units::kSurveyor, 0, 0, 0, "S 70d W"},
        {340.0, Units::kSurveyor, 0, 0, 0, "S 70d E"},
        {0.0, Units::kSurveyor, 4, 0, 0, "E"},
        {90.0, Units::kSurveyor, 4, 0, 0, "N"},
        {180.0, Units::kSurveyor, 4, 0, 0, "W"},
        {-90.0, Units::kSurveyor, 4, 0, 0, "S"},
        {359.9999999, Units::kSurveyor, 4, 0, 0, "E"},
        {89.9999999, Units::kSurveyor, 4, 0, 0, "N"},
        {kNan, Units::kSurveyor, 4, 0, 0, "refused"},
        {kEndless, Units::kDecimalDegrees, 4, 0, 0, "refused"},
    };
    for (const auto& row : rows)
    {
        set(L"UNITMODE", row.mode);
        const auto write = [&]
        { return formatter().formatAngle(row.degrees * kPi / 180.0, row.units, row.precision, row.zeros); };
        EXPECT_EQ(utf8(given(write)), row.text) << row.degrees << " in form " << row.units;
    }
}

TEST_F(FormatterTest, ReadsAngles)
{
    const struct
    {
        const OdChar* text;
        int units;
        double degrees;
    } rows[] = {
        {L"45", 0, 45.0},
        {L" -45.5 ", 0, -45.5},
        {L"1e2", 0, 100.0},
        {L"45", 1, 45.0},
        {L"100", 2, 90.0},
        {L"3.14159265358979", 3, 180.0},
        {L"45", 4, 45.0},
        {L"100g", 0, 90.0},
        {L"0R", 2, 0.0},
        {L"45d", 3, 45.0},
        {L"45\u00b0", 3, 45.0},
        {L"45D30'", 0, 45.5},
        {L"-45d30'36\"", 0, -45.51},
        {L"45d30'14.4\"", 0, 45.504},
        {L"45.5d", 0, 45.5},
        {L"N", 0, 90.0},
        {L"e", 0, 0.0},
        {L"W", 0, 180.0},
        {L"s", 0, 270.0},
        {L"N 45d0'0\" E", 0, 45.0},
        {L"n45w", 3, 135.0},
        {L"S 70d W", 0, 200.0},
        {L"S70.5dE", 0, 340.5},
        {L"S90dE", 0, 0.0},
        {L"N0dE", 0, 90.0},
    };
    for (const auto& row : rows)
    {
        set(L"AUNITS", row.units);
        const std::optional<double> radians = given([&] { return formatter().unformatAngle(row.text); });
        EXPECT_NEAR(radians.value_or(1e9), row.degrees * kPi / 180.0, 1e-12) << odStringToUtf8(row.text);
    }
    set(L"AUNITS", 0);
    for (const OdChar* refused :
         {L"N 1E E", L"",           L" ",     L"-",       L"d",        L"abc",          L"nan",  L"1e999", L"45x",
          L"45d60'", L"45d30'60\"", L"45d30", L"45d30\"", L"45.5d30'", L"45d30.5'10\"", L"45d'", L"45gr",  L"N 91d E",
          L"N 45d",  L"N 45d S",    L"NE",    L"E 45d N", L"-N",       L"N -45d E",     L"1,2"})
    {
        EXPECT_FALSE(given([&] { return formatter().unformatAngle(refused); })) << odStringToUtf8(refused);
    }
}

TEST_F(FormatterTest, ReadsBackWhatItWrote)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> mantissas(-10.0, 10.0);
    std::uniform_int_distribution<int> exponents(-6, 9), precisions(0, 8), zeroBits(0, 15), modes(0, 1);
    for (int round = 0; round < 3000; ++round)
    {
        const double value = mantissas(random) * std::pow(10.0, exponents(random));
        const int precision = precisions(random);
        const int zeros = zeroBits(random);
        set(L"UNITMODE", modes(random));
        for (int units = Units::kScientific; units <= Units::kFractional; ++units)
        {
            const auto form = static_cast<Units::LUnits>(units);
            const OdString text = formatter().formatLinear(value, form, precision, zeros);
            const double read = formatter().unformatLinear(text);
            const double step =
                units == Units::kScientific ? std::abs(value) * std::pow(10.0, -precision) : std::pow(0.5, precision);
            EXPECT_NEAR(read, value, step + std::abs(value) * 1e-15) << odStringToUtf8(text);
            EXPECT_EQ(formatter().formatLinear(read, form, precision, zeros), text) << value;
        }
        for (int units = Units::kDecimalDegrees; units <= Units::kSurveyor; ++units)
        {
            set(L"AUNITS", units);
            const auto form = static_cast<Units::AUnits>(units);
            const OdString text = formatter().formatAngle(value, form, precision, zeros & 8);
            const double turns = (formatter().unformatAngle(text) - value) / (2.0 * kPi);
            EXPECT_NEAR(turns, std::round(turns), 0.5 / 6.0 + std::abs(value) * 1e-15) << odStringToUtf8(text);
            EXPECT_EQ(formatter().formatAngle(formatter().unformatAngle(text), form, precision, zeros & 8), text);
        }
    }
}

TEST_F(FormatterTest, ReadsAndWritesColors)
{
    const auto indexed = [](int index)
    {
        OdCmColor color;
        color.setColorIndex(static_cast<OdUInt16>(index));
        return color;
    };
    const OdCmColor mixed(OdCmEntityColor(1, 20, 255));
    const struct
    {
        const OdChar* text;
        OdCmColor color;
        const char* written;
    } rows[] = {
        {L"bylayer", indexed(256), "ByLayer"}, {L"256", indexed(256), "ByLayer"},
        {L"BYBLOCK", indexed(0), "ByBlock"},   {L" 0 ", indexed(0), "ByBlock"},
        {L"Red", indexed(1), "red"},           {L"6", indexed(6), "magenta"},
        {L"WHITE", indexed(7), "white"},       {L"8", indexed(8), "8"},
        {L"255", indexed(255), "255"},         {L"1,20,255", mixed, "1,20,255"},
        {L" 1 , 020 ,255", mixed, "1,20,255"},
    };
    for (const auto& row : rows)
    {
        const auto color = given([&] { return formatter().unformatCmColor(row.text); });
        ASSERT_TRUE(color.has_value()) << odStringToUtf8(row.text);
        EXPECT_TRUE(*dynamic_cast<const OdCmColor*>(color->get()) == row.color) << odStringToUtf8(row.text);
        EXPECT_EQ(odStringToUtf8(formatter().formatCmColor(**color)), row.written);
    }
    for (const OdChar* refused : {L"", L"257", L"-1", L"1.5", L"1,2", L"1,2,3,4", L",1,2", L"1,,2", L"256,0,0",
                                  L"0,0,256", L"purple", L"99999999999999999999", L"red green"})
    {
        EXPECT_FALSE(given([&] { return formatter().unformatCmColor(refused); })) << odStringToUtf8(refused);
    }
    EXPECT_FALSE(given([&] { return formatter().formatCmColor(OdCmColor(OdCmEntityColor::kNone)); }));
}

TEST_F(FormatterTest, FollowsTheSettingsOfItsDrawing)
{
    EXPECT_EQ(formatter().formatLinear(1.5), L"1.5000");
    set(L"LUNITS", 4);
    set(L"LUPREC", 1);
    set(L"DIMZIN", 1);
    EXPECT_EQ(formatter().formatLinear(1.5), L"0'-1 1/2\"");
    set(L"AUNITS", 3);
    set(L"AUPREC", 3);
    set(L"DIMAZIN", 1);
    EXPECT_EQ(formatter().formatAngle(0.5), L".500r");
    set(L"LUNITS", 77);
    set(L"AUNITS", -1);
    EXPECT_EQ(formatter().formatLinear(1.5), L"1.5");
    EXPECT_EQ(formatter().formatAngle(kPi), L"180.000");

    const OdDbBaseDatabasePEPtr extension = OdDbBaseDatabasePE::cast(db);
    ASSERT_TRUE(extension);
    EXPECT_EQ(extension->baseFormatter(db), &formatter());
    EXPECT_EQ(extension->baseFormatter(nullptr), nullptr);
    EXPECT_EQ(extension->baseFormatter(extension), nullptr);
    const OdDbDatabasePtr other = OdDbDatabase::createObject();
    EXPECT_NE(&other->formatter(), &formatter());
}

} // namespace

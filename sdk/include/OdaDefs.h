// Numbers that geometry everywhere in the SDK agrees on, and comparing numbers that carry rounding errors.
#pragma once

#include <cmath>

constexpr double OdaPI = 3.14159265358979323846;
constexpr double Oda2PI = 2.0 * OdaPI;
constexpr double OdaPI2 = OdaPI / 2.0;
constexpr double OdaPI4 = OdaPI / 4.0;

constexpr double OdaToRadian(double degrees)
{
    return degrees * OdaPI / 180.0;
}

constexpr double OdaToDegree(double radians)
{
    return radians * 180.0 / OdaPI;
}

/** True when the number is at most tol away from zero. */
inline bool OdZero(double value, double tol = 1.e-10)
{
    return value <= tol && value >= -tol;
}

inline bool OdNonZero(double value, double tol = 1.e-10)
{
    return !OdZero(value, tol);
}

/** True when the numbers are at most tol apart. */
inline bool OdEqual(double first, double second, double tol = 1.e-10)
{
    return OdZero(first - second, tol);
}

inline bool OdPositive(double value, double tol = 1.e-10)
{
    return value > tol;
}

inline bool OdNegative(double value, double tol = 1.e-10)
{
    return value < -tol;
}

template<class T>
constexpr T odmin(T first, T second)
{
    return second < first ? second : first;
}

template<class T>
constexpr T odmax(T first, T second)
{
    return first < second ? second : first;
}

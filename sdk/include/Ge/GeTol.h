// How near is the same in geometry.
#pragma once

/** An OdGeTol is a pair of tolerances: points no farther apart than equalPoint are the same, vectors that differ by no
    more than equalVector too. It is a plain value. */
class OdGeTol
{
public:
    constexpr OdGeTol() = default;
    constexpr OdGeTol(double tolerance) : m_point(tolerance), m_vector(tolerance) {}
    constexpr OdGeTol(double pointTolerance, double vectorTolerance)
        : m_point(pointTolerance), m_vector(vectorTolerance)
    {
    }

    constexpr double equalPoint() const { return m_point; }
    constexpr double equalVector() const { return m_vector; }
    void setEqualPoint(double tolerance) { m_point = tolerance; }
    void setEqualVector(double tolerance) { m_vector = tolerance; }

private:
    double m_point = 1.e-10;
    double m_vector = 1.e-10;
};

/** The tolerances that are used where none are given. */
struct OdGeContext
{
    static OdGeTol gTol;
    /** For comparing without any tolerance. */
    static constexpr OdGeTol gZeroTol{0.0};
};

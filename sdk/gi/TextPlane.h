// The plane that a line of text lies in.
#pragma once

#include "Ge/GePoint3d.h"
#include "Ge/GeVector3d.h"

namespace gi
{

/// Maps points beside the start of a base line, x along it and y above it, to where they are after the slant.
class TextPlane
{
public:
    TextPlane(const OdGePoint3d& position, const OdGeVector3d& normal, const OdGeVector3d& direction, double slant)
        : m_origin(position), m_along(direction), m_up(normal.crossProduct(direction) + direction * slant)
    {
    }

    OdGePoint3d at(double x, double y) const { return m_origin + m_along * x + m_up * y; }
    const OdGeVector3d& along() const { return m_along; }
    const OdGeVector3d& up() const { return m_up; }

private:
    OdGePoint3d m_origin;
    OdGeVector3d m_along;
    OdGeVector3d m_up;
};

} // namespace gi

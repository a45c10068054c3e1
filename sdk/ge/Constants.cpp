// The values that geometry gives names to. They are there before anything runs, so other constants may be made of them.
#include "Ge/GeExtents3d.h"
#include "Ge/GeMatrix2d.h"
#include "Ge/GeMatrix3d.h"
#include "Ge/GePlane.h"
#include "Ge/GeTol.h"

constinit OdGeTol OdGeContext::gTol;

constinit const OdGeVector2d OdGeVector2d::kIdentity{0.0, 0.0};
constinit const OdGeVector2d OdGeVector2d::kXAxis{1.0, 0.0};
constinit const OdGeVector2d OdGeVector2d::kYAxis{0.0, 1.0};
constinit const OdGePoint2d OdGePoint2d::kOrigin{0.0, 0.0};
constinit const OdGeExtents2d OdGeExtents2d::kInvalid;

constinit const OdGeVector3d OdGeVector3d::kIdentity{0.0, 0.0, 0.0};
constinit const OdGeVector3d OdGeVector3d::kXAxis{1.0, 0.0, 0.0};
constinit const OdGeVector3d OdGeVector3d::kYAxis{0.0, 1.0, 0.0};
constinit const OdGeVector3d OdGeVector3d::kZAxis{0.0, 0.0, 1.0};
constinit const OdGePoint3d OdGePoint3d::kOrigin{0.0, 0.0, 0.0};
constinit const OdGeScale3d OdGeScale3d::kIdentity;
constinit const OdGeExtents3d OdGeExtents3d::kInvalid;

constinit const OdGeMatrix2d OdGeMatrix2d::kIdentity;
constinit const OdGeMatrix3d OdGeMatrix3d::kIdentity;

const OdGePlane OdGePlane::kXYPlane;
const OdGePlane OdGePlane::kYZPlane(OdGePoint3d(), OdGeVector3d(0.0, 1.0, 0.0), OdGeVector3d(0.0, 0.0, 1.0));
const OdGePlane OdGePlane::kZXPlane(OdGePoint3d(), OdGeVector3d(0.0, 0.0, 1.0), OdGeVector3d(1.0, 0.0, 0.0));

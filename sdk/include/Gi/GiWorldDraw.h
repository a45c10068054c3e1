// What a drawable is given to describe itself with.
#pragma once

#include "Gi/GiDrawable.h"
#include "Gi/GiGeometry.h"
#include "Gi/GiSubEntityTraits.h"

enum OdGiRegenType : int
{
    kOdGiStandardDisplay = 2,
    kOdGiSaveWorldDrawForProxy = 7,
    kOdGiForExtents = 8 // only where the shape reaches is of interest
};

// Brings together the receiver of shapes and the receiver of their looks. It lives as long as one drawing of one
// drawable and is used by one thread.
class OdGiWorldDraw : public OdRxObject
{
public:
    ODRX_DECLARE_MEMBERS(OdGiWorldDraw);

    virtual OdGiGeometry& geometry() const = 0;
    virtual OdGiSubEntityTraits& subEntityTraits() const = 0;

    // What the drawing is for.
    virtual OdGiRegenType regenType() const = 0;

    // True when the client wants the drawing to stop; drawables may then return early.
    virtual bool regenAbort() const = 0;

    // The greatest allowed distance between a curve and the polyline that stands for it, in drawing units.
    virtual double deviation() const = 0;
};

// Where drawables are shown for a while without being part of a drawing.
#pragma once

#include "Gi/GiDrawable.h"

/** An OdGsModel keeps what views have made of drawables. Whoever changes a drawable that is shown with it says so. */
class OdGsModel : public OdRxObject
{
public:
    ODRX_DECLARE_MEMBERS(OdGsModel);

    /** A drawable looks different from now on; parent is the drawable it is a part of, null for none. */
    virtual void onModified(OdGiDrawable* modified, OdGiDrawable* parent) = 0;
};
using OdGsModelPtr = OdSmartPtr<OdGsModel>;

/** An OdGsView is a picture on a screen, which a program derives a class of its own for. It asks the drawables in it
    for their shapes (OdGiDrawable::setAttributes and worldDraw) whenever it draws itself. */
class OdGsView : public OdRxObject
{
public:
    ODRX_DECLARE_MEMBERS(OdGsView);

    /** Shows a drawable, to which the view holds a reference, until erase; the model may be null. */
    virtual void add(OdGiDrawable* sceneGraph, OdGsModel* model) = 0;
    /** Shows it no more. Returns false when it was not shown. */
    virtual bool erase(OdGiDrawable* sceneGraph) = 0;
};
using OdGsViewPtr = OdSmartPtr<OdGsView>;

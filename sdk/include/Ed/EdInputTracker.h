// Objects that follow what a user is entering and show what it would lead to.
#pragma once

#include "DbObjectId.h"
#include "Ge/GePoint3d.h"
#include "RxObject.h"

class OdDbSelectionMethod;
class OdGsView;

/** An OdEdInputTracker follows an entry from the time it is asked for until it is made. A program with a screen calls
    addDrawables when it begins to ask, setValue (of the class for what is asked) whenever what the user points at or
    has typed changes, also for the answer itself, and removeDrawables when it has one or the user gives up. */
class OdEdInputTracker : public OdRxObject
{
public:
    ODRX_DECLARE_MEMBERS(OdEdInputTracker);

    /** Adds to a view what shows where the entry leads, which then follows setValue. Returns how many drawables were
       added; as it is here, none. */
    virtual int addDrawables(OdGsView* view);
    /** Takes them out again. */
    virtual void removeDrawables(OdGsView* view);
};
using OdEdInputTrackerPtr = OdSmartPtr<OdEdInputTracker>;

/** Follows a text that is being typed. */
class OdEdStringTracker : public OdEdInputTracker
{
public:
    ODRX_DECLARE_MEMBERS(OdEdStringTracker);

    virtual void setValue(const OdString& value) = 0;
};
using OdEdStringTrackerPtr = OdSmartPtr<OdEdStringTracker>;

/** Follows a point that is being picked. */
class OdEdPointTracker : public OdEdInputTracker
{
public:
    ODRX_DECLARE_MEMBERS(OdEdPointTracker);

    virtual void setValue(const OdGePoint3d& value) = 0;
};
using OdEdPointTrackerPtr = OdSmartPtr<OdEdPointTracker>;

/** Follows a point that is being picked and starts from another one. */
class OdEdPointDefTracker : public OdEdPointTracker
{
public:
    ODRX_DECLARE_MEMBERS(OdEdPointDefTracker);

    virtual OdGePoint3d basePoint() const = 0;
    virtual void setBasePoint(const OdGePoint3d& point) = 0;
};
using OdEdPointDefTrackerPtr = OdSmartPtr<OdEdPointDefTracker>;

/** Follows an integer that is being typed. */
class OdEdIntegerTracker : public OdEdInputTracker
{
public:
    ODRX_DECLARE_MEMBERS(OdEdIntegerTracker);

    virtual void setValue(int value) = 0;
};
using OdEdIntegerTrackerPtr = OdSmartPtr<OdEdIntegerTracker>;

/** Follows a number that is being entered: a distance in drawing units, an angle in radians. */
class OdEdRealTracker : public OdEdInputTracker
{
public:
    ODRX_DECLARE_MEMBERS(OdEdRealTracker);

    virtual void setValue(double value) = 0;
};
using OdEdRealTrackerPtr = OdSmartPtr<OdEdRealTracker>;

using OdEdDistTracker = OdEdRealTracker;
using OdEdAngleTracker = OdEdRealTracker;

/** Follows a selection of any kind. */
class OdSSetTracker : public OdEdInputTracker
{
public:
    ODRX_DECLARE_MEMBERS(OdSSetTracker);
};
using OdSSetTrackerPtr = OdSmartPtr<OdSSetTracker>;

/** Follows a selection of entities of a drawing; it decides what may be selected. The method may be null. */
class OdEdSSetTracker : public OdSSetTracker
{
public:
    ODRX_DECLARE_MEMBERS(OdEdSSetTracker);

    /** Returns true when the entity may become part of the selection. */
    virtual bool append(OdDbObjectId entityId, const OdDbSelectionMethod* selectionMethod) = 0;
    /** Returns true when the entity may be taken out of the selection. */
    virtual bool remove(OdDbObjectId entityId, const OdDbSelectionMethod* selectionMethod);
};
using OdEdSSetTrackerPtr = OdSmartPtr<OdEdSSetTracker>;

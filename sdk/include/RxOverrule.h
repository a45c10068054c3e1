// Changing what the objects of a class do from outside.
#pragma once

#include "OdResult.h"
#include "RxObject.h"

/** An OdRxOverrule takes the place of operations of all objects of a class and of classes derived from it. While
    overruling is off, none is asked and the operations cost as much as without overrules. Adding, removing and
   switching is done by one thread. */
class OdRxOverrule : public OdRxObject
{
public:
    ODRX_DECLARE_MEMBERS(OdRxOverrule);

    /** Puts an overrule into force for a class, before those in force there or, with addAtLast, behind them. The caller
        keeps the overrule alive and removes it before it ends. Returns eOk; eNullPtr for a null argument;
        eDuplicateKey for an overrule that is in force for this class already; nothing is changed then. */
    static OdResult addOverrule(OdRxClass* overruledClass, OdRxOverrule* overrule, bool addAtLast = false);

    /** Returns eOk; eNullPtr for a null argument; eKeyNotFound for an overrule that is not in force for this class. */
    static OdResult removeOverrule(OdRxClass* overruledClass, OdRxOverrule* overrule);

    /** True when there is an overrule in force that applies to the object. */
    static bool hasOverrule(const OdRxObject* subject);

    static void setIsOverruling(bool isOverruling) { s_bIsOverruling = isOverruling; }
    static bool isOverruling() { return s_bIsOverruling; }

    /** Returns true when the overrule is to be asked for this object. */
    virtual bool isApplicable(const OdRxObject* subject) const;

    /** The switch itself, for tests that must cost nothing. Off at first. */
    static bool s_bIsOverruling;
};
using OdRxOverrulePtr = OdSmartPtr<OdRxOverrule>;

/** The way from an operation to the overrules of it. An operation that can be overruled asks first() for the overrule
   that takes its place; the operation of a kind of overrule, when it is not overridden, asks next() for the one behind.
 */
class OdRxOverruleInternals
{
public:
    /** The first overrule of a kind that applies to the object: overrules of its own class come before those of its
       base classes. Null when there is none. The switch is not looked at. */
    static OdRxOverrule* first(const OdRxObject* subject, const OdRxClass* kind);

    /** The one behind an overrule, null when it is the last. */
    static OdRxOverrule* next(const OdRxObject* subject, const OdRxClass* kind, const OdRxOverrule* current);

    /** True when any overrule is in force for any class. */
    static bool hasAny();
};

// The protocol by which commands are given parameters, leave results and run each other.
//
// A chain of parameters or results is a row of named entries, each a name and what belongs to it:
//
//   element          restype        content
//   name             5005           upper case by convention: "SELECTIONSETNAME"
//   string           5005           the text
//   boolean          290
//   integer          5010           32 bits
//   pointer          160            its bits as a 64-bit integer, 0 for null
//   object id        330
//   object id array  330 ...        one element for each id, so none at all for an empty array
//   selection set    5007
//   point            5009
//   extents          5009 5009      least corner, greatest corner
//   object           5023 or 160    a nested chain; else the address of the object, 0 for null
//
// Values carry no name of their own. Who walks over a chain takes every string for a name, so a string value that looks
// like the name that is searched for is taken for it.
#pragma once

#include <functional>

#include "DbCommandContext.h"
#include "DbSSet.h"
#include "Ge/GeExtents3d.h"
#include "ResBuf.h"

namespace CadCommands
{

// ---- Writing -------------------------------------------------------------------------------------------------------
// Each makes one entry, which belongs to the caller. Each throws OdError_InvalidArgument (106, "strName") for an empty
// name; the function that errors name is "CadCommands::" and the name of the operation.

OdResBufPtr SetParameterOdString(const OdString& strName, const OdString& value);
OdResBufPtr SetParameterVoidPtr(const OdString& strName, const void* value);
OdResBufPtr SetParameterBool(const OdString& strName, bool value);
OdResBufPtr SetParameterInt32(const OdString& strName, OdInt32 value);
OdResBufPtr SetParameterObjectId(const OdString& strName, const OdDbObjectId& value);
OdResBufPtr SetParameterObjectIdArray(const OdString& strName, const OdDbObjectIdArray& value);
/** The chain does not keep an object alive unless it is a chain itself. */
OdResBufPtr SetParameterObjectPtr(const OdString& strName, OdRxObject* value);
/** Throws OdError_InvalidArgument (20, "pSelectionSet") for null too. */
OdResBufPtr SetParameterDbSelectionSet(const OdString& strName, OdDbSelectionSet* value);
OdResBufPtr SetParameterOdGePoint3d(const OdString& strName, const OdGePoint3d& value);
OdResBufPtr SetParameterOdGeExtents3d(const OdString& strName, const OdGeExtents3d& value);

/** Puts an entry behind a chain, which may be null. */
void Append(OdResBufPtr& pChain, const OdResBufPtr& pEntry);

// ---- Reading -------------------------------------------------------------------------------------------------------
// Each takes the element where the value begins and returns the one behind the value. Where a chain ends before the
// value (null), each returns null and no value: an empty text, the null id, an empty array, a null selection set; a
// bool and extents stay as they are. Each throws OdError_InvalidArgument (68, "pResBuf") for an element of another
// type.

/** Reads a name: trimmed and in upper case, empty when the element is no string. */
OdResBufPtr ResBufGetName(const OdResBufPtr& pResBuf, OdString& strName);

/** Walks over a chain of parameters and calls read(name, element) at each name, with the element where its value begins
    or null. A reader that knows the name takes the value, moves the element behind it and returns true; otherwise name
    and value are passed over: one string, or all up to the next string. A name that ends in "ARRAY" has object ids
   only, perhaps none, so that a string behind it is the next name already. */
using ParameterReader = std::function<bool(const OdString& strName, OdResBufPtr& pElement)>;
void WalkParameters(const OdResBufPtr& pChain, const ParameterReader& read);

/** The string behind the name "JSON", else the first string that is the value of any name, else the only element of the
    chain when it is a string, else an empty text. Throws OdError_InvalidArgument (68, "pResBuf") for a "JSON" of
   another type. */
OdString FindJsonText(const OdResBufPtr& pChain);

OdResBufPtr ResBufGetOdString(const OdResBufPtr& pResBuf, OdString& value);
OdResBufPtr ResBufGetBool(const OdResBufPtr& pResBuf, bool& value);
/** Throws OdError_InvalidArgument (122, "pDb") for a null database too. */
OdResBufPtr ResBufGetObjectId(const OdResBufPtr& pResBuf, OdDbDatabase* pDb, OdDbObjectId& value);
/** Takes all ids up to the first element of another type. Throws OdError_InvalidArgument (122, "pDb") for a null
    database, unless the element is null too. */
OdResBufPtr ResBufGetObjectIdArray(const OdResBufPtr& pResBuf, OdDbDatabase* pDb, OdDbObjectIdArray& value);
/** Throws OdError_NotThatKindOfClass for an object that is no selection set of a drawing. */
OdResBufPtr ResBufGetDbSelectionSet(const OdResBufPtr& pResBuf, OdDbSelectionSetPtr& value);
OdResBufPtr ResBufGetOdGeExtents3d(const OdResBufPtr& pResBuf, OdGeExtents3d& value);

// ---- Running -------------------------------------------------------------------------------------------------------

/** Runs a command of a group (of any group, for an empty one) in the given context and returns the chain that it
   leaves, null for none. The parameters stay installed until others replace them, also when the command throws; the
   result that was there before is gone. What the command throws reaches the caller. Throws, before anything is touched:
    OdError_InvalidArgument 417 "pDbCommandContext", 904 "strCommand" for an empty name, 904 with the name of the
   command when there is no such command; OdError_InvalidValue 417 "pFunctionIO" for a context without. */
OdResBufPtr Execute(OdDbCommandContext* pDbCommandContext, const OdString& strCommand, const OdString& strGroup,
                    const OdResBufPtr& pParameters);

/** The value behind a name in the result chain, null when the name is not there. The result is removed: it can be read
    once. Throws OdError_InvalidArgument 417 "pDbCommandContext", OdError_InvalidValue 417 "pFunctionIO". */
OdResBufPtr GetValueFromResult(OdDbCommandContext* pDbCommandContext, const OdString& strName);

} // namespace CadCommands

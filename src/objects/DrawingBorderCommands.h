// The commands that define drawing borders and read them back.
#pragma once

#include "framework/Command.h"

/** A CDrawingBorderCommand is a command of the group of drawing borders. All share one frame, whose errors are
    OdError_InvalidArgument: there must be a context (417 "pEdCommandContext") with a function IO that is a CFunctionIO
    (417 "pFunctionIO") and a database (122 "pDb"), and, for the commands that define, host services behind that (417
    "pHostAppServices"). A context that is not one of commands on a drawing, or that has nobody to ask for what lies in
    one, throws OdError_NotThatKindOfClass. */
class CDrawingBorderCommand : public CCommand
{
public:
    using DoWork = void (*)(CCommandCall& call);

protected:
    CDrawingBorderCommand(const CommandRow& row, FrameChecks checks, DoWork work) : CCommand(row, checks), m_work(work)
    {
    }
    void Work(CCommandCall& call) override { m_work(call); }

private:
    DoWork m_work;
};

/** "DEFINEDRAWINGBORDERCOLUMNLINES": sets the columns and lines of the drawing's first border, which is made when there
    is none, from the parameter "JSON", else the first string of the chain; without any parameters the user is asked.
    Throws what CParamsDrawingBorder::Read throws, OdError_InvalidArgument 21 "idResult" when no border can be made. */
class CCommandDefineDrawingBorderColumnsLines : public CDrawingBorderCommand
{
public:
    CCommandDefineDrawingBorderColumnsLines();
};

/** "DEFINEDRAWINGBORDER": sets the corners of the drawing's first border in the same way, and columns and lines when
   the JSON says that they are valid. Without any parameters the user is asked for two points. Throws as
    "DEFINEDRAWINGBORDERCOLUMNLINES", and what CParamsDrawingBorder::RequireArea throws. */
class CCommandDefineDrawingBorder : public CDrawingBorderCommand
{
public:
    CCommandDefineDrawingBorder();
};

/** "DRAWINGBORDERGETDICTIONARYID": "OBJECTID", the dictionary of borders, made when it is missing. */
class CCommandDrawingBorderGetDictionaryId : public CDrawingBorderCommand
{
public:
    CCommandDrawingBorderGetDictionaryId();
};

/** "DRAWINGBORDERGETALLIDS": "OBJECTIDARRAY", all borders in the order of the dictionary, with "ALLOWDELETED" also
   those that are marked as deleted. Throws OdError_InvalidArgument 20 "pDictionary". */
class CCommandDrawingBorderGetAllIds : public CDrawingBorderCommand
{
public:
    CCommandDrawingBorderGetAllIds();
};

/** "GETDRAWINGBORDER": "JSON", the first border of "DRAWINGBORDERGETALLIDS"; an empty one when there is none. */
class CCommandDrawingBorderGetDrawingBorder : public CDrawingBorderCommand
{
public:
    CCommandDrawingBorderGetDrawingBorder();
};

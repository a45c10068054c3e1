// Asking a user for values of all kinds.
#pragma once

#include "CmColorBase.h"
#include "Ed/EdException.h"
#include "Ed/EdInputTracker.h"
#include "OdaCommon.h"
#include "UnitsFormatter.h"

class OdGsModel;

namespace OdEd
{
/** How a selection is asked for; combined with |. */
enum SelectFlags : unsigned
{
    kSelDefault = 0,
    kSelPickLastPoint = 0x1,                ///< the last point is the first one picked
    kSelSingleEntity = 0x2,                 ///< a point where there is nothing does not begin a box
    kSelIgnorePickfirst = 0x4,              ///< what was selected before does not answer the question
    kSelSinglePass = 0x8,                   ///< one pick is the answer
    kSelAllowEmpty = 0x10,                  ///< selecting nothing is an answer
    kSelRemove = 0x20,                      ///< what is picked is taken out of the selection
    kSelLeaveHighlighted = 0x40,            ///< the selection stays highlighted
    kSelAllowInactSpaces = 0x80,            ///< entities of other layouts may be selected
    kSelAllowObjectsOnLockedLayers = 0x100, ///< entities on locked layers may be selected
    kSelAllowPSVP = 0x200,                  ///< viewports of sheets may be selected
    kSelAllowSubents = 0x400                ///< parts of entities may be selected too
};

/** How something is asked for; combined with |. */
enum GetPointFlags : unsigned
{
    kGptDefault = 0,
    kGptNoLimCheck = 0x1,        ///< the drawing's limits do not matter
    kInpNonEmpty = 0x2,          ///< an answer that is not empty is required
    kGptRubberBand = 0x4,        ///< a line follows from the last point
    kGptRectFrame = 0x8,         ///< a rectangle follows from the last point
    kGdsFromLastPoint = 0x80,    ///< the last point is the first of two
    kGanFromAngBase = 0x100,     ///< angles are measured from the drawing's base angle
    kGdsNoZCoord = 0x400,        ///< distances are measured in plan
    kInpThrowOther = 0x40000000, ///< an answer that cannot be read is thrown as OdEdOtherInput
    kInpThrowEmpty = 0x80000000  ///< an empty answer is thrown as OdEdEmptyInput
};
} // namespace OdEd

/** An OdEdUserIO asks a user for keywords, numbers, texts, colours and file names. Each operation throws OdEdCancel
   when the user wants the command to end, and the other classes of Ed/EdException.h as the options say. What a class
   does not override throws OdError (eNotApplicable): it cannot ask for that. */
class OdEdUserIO : public OdRxObject
{
public:
    ODRX_DECLARE_MEMBERS(OdEdUserIO);

    /** Asks for one of the keywords. Returns its position in the list, from 0. */
    virtual int getKeyword(const OdString& prompt, const OdString& keywords, int defaultIndex = -1, int options = 0,
                           OdEdIntegerTracker* tracker = nullptr);
    virtual int getInt(const OdString& prompt, int options = 0, int defaultValue = 0,
                       const OdString& keywords = OdString(), OdEdIntegerTracker* tracker = nullptr);
    virtual double getReal(const OdString& prompt, int options = 0, double defaultValue = 0.0,
                           const OdString& keywords = OdString(), OdEdRealTracker* tracker = nullptr);
    virtual OdString getString(const OdString& prompt, int options = 0, const OdString& defaultValue = OdString(),
                               const OdString& keywords = OdString(), OdEdStringTracker* tracker = nullptr);
    /** Shows a line of text. */
    virtual void putString(const OdString& text);
    virtual OdCmColorBasePtr getCmColor(const OdString& prompt, int options = 0,
                                        const OdCmColorBase* defaultValue = nullptr,
                                        const OdString& keywords = OdString(), OdEdInputTracker* tracker = nullptr);
    /** Asks for the path of a file. As it is here, asks for a text: with the caption when there is no prompt, and with
        the file name for an empty answer. */
    virtual OdString getFilePath(const OdString& prompt, int options = 0, const OdString& dialogCaption = OdString(),
                                 const OdString& defaultExtension = OdString(), const OdString& fileName = OdString(),
                                 const OdString& filter = OdString(), const OdString& keywords = OdString(),
                                 OdEdStringTracker* tracker = nullptr);
    /** Shows a text that says what is wrong. */
    virtual void putError(const OdString& text);
};
using OdEdUserIOPtr = OdSmartPtr<OdEdUserIO>;

/** An OdEdBaseUserIO also asks for points, angles (radians) and distances, in world coordinates. */
class OdEdBaseUserIO : public OdEdUserIO
{
public:
    ODRX_DECLARE_MEMBERS(OdEdBaseUserIO);

    /** The point that was entered last. */
    virtual OdGePoint3d getLASTPOINT() const;
    virtual void setLASTPOINT(const OdGePoint3d& point);

    /** A tracker that shows a line, a rectangle, from the base point. */
    virtual OdEdPointDefTrackerPtr createRubberBand(const OdGePoint3d& base, OdGsModel* model = nullptr) const;
    virtual OdEdPointDefTrackerPtr createRectFrame(const OdGePoint3d& base, OdGsModel* model = nullptr) const;

    virtual OdGePoint3d getPoint(const OdString& prompt, int options = 0, const OdGePoint3d* defaultValue = nullptr,
                                 const OdString& keywords = OdString(), OdEdPointTracker* tracker = nullptr);
    virtual double getAngle(const OdString& prompt, int options = 0, double defaultValue = 0.0,
                            const OdString& keywords = OdString(), OdEdRealTracker* tracker = nullptr);
    virtual double getDist(const OdString& prompt, int options = 0, double defaultValue = 0.0,
                           const OdString& keywords = OdString(), OdEdRealTracker* tracker = nullptr);
};
using OdEdBaseUserIOPtr = OdSmartPtr<OdEdBaseUserIO>;

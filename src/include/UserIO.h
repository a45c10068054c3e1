// Asking the user, as the plug-in's commands do it.
#pragma once

#include "DbUserIO.h"
#include "QuendZolExport.h"
#include "ResBuf.h"
#include "RxModule.h"

class CCommandHandler;
class OdDbDatabase;
class OdEdBaseIO;

/** A CUserIO asks for keywords, numbers, texts, colours, files, points, angles, distances and selections. It has no
   device of its own: every question goes to what its handler exposes at that moment, the command string or the host. It
   belongs to one handler and is used on the handler's thread.

    What all readers share:
    - Keyword lists are words separated by blanks, "Yes No"; behind a word "_" the same keywords may follow once more as
      the user sees them, "Yes No _ Ja Nein". Case does not matter. An answer is a keyword when it is the whole word in
      either form, or else an abbreviation: the word's capitals ("X" for "eXit"), or a beginning of the word that holds
      all of them. Readers that take a list throw OdEdKeyword for such an answer; only getKeyword never does.
    - An empty answer gives the default. With OdEd::kInpThrowEmpty it is thrown as OdEdEmptyInput instead; with
      OdEd::kInpNonEmpty and no default the question is repeated.
    - An answer that cannot be read is called wrong (putError), and the question is repeated. With OdEd::kInpThrowOther
      it is thrown as OdEdOtherInput instead.
    - A question ends with OdEdCancel when the user gives up or there is nothing left that answers.
    - An empty prompt becomes one that says what is asked for.
    Lengths, angles and colours are written and read by the formatter of the handler's database; where that is missing,
    OdError (eNoDatabase) is thrown. docs/user-input.md says it in a user's words. */
class QUEND_ZOL_EXPORT CUserIO : public OdDbUserIO
{
public:
    ODRX_DECLARE_MEMBERS(CUserIO);

    /** Thrown by getPointOrReal: the user typed a number where a point was asked for. */
    struct RealInput
    {
        double value;
    };

    /** The entry of the arbitrary data of a drawing that holds the point entered last: an OdRxVariant of three objects,
        each an OdRxVariant of one coordinate. */
    static const OdString m_strPathLastPoint;

    /** An object for a handler, which outlives it and is not kept alive by it. Throws OdError_ModuleInitialization
       (417, "Quend.Zol.Cad.tx", "CUserIO::Init") when the module is not loaded, OdError_NotThatKindOfClass when what is
       loaded under that name is no module. */
    static OdSmartPtr<CUserIO> createObject(CCommandHandler* pHandler);

    /** The index of the keyword that the user chose; the default index for an empty answer when it names a keyword.
       Asks until one of these comes. An empty prompt becomes a list of the keywords, each followed by a slash. */
    int getKeyword(const OdString& prompt, const OdString& keywords, int defaultIndex = -1, int options = 0,
                   OdEdIntegerTracker* tracker = nullptr) override;

    /** The integer that the answer begins with, 0 when it begins with none, and the nearest one when it is too great:
       no answer is wrong. */
    int getInt(const OdString& prompt, int options = 0, int defaultValue = 0, const OdString& keywords = OdString(),
               OdEdIntegerTracker* tracker = nullptr) override;

    /** A length. */
    double getReal(const OdString& prompt, int options = 0, double defaultValue = 0.0,
                   const OdString& keywords = OdString(), OdEdRealTracker* tracker = nullptr) override;

    /** A line of text. */
    OdString getString(const OdString& prompt, int options = 0, const OdString& defaultValue = OdString(),
                       const OdString& keywords = OdString(), OdEdStringTracker* tracker = nullptr) override;

    void putString(const OdString& text) override;

    /** A colour: a name, a number, or red, green and blue. Never null. */
    OdCmColorBasePtr getCmColor(const OdString& prompt, int options = 0, const OdCmColorBase* defaultValue = nullptr,
                                const OdString& keywords = OdString(), OdEdInputTracker* tracker = nullptr) override;

    /** The path of a file. The services of the database's host show a dialog when they ask for files so, or when the
       user answers "~"; where there are no services or no dialogs, a text is asked for. options & 3 goes to the
       dialog. */
    OdString getFilePath(const OdString& prompt, int options = 0, const OdString& dialogCaption = OdString(),
                         const OdString& defaultExtension = OdString(), const OdString& fileName = OdString(),
                         const OdString& filter = OdString(), const OdString& keywords = OdString(),
                         OdEdStringTracker* tracker = nullptr) override;

    void putError(const OdString& text) override;

    /** The point that was entered last in the handler's drawing, the origin when none was. The module keeps it for each
       drawing; without the module it is always the origin. */
    OdGePoint3d getLASTPOINT() const override;
    void setLASTPOINT(const OdGePoint3d& point) override;

    /** Trackers of the module; null when the module is not loaded. */
    OdEdPointDefTrackerPtr createRubberBand(const OdGePoint3d& base, OdGsModel* model = nullptr) const override;
    OdEdPointDefTrackerPtr createRectFrame(const OdGePoint3d& base, OdGsModel* model = nullptr) const override;

    /** A point, which becomes the last point. It is picked or typed as two or three coordinates with commas between
       them, each a length; what follows a third one is passed over. Without a tracker of the caller's,
        OdEd::kGptRectFrame or else OdEd::kGptRubberBand shows one from the last point. While the drawing's LIMCHECK is
        on, a point outside of its limits is wrong, unless OdEd::kGptNoLimCheck is given. A text without a comma behind
        its first character that is no keyword is thrown as OdEdOtherInput, whatever the options are. An empty answer
        is asked again when there is no default. */
    OdGePoint3d getPoint(const OdString& prompt, int options = 0, const OdGePoint3d* defaultValue = nullptr,
                         const OdString& keywords = OdString(), OdEdPointTracker* tracker = nullptr) override;

    /** An angle in radians; with OdEd::kGanFromAngBase the drawing's ANGBASE is subtracted from what is typed, but not
        from the default. */
    double getAngle(const OdString& prompt, int options = 0, double defaultValue = 0.0,
                    const OdString& keywords = OdString(), OdEdRealTracker* tracker = nullptr) override;

    /** A distance: getReal for OdResBuf::kDxfXdDist. */
    double getDist(const OdString& prompt, int options = 0, double defaultValue = 0.0,
                   const OdString& keywords = OdString(), OdEdRealTracker* tracker = nullptr) override;

    /** The set that the host calls "PICKFIRST", null for none; replaces and highlights it. Each throws
        OdError_InvalidArgument (417, "pEdCommandContext") without handler, OdError_InvalidValue (417, "pFunctionIO")
        when the handler has no CFunctionIO, and what CadCommands::Execute throws for the host's command; setPickfirst
        also OdError_InvalidArgument (20, "pSelectionSet") for null. Arguments and results of the command that calls
        this, or select, are those that they were before, also when something is thrown. */
    void setPickfirst(OdSelectionSet* selection) override;
    OdSelectionSetPtr pickfirst() override;

    /** As getCmColor. Throws OdError (eInvalidInput) for a colour of another class. */
    OdCmColor getColor(const OdString& prompt, int options = 0, const OdCmColorBase* defaultValue = nullptr,
                       const OdString& keywords = OdString(), OdEdInputTracker* tracker = nullptr) override;

    /** One round of selecting: the set picked first, when there is one and neither a default nor
        OdEd::kSelIgnorePickfirst is given; else one point, or where there is nothing (without OdEd::kSelSingleEntity)
        the box from it to a second one; or one of the ways to select that the keywords name, in the order of message
        1020, which is also the list used for an empty one. What was picked is merged with the default by the host, and
        becomes the set picked first. An empty answer leaves the default, or with OdEd::kInpThrowEmpty is thrown.
        The tracker decides what may be selected. points receives what was picked. Throws as pickfirst, and what
        getPoint throws (OdEdOtherInput for any other text). */
    OdSelectionSetPtr select(const OdString& prompt = OdString(), int options = 0,
                             const OdSelectionSet* defaultValue = nullptr, const OdString& keywords = OdString(),
                             OdSSetTracker* tracker = nullptr, OdGePoint3dArray* points = nullptr) override;

    /** A number: typed, or the distance between two points, whatever the type is. With OdEd::kGdsFromLastPoint the
       first point is the last point. A text is read as a length for OdResBuf::kDxfXdDist, as an angle for
        OdResBuf::kRtOrient, and is 0 for other types; one that cannot be read is thrown as OdError (eInvalidInput).
        The tracker follows the second point: for kDxfXdDist the distance, which with OdEd::kGdsNoZCoord is also what
        is returned, for other types the direction. It receives the result, unless that was typed instead of the first
        point. An empty answer for the second point gives the default.
        Throws OdError_ModuleInitialization (417, "CUserIO::getReal") for a tracker without the module. */
    virtual double getReal(const OdString& prompt, int options, double defaultValue, OdResBuf::ValueType valueType,
                           const OdString& keywords = OdString(), OdEdRealTracker* tracker = nullptr);

    /** The modifier keys that are held down, a combination of OdEdBaseIO::KeyState. */
    unsigned long getKeyState();

protected:
    void Init(CCommandHandler* pHandler);

    OdString getStringInternal(const OdString& prompt, int options, OdEdStringTracker* tracker);

    /** A point. Throws RealInput for a number that was typed instead, read as getReal says. */
    OdGePoint3d getPointOrReal(const OdString& prompt, int options, const OdString& keywords,
                               OdResBuf::ValueType valueType, OdEdPointTracker* tracker);

    /** Throws OdError (eNoDatabase) when there is none. */
    OdUnitsFormatter& baseFormatter();

    /** Takes what stands before the first of the delimiters off a text, and that delimiter. */
    static OdString GetNextStringToken(OdString& text, const OdChar* delimiters);

private:
    class PickQuestion;
    class PointQuestion;

    OdEdBaseIO& CurrentIO();
    OdDbDatabase* Database() const;

    CCommandHandler* m_pHandler = nullptr;
    OdRxModulePtr m_pModule;
};
using CUserIOPtr = OdSmartPtr<CUserIO>;

// Asking the user, as the plug-in's commands do it.
#pragma once

#include "DbUserIO.h"
#include "QuendZolExport.h"
#include "RxModule.h"

class CCommandHandler;
class OdEdBaseIO;

/** A CUserIO asks for texts and keywords. It has no device of its own: every question goes to what its handler exposes
   at that moment, the command string or the host. It belongs to one handler and is used on the handler's thread.

    Keyword lists are words separated by blanks, "Yes No"; behind a word "_" the same keywords may follow once more as
    the user sees them, "Yes No _ Ja Nein". Case does not matter. An answer is a keyword when it is the whole word in
    either form, or else an abbreviation: the word's capitals ("X" for "eXit"), or a beginning of the word that holds
   all of them. */
class QUEND_ZOL_EXPORT CUserIO : public OdDbUserIO
{
public:
    ODRX_DECLARE_MEMBERS(CUserIO);

    /** An object for a handler, which outlives it and is not kept alive by it. Throws OdError_ModuleInitialization
       (417, "Quend.Zol.Cad.tx", "CUserIO::Init") when the module is not loaded, OdError_NotThatKindOfClass when what is
       loaded under that name is no module. */
    static OdSmartPtr<CUserIO> createObject(CCommandHandler* pHandler);

    /** The index of the keyword that the user chose; the default index for an empty answer when it names a keyword.
       Asks until one of these comes. An empty prompt becomes a list of the keywords. Throws OdEdCancel. */
    int getKeyword(const OdString& prompt, const OdString& keywords, int defaultIndex = -1, int options = 0,
                   OdEdIntegerTracker* tracker = nullptr) override;

    /** A line of text. An empty answer becomes the default, if that is not empty; else it is returned, or with
        OdEd::kInpNonEmpty the question is repeated. Throws OdEdKeyword for an answer that is one of the keywords,
        OdEdEmptyInput for an empty one with OdEd::kInpThrowEmpty, OdEdCancel. */
    OdString getString(const OdString& prompt, int options = 0, const OdString& defaultValue = OdString(),
                       const OdString& keywords = OdString(), OdEdStringTracker* tracker = nullptr) override;

    void putString(const OdString& text) override;
    void putError(const OdString& text) override;

    /** The modifier keys that are held down, a combination of OdEdBaseIO::KeyState. */
    OdUInt32 getKeyState();

protected:
    void Init(CCommandHandler* pHandler);
    OdString getStringInternal(const OdString& prompt, int options, OdEdStringTracker* tracker);

private:
    OdEdBaseIO& CurrentIO();

    CCommandHandler* m_pHandler = nullptr;
    OdRxModulePtr m_pModule;
};
using CUserIOPtr = OdSmartPtr<CUserIO>;

// What a program that uses the SDK does for it: making and reading drawings, finding files.
#pragma once

#include "DbDatabase.h"

/** OdDbHostAppServices is the program's side of the database. A program derives a class from it and makes its drawings
    through an object of that class, which has to live as long as the drawings do. Different threads may use it at the
   same time as long as they use different drawings. */
class OdDbHostAppServices
{
public:
    OdDbHostAppServices() = default;
    virtual ~OdDbHostAppServices() = default;
    OdDbHostAppServices(const OdDbHostAppServices&) = delete;
    OdDbHostAppServices& operator=(const OdDbHostAppServices&) = delete;

    /** What findFile looks for. */
    enum FindFileHint : int
    {
        kDefault = 0,
        kFontFile = 1,
        kCompiledShapeFile = 2,
        kTrueTypeFontFile = 3,
        kEmbeddedImageFile = 4,
        kXRefDrawing = 5,
        kPatternFile = 6,
        kTxApplication = 7,
        kFontMapFile = 8
    };

    /** A new drawing: one that has all that every drawing has, or with createDefault false an empty one to read a file
        into; in metric or in imperial units. */
    virtual OdDbDatabasePtr createDatabase(bool createDefault = true, bool metric = true);

    /** Reads a drawing file. Throws OdError_FileNotFound when findFile does not find it, and what
        OdDbDatabase::readFile throws. */
    virtual OdDbDatabasePtr readFile(const OdString& fileName);

    /** The path of a file, empty when there is none. As it is here: the name itself when there is such a file, else a
       file of that name in the folder of the drawing. */
    virtual OdString findFile(const OdString& fileName, OdDbDatabase* database = nullptr, FindFileHint hint = kDefault);

    /** True when files are asked for by a dialog rather than as texts. As it is here, true. */
    virtual bool getFILEDIA() const;

    /** Shows a dialog that asks for a file. flags is 0 for one that is opened and 1 for one that is saved; 2 lets a
        list of files be chosen. Returns the path, empty when the user gave up, or exactly "*unsupported*" when there
       are no dialogs; as it is here, that. */
    virtual OdString fileDialog(int flags, const OdString& caption, const OdString& defaultExtension,
                                const OdString& fileName, const OdString& filter);

    /** The name of the program, its maker, and its version, as "zolcad". */
    virtual OdString program();
    virtual OdString product();
    virtual OdString companyName();
    virtual OdString versionString();

    /** The file of the font that is used where another is missing. */
    virtual OdString getAlternateFontName() const;
};

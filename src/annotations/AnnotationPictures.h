// The image files of stamps, and their definitions in the drawing.
#pragma once

#include <map>
#include <set>
#include <string>

#include "DbDatabase.h"
#include "DbRasterImageDef.h"
#include "Ge/GeVector2d.h"
#include "RxRasterServices.h"
#include "annotations/AnnotationProperties.h"

namespace Annotation
{

/** What is known of an image file. */
struct Picture
{
    OdString strFile;         ///< as it is attached
    OdGeVector2d pixels;      ///< its size
    OdGeVector2d millimeters; ///< the size of a pixel, 0 when the file does not say
};

/** The CPictures are the image files that one request attaches to a drawing. Each file is looked at once, and all
    images of a file share one definition, which lies in the drawing's dictionary of image definitions under the name
    "AnnotationImage", the next "AnnotationImage_2" and so on. */
class CPictures
{
public:
    explicit CPictures(OdDbDatabase& db) : m_db(db) {}

    /** The picture of a record that has one: its effective file when that is given, else the original one. A relative
        path is relative to the drawing. Throws OdError_FileNotFound and OdError_CantOpenFile, which name the file, and
        OdError (eModuleNotFound) when the module that reads pictures is missing. */
    const Picture& Find(const AnnotationProperties& properties);

    /** The definition of a picture, made when the drawing has none for that file and size. */
    OdDbObjectId Definition(const Picture& picture);

    /** Remembers a definition that an image has ceased to show. */
    void Release(const OdDbObjectId& idDefinition) { m_released.insert(idDefinition); }

    /** Erases those of the remembered definitions that no image shows any more. */
    void EraseUnused();

private:
    Picture Read(const OdString& strFile);
    void FindDefinitions();
    OdDbObjectId AddDefinition(const Picture& picture);

    OdDbDatabase& m_db;
    OdRxRasterServicesPtr m_pServices;
    std::map<std::wstring, Picture> m_pictures;         // by file as attached
    std::map<std::wstring, OdDbObjectId> m_definitions; // likewise
    std::set<OdDbObjectId> m_released;
    bool m_bDefinitionsKnown = false;
    int m_iLastNumber = 0;
};

} // namespace Annotation
